#include "os/replace_file.h"

#include "os/os.h"

#include <cstdlib>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace gv::os {

FileReplacement::~FileReplacement() {
    abandon();
}

std::FILE *FileReplacement::begin(const char *path) noexcept {
    abandon();
    if (!resolve_path(path, target_) ||
        std::snprintf(temporary_, sizeof temporary_, "%s.XXXXXX", target_) >=
            static_cast<int>(sizeof temporary_)) {
        temporary_[0] = '\0';
        return nullptr;
    }
    const int fd = ::mkstemp(temporary_);
    if (fd < 0) {
        temporary_[0] = '\0';
        return nullptr;
    }
    // mkstemp makes the file private; a state file is as readable as fopen makes it.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd, 0666 & ~mask);
    stream_ = ::fdopen(fd, "w");
    if (stream_ == nullptr) {
        ::close(fd);
        ::unlink(temporary_);
        temporary_[0] = '\0';
    }
    return stream_;
}

bool FileReplacement::commit() noexcept {
    if (stream_ == nullptr) {
        return false;
    }
    std::FILE *stream = stream_;
    stream_ = nullptr;
    const bool written = std::fflush(stream) == 0 && ::fsync(::fileno(stream)) == 0;
    const bool closed = std::fclose(stream) == 0;
    if (!written || !closed || std::rename(temporary_, target_) != 0) {
        ::unlink(temporary_);
        temporary_[0] = '\0';
        return false;
    }
    temporary_[0] = '\0';
    return true;
}

void FileReplacement::abandon() noexcept {
    if (stream_ != nullptr) {
        std::fclose(stream_);
        stream_ = nullptr;
    }
    if (temporary_[0] != '\0') {
        ::unlink(temporary_);
        temporary_[0] = '\0';
    }
}

} // namespace gv::os
