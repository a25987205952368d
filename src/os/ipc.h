// System V shared memory and semaphores: thin wrappers over the system calls.
// They are real in every build (no re-rooting) and leave errno as the system
// call set it, so callers can report it with perror.
#pragma once

#include <cstddef>
#include <sys/types.h>

namespace gv::os {

// shmget(2): the segment id, or -1.
int shm_get(key_t key, std::size_t size, int flags) noexcept;

// shmat(2) at an address the system chooses: the address, or nullptr.
void *shm_attach(int shm_id) noexcept;

// semget(2): the set id, or -1.
int sem_get(key_t key, int count, int flags) noexcept;

// semctl(2) SETVAL: 0, or -1.
int sem_set_value(int sem_id, int index, int value) noexcept;

// semop(2) of one operation on one semaphore: 0, or -1. An interrupted wait
// fails with EINTR like any other; the caller decides whether to wait again.
int sem_change(int sem_id, unsigned short index, short delta, short flags) noexcept;

// semctl(2) GETVAL: the value, or -1.
int sem_value(int sem_id, int index) noexcept;

// semctl(2) GETPID: the process that last operated on the semaphore (or set
// its value), 0 when none has or it is not visible from here, or -1.
int sem_last_pid(int sem_id, int index) noexcept;

// semctl(2) IPC_STAT: 1 when any semop has ever succeeded on the set (its
// sem_otime is set), 0 when none has, -1 on failure.
int sem_ever_operated(int sem_id) noexcept;

// semctl(2) IPC_RMID: 0, or -1.
int sem_remove(int sem_id) noexcept;

// Bytes a segment of `size` bytes really maps: whole pages.
std::size_t mapped_size(std::size_t size) noexcept;

} // namespace gv::os
