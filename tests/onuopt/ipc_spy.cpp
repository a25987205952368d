#include "onuopt/ipc_spy.h"

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <sys/sem.h>
#include <unistd.h>

namespace {

union semun {
    int val;
    semid_ds *buf;
    unsigned short *array;
};

using SemopFn = int (*)(int, sembuf *, size_t);
using SemctlFn = int (*)(int, int, int, ...);

SemopFn real_semop() {
    static const auto fn = reinterpret_cast<SemopFn>(dlsym(RTLD_NEXT, "semop"));
    return fn;
}

SemctlFn real_semctl() {
    static const auto fn = reinterpret_cast<SemctlFn>(dlsym(RTLD_NEXT, "semctl"));
    return fn;
}

int setval_error = 0;
int stop_fd = -1;

} // namespace

namespace spy {

LockLog &lock_log() {
    static LockLog log;
    return log;
}

void fail_next_setval(int error) {
    setval_error = error;
}

void stop_while_holding(int notify_fd) {
    stop_fd = notify_fd;
}

int raw_semop(int sem_id, short delta, short flags) {
    sembuf op{0, delta, flags};
    return real_semop()(sem_id, &op, 1);
}

int raw_semctl(int sem_id, int cmd, int value) {
    semun arg{};
    arg.val = value;
    return real_semctl()(sem_id, 0, cmd, arg);
}

} // namespace spy

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): libc names them __semid...
extern "C" int semop(int sem_id, sembuf *ops, size_t count) noexcept {
    spy::LockLog &log = spy::lock_log();
    const bool take = count == 1 && ops[0].sem_op < 0;
    log.without_undo += (ops[0].sem_flg & SEM_UNDO) == 0 ? 1 : 0;
    if (take) {
        ++log.takes;
        if (++log.depth > log.deepest) {
            log.deepest = log.depth;
        }
        if (log.depth > 1) {
            return 0;
        }
    } else {
        ++log.releases;
        if (log.depth-- > 1) {
            return 0;
        }
    }
    const int result = real_semop()(sem_id, ops, count);
    if (take && result == 0 && stop_fd >= 0) {
        (void)write(stop_fd, "L", 1);
        for (;;) {
            pause();
        }
    }
    return result;
}

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" int semctl(int sem_id, int index, int cmd, ...) noexcept {
    semun arg{};
    if (cmd != IPC_RMID && cmd != GETVAL && cmd != GETPID && cmd != GETNCNT && cmd != GETZCNT) {
        va_list ap;
        va_start(ap, cmd);
        arg = va_arg(ap, semun);
        va_end(ap);
    }
    if (cmd == SETVAL && setval_error != 0) {
        errno = setval_error;
        setval_error = 0;
        return -1;
    }
    return real_semctl()(sem_id, index, cmd, arg);
}
