#include "onuopt/store_fixture.h"

#include "onuopt/ipc_spy.h"

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <sys/sem.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <unistd.h>

namespace onutest {

int sem_value() {
    return spy::raw_semctl(semget(GV_OPT_FORMAT_KEY, 1, 0), GETVAL, 0);
}

void remove_store() {
    const int shm = shmget(GV_OPT_FORMAT_KEY, 0, 0);
    if (shm >= 0) {
        shmctl(shm, IPC_RMID, nullptr);
    }
    const int sem = semget(GV_OPT_FORMAT_KEY, 1, 0);
    if (sem >= 0) {
        spy::raw_semctl(sem, IPC_RMID, 0);
    }
}

void attach_store() {
    gv_opt_format_attach_shm(gv_opt_format_create_shm());
    gv_opt_format_create_sem();
}

ChildResult in_child(const std::function<int()> &body, unsigned timeout) {
    int fds[2];
    if (pipe(fds) != 0) {
        ADD_FAILURE() << "pipe";
        return {};
    }
    std::fflush(nullptr);
    const pid_t pid = fork();
    if (pid == 0) {
        close(fds[0]);
        dup2(fds[1], STDERR_FILENO);
        alarm(timeout);
        _exit(body());
    }
    close(fds[1]);
    ChildResult result;
    char buffer[256];
    for (ssize_t n; (n = read(fds[0], buffer, sizeof buffer)) > 0;) {
        result.err.append(buffer, static_cast<std::size_t>(n));
    }
    close(fds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return result;
}

void Store::SetUp() {
    remove_store();
    shm_id = gv_opt_format_create_shm();
    ASSERT_EQ(gv_opt_format_attach_shm(shm_id), 0);
    ASSERT_EQ(gv_opt_format_create_sem(), 0);
    ASSERT_EQ(gv_opt_format_init_db(), 0);
    void *address = shmat(shm_id, nullptr, 0);
    ASSERT_NE(reinterpret_cast<std::intptr_t>(address), -1);
    view = static_cast<unsigned char *>(address);
    spy::lock_log() = {};
}

void Store::TearDown() {
    if (view != nullptr) {
        shmdt(view);
    }
    remove_store();
}

} // namespace onutest
