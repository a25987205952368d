#include "os/os.h"

#include <cerrno>
#include <climits>
#include <sys/stat.h>
#include <unistd.h>

namespace gv::os {

std::FILE *open_stream(const char *path, const char *mode) noexcept {
    char resolved[PATH_MAX];
    if (mode == nullptr || !resolve_path(path, resolved)) {
        return nullptr;
    }
    return std::fopen(resolved, mode);
}

int file_size(const char *path, long long *size) noexcept {
    char resolved[PATH_MAX];
    struct stat st {};
    if (size == nullptr || !resolve_path(path, resolved) || ::stat(resolved, &st) != 0) {
        return -1;
    }
    *size = static_cast<long long>(st.st_size);
    return 0;
}

bool write_all(int fd, std::string_view text) noexcept {
    while (!text.empty()) {
        const ssize_t put = ::write(fd, text.data(), text.size());
        if (put < 0 && errno == EINTR) {
            continue;
        }
        if (put <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

} // namespace gv::os
