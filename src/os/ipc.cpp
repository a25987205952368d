#include "os/ipc.h"

#include <cstdint>
#include <sys/ipc.h>
#include <sys/sem.h>
#include <sys/shm.h>
#include <unistd.h>

namespace gv::os {

namespace {

// The caller defines semctl's fourth argument. It must go as the union itself:
// some ABIs (32-bit PowerPC) pass unions differently from a bare int.
union semun {
    int val;
    semid_ds *buf;
    unsigned short *array;
};

} // namespace

int shm_get(key_t key, std::size_t size, int flags) noexcept {
    return ::shmget(key, size, flags);
}

void *shm_attach(int shm_id) noexcept {
    void *address = ::shmat(shm_id, nullptr, 0);
    // shmat reports failure as (void *)-1.
    return reinterpret_cast<std::intptr_t>(address) == -1 ? nullptr : address;
}

int sem_get(key_t key, int count, int flags) noexcept {
    return ::semget(key, count, flags);
}

int sem_set_value(int sem_id, int index, int value) noexcept {
    semun arg{};
    arg.val = value;
    return ::semctl(sem_id, index, SETVAL, arg);
}

int sem_change(int sem_id, unsigned short index, short delta, short flags) noexcept {
    sembuf op{};
    op.sem_num = index;
    op.sem_op = delta;
    op.sem_flg = flags;
    return ::semop(sem_id, &op, 1);
}

int sem_value(int sem_id, int index) noexcept {
    return ::semctl(sem_id, index, GETVAL);
}

int sem_last_pid(int sem_id, int index) noexcept {
    return ::semctl(sem_id, index, GETPID);
}

int sem_ever_operated(int sem_id) noexcept {
    semid_ds status{};
    semun arg{};
    arg.buf = &status;
    if (::semctl(sem_id, 0, IPC_STAT, arg) < 0) {
        return -1;
    }
    return status.sem_otime != 0 ? 1 : 0;
}

int sem_remove(int sem_id) noexcept {
    return ::semctl(sem_id, 0, IPC_RMID);
}

std::size_t mapped_size(std::size_t size) noexcept {
    const long page = ::sysconf(_SC_PAGESIZE);
    const std::size_t unit = page > 0 ? static_cast<std::size_t>(page) : 4096;
    return (size + unit - 1) / unit * unit;
}

} // namespace gv::os
