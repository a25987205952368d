// Running an external program for the shell: fork, run it from PATH, wait.
// A child that is still there after the wait (the wait was interrupted, as
// when the operator breaks off) gets a short grace and then signal 9, and is
// always reaped, so no zombie is left behind.
#include "gvutil/sys.h"
#include "os/process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

constexpr long kGraceMicroseconds = 300000;
// Texts of one command line, program included; more cannot be run.
constexpr std::size_t kMaxTexts = 255;

struct ArgumentVector {
    std::array<char *, kMaxTexts + 1> texts{};
    bool too_long = false;
};

ArgumentVector collect(const char *program, va_list more) noexcept {
    ArgumentVector argv;
    std::size_t count = 0;
    for (const char *text = program; text != nullptr; text = va_arg(more, const char *)) {
        if (count == kMaxTexts) {
            argv.too_long = true;
            break;
        }
        // execvp takes char *const[] but does not write through it.
        argv.texts[count++] = const_cast<char *>(text);
    }
    return argv;
}

[[noreturn]] void run_child(const ArgumentVector &argv) noexcept {
    if (argv.too_long) {
        errno = E2BIG;
    } else if (argv.texts[0] == nullptr) {
        errno = ENOENT;
    } else {
        gv::os::exec_program(argv.texts.data());
    }
    // Only the reason is printed; the shell shows the command line itself.
    std::fprintf(stderr, "Can't execute %s\n", std::strerror(errno));
    gv::os::end_child(1);
}

bool still_running(int pid) noexcept {
    return gv::os::wait_child(pid, false) == 0;
}

} // namespace

int gv_execute_command(const void *context, const char *program, ...) noexcept {
    (void)context;
    va_list more;
    va_start(more, program);
    const ArgumentVector argv = collect(program, more);
    va_end(more);

    const int pid = gv::os::fork_process();
    if (pid < 0) {
        // Callers rely on this ending the process, as it always has.
        std::fprintf(stderr, "Can't fork: %s\n", std::strerror(errno));
        gv::os::end_process(1);
    }
    if (pid == 0) {
        run_child(argv);
    }
    gv::os::wait_child(pid, true);
    if (still_running(pid)) {
        gv::os::pause_microseconds(kGraceMicroseconds);
        if (still_running(pid)) {
            gv::os::signal_process(pid, SIGKILL);
            // Retried until it is reaped: a signal must not leave a zombie.
            while (gv::os::wait_child(pid, true) < 0 && errno == EINTR) {
            }
        }
    }
    return 0;
}
