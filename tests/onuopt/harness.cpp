#include "onuopt/harness.h"

#include "support/ipc_namespace.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <dlfcn.h>
#include <sys/sem.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

union semun {
    int val;
    semid_ds *buf;
    unsigned short *array;
};

template <typename Fn> Fn real(const char *name) {
    return reinterpret_cast<Fn>(dlsym(RTLD_NEXT, name));
}

} // namespace

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): libc names them __semid...
extern "C" int semop(int sem_id, sembuf *ops, size_t count) noexcept {
    static const auto real_semop = real<int (*)(int, sembuf *, size_t)>("semop");
    spy::LockLog &log = spy::lock_log;
    const bool take = ops[0].sem_op < 0;
    log.without_undo += (ops[0].sem_flg & SEM_UNDO) == 0 ? 1 : 0;
    if (take) {
        ++log.takes;
        log.deepest = std::max(log.deepest, ++log.depth);
    } else {
        ++log.releases;
    }
    if (take ? log.depth > 1 : log.depth-- > 1) {
        return 0; // nested: counted only
    }
    const int result = real_semop(sem_id, ops, count);
    if (take && result == 0 && spy::kill_at_take) {
        raise(SIGKILL);
    }
    return result;
}

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" int semctl(int sem_id, int index, int cmd, ...) noexcept {
    static const auto real_semctl = real<int (*)(int, int, int, ...)>("semctl");
    semun arg{};
    if (cmd != IPC_RMID && cmd != GETVAL && cmd != GETPID && cmd != GETNCNT && cmd != GETZCNT) {
        va_list ap;
        va_start(ap, cmd);
        arg = va_arg(ap, semun);
        va_end(ap);
    }
    if (cmd == SETVAL && spy::setval_error != 0) {
        errno = std::exchange(spy::setval_error, 0);
        return -1;
    }
    return real_semctl(sem_id, index, cmd, arg);
}

namespace onutest {

int sem_value() {
    return semctl(semget(GV_OPT_FORMAT_KEY, 1, 0), 0, GETVAL);
}

void attach_store() {
    gv_opt_format_attach_shm(gv_opt_format_create_shm());
    gv_opt_format_create_sem();
}

pid_t start_child(const std::function<int()> &body, int err_fd) {
    std::fflush(nullptr);
    const pid_t pid = fork();
    if (pid == 0) {
        if (err_fd >= 0) {
            dup2(err_fd, STDERR_FILENO);
        }
        alarm(30);
        _exit(body());
    }
    return pid;
}

ChildResult in_child(const std::function<int()> &body) {
    int fds[2];
    if (pipe(fds) != 0) {
        ADD_FAILURE() << "pipe";
        return {};
    }
    const pid_t pid = start_child(body, fds[1]);
    close(fds[1]);
    ChildResult result;
    char buffer[256];
    for (ssize_t n; (n = read(fds[0], buffer, sizeof buffer)) > 0;) {
        result.err.append(buffer, static_cast<std::size_t>(n));
    }
    close(fds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return result;
}

// Each test gets a fresh IPC namespace: its store never meets another's, nor
// the machine's real one.
void Store::SetUp() {
    ASSERT_EQ(gvtest::enter_private_ipc_namespace(), "");
    const int shm_id = gv_opt_format_create_shm();
    ASSERT_EQ(gv_opt_format_attach_shm(shm_id), 0);
    ASSERT_EQ(gv_opt_format_create_sem(), 0);
    ASSERT_EQ(gv_opt_format_init_db(), 0);
    void *address = shmat(shm_id, nullptr, 0);
    ASSERT_NE(reinterpret_cast<std::intptr_t>(address), -1);
    view = static_cast<unsigned char *>(address);
    spy::lock_log = {};
}

void Store::TearDown() {
    const spy::LockLog log = spy::lock_log;
    EXPECT_EQ(log.takes, log.releases);
    EXPECT_LE(log.deepest, 1);
    EXPECT_EQ(log.without_undo, 0);
    EXPECT_EQ(sem_value(), 1);
    shmdt(view);
}

} // namespace onutest
