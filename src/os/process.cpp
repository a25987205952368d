#include "os/process.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace gv::os {

int fork_process() noexcept {
    std::fflush(nullptr);
    return ::fork();
}

void exec_program(char *const argv[]) noexcept {
    ::execvp(argv[0], argv);
}

void end_child(int status) noexcept {
    ::_exit(status);
}

void end_process(int status) noexcept {
    std::exit(status);
}

int wait_child(int pid, bool wait) noexcept {
    int status = 0;
    return ::wait4(pid, &status, wait ? 0 : WNOHANG, nullptr);
}

int signal_process(int pid, int signal) noexcept {
    return ::kill(pid, signal);
}

void pause_microseconds(long microseconds) noexcept {
    const timespec span{microseconds / 1000000, (microseconds % 1000000) * 1000};
    ::nanosleep(&span, nullptr);
}

} // namespace gv::os
