#include "onuopt/lock.h"

#include "os/ipc.h"

#include <cerrno>
#include <sys/sem.h>

namespace gv::onuopt {

namespace {

// A wait cut short by a signal (a timer, a stop and continue) has not taken
// the semaphore: wait again, or the store would be entered unguarded and the
// release would leave the semaphore above 1. Any other failure is not
// reported: the store is used as if it were held, as every process of the
// chassis does, but nothing is given back for it.
bool take(int sem_id) noexcept {
    while (os::sem_change(sem_id, 0, -1, SEM_UNDO) != 0) {
        if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

} // namespace

StoreLock::StoreLock() noexcept : sem_id_(handle().sem_id) {
    if (sem_id_ >= 0 && !take(sem_id_)) {
        sem_id_ = -1;
    }
}

StoreLock::~StoreLock() {
    if (sem_id_ >= 0) {
        (void)os::sem_change(sem_id_, 0, +1, SEM_UNDO);
    }
}

} // namespace gv::onuopt
