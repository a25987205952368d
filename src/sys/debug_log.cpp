// Debug printers: the console, and a log file that is dropped once it grows
// past its cap so a chatty process cannot fill /tmp.
#include "gvutil/sys.h"
#include "os/os.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <string_view>

namespace {

constexpr std::size_t kLineSize = 1028;
constexpr long long kLogCap = 100000;
constexpr const char *kConsole = "/dev/console";
constexpr const char *kLogFile = "/tmp/log";

struct Line {
    char text[kLineSize];
    std::size_t length;
};

// Long lines are cut at the buffer rather than written past it.
Line format_line(const char *format, va_list args) noexcept {
    Line line{};
    const int length = format != nullptr ? std::vsnprintf(line.text, kLineSize, format, args) : -1;
    line.length = length < 0 ? 0 : std::min(static_cast<std::size_t>(length), kLineSize - 1);
    return line;
}

void to_console(const char *format, va_list args) noexcept {
    const Line line = format_line(format, args);
    const int fd = gv::os::open_path(kConsole, O_RDWR | O_NOCTTY);
    if (fd < 0) {
        return;
    }
    gv::os::write_all(fd, std::string_view(line.text, line.length));
    gv::os::close_fd(fd);
}

} // namespace

void printd(const char *format, ...) noexcept {
    va_list args;
    va_start(args, format);
    to_console(format, args);
    va_end(args);
}

void dlog(const char *format, ...) noexcept {
    va_list args;
    va_start(args, format);
    to_console(format, args);
    va_end(args);
}

void flog(const char *format, ...) noexcept {
    file_size_check();
    va_list args;
    va_start(args, format);
    const Line line = format_line(format, args);
    va_end(args);
    std::FILE *log = gv::os::open_stream(kLogFile, "a+t");
    if (log == nullptr) {
        return;
    }
    std::fwrite(line.text, 1, line.length, log);
    std::fclose(log);
}

int file_size_check(void) noexcept {
    long long size = 0;
    if (gv::os::file_size(kLogFile, &size) != 0) {
        std::fputs("checking for log file : invalid file", stdout);
        return -1;
    }
    if (size <= kLogCap) {
        return 0;
    }
    char command[64];
    std::snprintf(command, sizeof command, "/bin/rm -rf %s", kLogFile);
    return gv::os::run_command(command);
}
