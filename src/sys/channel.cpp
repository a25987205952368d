// The text channel: a request line to a /proc control entry, a text reply
// back. Entries of another slot ("/SLOT...") are reached through the remote
// control command instead of the private ioctl.
#include "sys/channel.h"

#include "gvutil/sys.h"
#include "os/os.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string_view>

namespace {

using gv::sys::kReplySize;

constexpr std::size_t kRemoteLineSize = 1024;

void say_open_error(char *reply, const char *path, int error) noexcept {
    std::snprintf(reply, kReplySize, "%%file open error : %s (%s)\n", path, std::strerror(error));
}

int local_exchange(const char *path, const char *request, char *reply, int flag) noexcept {
    const int fd = gv::os::open_path(path, O_RDONLY);
    if (fd < 0) {
        say_open_error(reply, path, errno);
        return -1;
    }
    std::memset(reply, 0, kReplySize);
    int result = 0;
    const bool sent = gv::os::text_channel(fd, path, flag, request, {reply, kReplySize}, &result);
    const int error = errno;
    gv::os::close_fd(fd);
    if (!sent) {
        std::snprintf(reply, kReplySize, "%%ioctl open error (%s)\n", std::strerror(error));
        return -1;
    }
    return result;
}

// Appends line while the reply stays within its size; false when it would not.
bool append_line(char *reply, std::size_t &length, std::string_view line) noexcept {
    if (line.size() >= kReplySize - length) {
        return false;
    }
    std::memcpy(reply + length, line.data(), line.size());
    length += line.size();
    reply[length] = '\0';
    return true;
}

// The remote control command answers a first line of three numbers (the
// third is the result), or "There is no system" when the slot is empty,
// then the reply text.
int remote_exchange(const char *path, const char *request, char *reply, int flag) noexcept {
    std::memset(reply, 0, kReplySize);
    char command[kRemoteLineSize];
    const int length =
        std::snprintf(command, sizeof command, "rsctrl -o %d -v %s %s", flag, path, request);
    std::FILE *pipe = length >= 0 && static_cast<std::size_t>(length) < sizeof command
                          ? gv::os::open_pipe(command, "r")
                          : nullptr;
    if (pipe == nullptr) {
        say_open_error(reply, path,
                       length < 0 || static_cast<std::size_t>(length) >= sizeof command
                           ? ENAMETOOLONG
                           : errno);
        return -1;
    }
    char line[kRemoteLineSize];
    std::size_t kept = 0;
    int result = 0;
    if (std::fgets(line, sizeof line, pipe) != nullptr) {
        if (std::strstr(line, "There is no system") != nullptr) {
            append_line(reply, kept, line);
            gv::os::close_pipe(pipe);
            return -1;
        }
        int first = 0;
        int second = 0;
        if (std::sscanf(line, "%d %d %d", &first, &second, &result) != 3) {
            result = 0;
        }
    }
    while (std::fgets(line, sizeof line, pipe) != nullptr) {
        if (!append_line(reply, kept, line)) {
            gv::os::log_error("%% Result length is over %d \n", static_cast<int>(kReplySize));
            break;
        }
    }
    gv::os::close_pipe(pipe);
    return result;
}

} // namespace

int sioctl(const char *path, const char *request, char *reply, int flag) noexcept {
    if (reply == nullptr) {
        return -1;
    }
    if (path == nullptr || request == nullptr) {
        std::memset(reply, 0, kReplySize);
        return -1;
    }
    return std::strncmp(path, "/SLOT", 5) == 0 ? remote_exchange(path, request, reply, flag)
                                               : local_exchange(path, request, reply, flag);
}

int str_ioctl(const char *path, const char *request, char **reply, int flag) noexcept {
    static gv::sys::ExchangeArea area;
    const int result = gv::sys::exchange(area, path, request, flag);
    if (reply != nullptr) {
        *reply = area.reply();
    }
    return result;
}

int strioctl(unsigned long request, void *argument, int unused) noexcept {
    (void)unused;
    const int fd = gv::os::open_path("/proc/strioctl", O_RDWR);
    if (fd < 0) {
        return -1;
    }
    const int result = gv::os::device_control(fd, request, argument);
    gv::os::close_fd(fd);
    return result;
}

namespace gv::sys {

int exchange(ExchangeArea &area, const char *path, const char *request, int flag) noexcept {
    area.bytes.fill('\0');
    if (request == nullptr) {
        return sioctl(path, request, area.reply(), flag);
    }
    // A request longer than the half it is copied into is cut there.
    std::strncpy(area.request(), request, kReplySize - 1);
    return sioctl(path, area.request(), area.reply(), flag);
}

} // namespace gv::sys
