#include "os/os.h"

#include <climits>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace gv::os {

int open_path(const char *path, int flags) noexcept {
    char resolved[PATH_MAX];
    if (!resolve_path(path, resolved)) {
        return -1;
    }
    return ::open(resolved, flags | O_CLOEXEC);
}

void close_fd(int fd) noexcept {
    if (fd >= 0) {
        ::close(fd);
    }
}

int ioctl_reply(int fd, unsigned long request, std::span<std::byte> reply) noexcept {
    std::memset(reply.data(), 0, reply.size());
#if GVUTIL_HOST_SIM
    struct stat st {};
    if (::fstat(fd, &st) == 0 && S_ISREG(st.st_mode)) {
        const ssize_t got = ::pread(fd, reply.data(), reply.size(), 0);
        return got < 0 ? -1 : 0;
    }
#endif
    return ::ioctl(fd, request, reply.data());
}

int device_control(int fd, unsigned long request, void *argument) noexcept {
    return ::ioctl(fd, request, argument);
}

} // namespace gv::os
