// Watches the store's semaphore from inside the test process. The library's
// semop and semctl calls reach the definitions in ipc_spy.cpp first (an
// executable's symbols come before libc's), so a test can count lock takes,
// fail a call, or stop a process while it holds the lock.
#pragma once

namespace spy {

struct LockLog {
    int takes = 0;
    int releases = 0;
    int depth = 0;
    int deepest = 0;
    int without_undo = 0; // operations lacking SEM_UNDO
};

// Since the last reset (assign {}). A nested take is counted, not performed,
// so a nesting fault shows as deepest > 1 instead of a hang.
LockLog &lock_log();

// The next SETVAL fails with this errno.
void fail_next_setval(int error);

// At the next successful take: write one byte to notify_fd, then sleep
// until killed.
void stop_while_holding(int notify_fd);

// The real calls, not logged: what test code itself does to the semaphore.
int raw_semop(int sem_id, short delta, short flags);
int raw_semctl(int sem_id, int cmd, int value);

} // namespace spy
