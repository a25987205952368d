#include "onuopt/lock.h"

#include "os/ipc.h"

#include <sys/sem.h>

namespace gv::onuopt {

namespace {

// A failing semop is not reported: the store is used as if it were held, as
// every process of the chassis does.
void change(short delta) noexcept {
    const int sem_id = handle().sem_id;
    if (sem_id >= 0) {
        (void)os::sem_change(sem_id, 0, delta, SEM_UNDO);
    }
}

} // namespace

StoreLock::StoreLock() noexcept {
    change(-1);
}

StoreLock::~StoreLock() {
    change(+1);
}

} // namespace gv::onuopt
