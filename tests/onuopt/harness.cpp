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
    if (take && !spy::take_errors.empty()) {
        ++log.failed_takes;
        errno = spy::take_errors.front();
        spy::take_errors.erase(spy::take_errors.begin());
        return -1;
    }
    // Nested: counted only.
    const bool nested = take ? log.depth > 0 : log.depth > 1;
    const int result = nested ? 0 : real_semop(sem_id, ops, count);
    if (result != 0) {
        log.failed_takes += take ? 1 : 0;
        return result;
    }
    if (take) {
        ++log.takes;
        log.deepest = std::max(log.deepest, ++log.depth);
        if (spy::kill_at_take && !nested) {
            raise(SIGKILL);
        }
    } else {
        ++log.releases;
        --log.depth;
    }
    return 0;
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
    if (cmd == SETVAL && spy::before_setval) {
        std::exchange(spy::before_setval, nullptr)(sem_id);
    }
    if (cmd == GETVAL && spy::first_getval_fd >= 0) {
        const char seen = 'v';
        (void)!write(std::exchange(spy::first_getval_fd, -1), &seen, 1);
    }
    if (cmd == GETPID && spy::hide_last_pid) {
        return 0;
    }
    const int result = real_semctl(sem_id, index, cmd, arg);
    if (cmd == IPC_STAT && spy::hide_otime && result == 0) {
        arg.buf->sem_otime = 0;
    }
    return result;
}

namespace onutest {

int sem_value() {
    return semctl(semget(GV_OPT_FORMAT_KEY, 1, 0), 0, GETVAL);
}

long long sem_otime() {
    semid_ds status{};
    semun arg{};
    arg.buf = &status;
    return semctl(semget(GV_OPT_FORMAT_KEY, 1, 0), 0, IPC_STAT, arg) == 0 ? status.sem_otime : -1;
}

void attach_store() {
    gv_opt_format_attach_shm(gv_opt_format_create_shm());
    gv_opt_format_create_sem();
}

std::string pattern(int writer, int round, std::size_t size) {
    char head[24];
    std::snprintf(head, sizeof head, "w%d r%d:", writer, round);
    std::string text = head;
    for (std::size_t i = text.size(); i < size; ++i) {
        text += static_cast<char>('a' + (writer * 7 + round + static_cast<int>(i)) % 26);
    }
    return text;
}

std::pair<int, int> author(const char *text, std::size_t size) {
    int writer = -1, round = -1;
    if (std::sscanf(text, "w%d r%d:", &writer, &round) != 2 ||
        pattern(writer, round, size) != std::string(text, size)) {
        return {-1, -1};
    }
    return {writer, round};
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
    GVTEST_ENTER_PRIVATE_IPC_NAMESPACE();
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
    if (IsSkipped()) {
        return;
    }
    const spy::LockLog log = spy::lock_log;
    EXPECT_EQ(log.takes, log.releases);
    EXPECT_LE(log.deepest, 1);
    EXPECT_EQ(log.without_undo, 0);
    EXPECT_EQ(sem_value(), 1);
    shmdt(view);
}

} // namespace onutest
