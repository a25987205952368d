// Child processes: thin wrappers over fork, execvp, wait4 and kill. They are
// real in every build and leave errno as the system call set it.
#pragma once

namespace gv::os {

// fork(2), after flushing every stdio stream so that text the caller has
// printed is not written a second time by the child. The child's pid in the
// parent, 0 in the child, -1 when there is no child.
int fork_process() noexcept;

// execvp(3): the program argv[0], searched on PATH, with argv as its
// arguments. Returns only when the program could not be started.
void exec_program(char *const argv[]) noexcept;

// _exit(2): a forked child ends without running the parent's exit handlers
// or flushing buffers it inherited.
[[noreturn]] void end_child(int status) noexcept;

// exit(3) of the calling process.
[[noreturn]] void end_process(int status) noexcept;

// wait4(2) for one child. Waiting: the child's pid once it has ended, -1
// when a signal interrupts the wait or there is no such child. Looking only
// (wait false): 0 while the child still runs.
int wait_child(int pid, bool wait) noexcept;

// kill(2).
int signal_process(int pid, int signal) noexcept;

// Sleeps for the given microseconds; a signal may end it early.
void pause_microseconds(long microseconds) noexcept;

} // namespace gv::os
