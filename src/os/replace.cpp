#include "os/os.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace gv::os {

// The new text goes to a temporary file beside the old one and is renamed
// over it. rename(2) within one folder is atomic, so a reader, or a writer
// killed at any moment, sees the old file or the new one and never a mix.
// A killed writer may leave its temporary file behind; /tmp is emptied at
// boot.
bool replace_file(const char *path, std::string_view text) noexcept {
    char target[PATH_MAX];
    char temporary[PATH_MAX];
    if (!resolve_path(path, target)) {
        return false;
    }
    const int length = std::snprintf(temporary, sizeof temporary, "%s.XXXXXX", target);
    if (length < 0 || static_cast<std::size_t>(length) >= sizeof temporary) {
        return false;
    }
    const int fd = ::mkostemp(temporary, O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    // mkostemp makes the file private; the state files are read by every
    // process of the chassis.
    const bool written = ::fchmod(fd, 0644) == 0 && write_all(fd, text);
    const bool closed = ::close(fd) == 0;
    if (!written || !closed || ::rename(temporary, target) != 0) {
        ::unlink(temporary);
        return false;
    }
    return true;
}

} // namespace gv::os
