#include "onuopt/semaphore.h"

#include "onuopt/layout.h"
#include "os/ipc.h"
#include "os/os.h"

#include <algorithm>
#include <cerrno>
#include <sys/ipc.h>

namespace gv::onuopt {

namespace {

constexpr int kMode = 0666;
constexpr unsigned kLongestNapMs = 50;

// The texts stay letter for letter ("SHEMAPHORE", "semctrl"): log scanners
// on the chassis match them.
constexpr const char *kSemgetFailed = " SHEMAPHORE : semget failed !!!\n";
constexpr const char *kSemctlFailed = " SHEMAPHORE : semctrl failed !!!\n";

// The set is gone: someone replaced it (or its creator's first step was
// undone), so look the key up again.
bool removed(int error) noexcept {
    return error == EINVAL || error == EIDRM;
}

enum class Wait { valued, removed, abandoned, failed };

// A set has its value once it is not 0, or once any process has operated on
// it (a holder keeps it at 0). The value is read first: a set that read 0 and
// then had never been operated on had no value at that first read. Two marks
// of an operation, as either can be missing: the last operator's pid is 0
// where its process is not visible (another pid namespace), and some
// emulators report sem_otime as 0.
int has_value(int sem_id) noexcept {
    const int value = os::sem_value(sem_id, 0);
    if (value != 0) {
        return value > 0 ? 1 : -1;
    }
    const int last_pid = os::sem_last_pid(sem_id, 0);
    if (last_pid != 0) {
        return last_pid > 0 ? 1 : -1;
    }
    return os::sem_ever_operated(sem_id);
}

Wait wait_for_value(int sem_id) noexcept {
    unsigned waited = 0;
    for (unsigned nap = 1;; nap = std::min(nap * 2, kLongestNapMs)) {
        const int state = has_value(sem_id);
        if (state != 0) {
            return state > 0 ? Wait::valued : removed(errno) ? Wait::removed : Wait::failed;
        }
        if (waited >= kCreatorGraceMs) {
            return Wait::abandoned;
        }
        os::nap(nap);
        waited += nap;
    }
}

} // namespace

// Only the creator sets the value: a later process must not release a lock
// that someone holds. Each round of the loop follows a set that someone else
// removed, so it ends as soon as the key holds a set with its value.
SemaphoreSetUp set_up_semaphore() noexcept {
    for (;;) {
        int sem_id = os::sem_get(kKey, 1, IPC_CREAT | IPC_EXCL | kMode);
        if (sem_id >= 0) {
            if (os::sem_set_value(sem_id, 0, 1) == 0) {
                return {sem_id, nullptr};
            }
            if (removed(errno)) {
                continue; // stalled so long that it was replaced: use the new set
            }
            return {-1, kSemctlFailed};
        }
        if (errno != EEXIST) {
            return {-1, kSemgetFailed};
        }
        sem_id = os::sem_get(kKey, 1, kMode);
        if (sem_id < 0) {
            if (errno == ENOENT) {
                continue;
            }
            return {-1, kSemgetFailed};
        }
        switch (wait_for_value(sem_id)) {
        case Wait::valued:
            return {sem_id, nullptr};
        case Wait::removed:
            continue;
        case Wait::abandoned:
            // Nobody can be using a set that never had its value, so removing
            // it strands no one; a second waiter's removal finds it gone. Only
            // the removal is atomic: raising the value in place could be
            // repeated by a waiter that read 0 while the first one held it.
            if (os::sem_remove(sem_id) == 0 || removed(errno)) {
                continue;
            }
            return {-1, kSemctlFailed};
        case Wait::failed:
            return {-1, kSemctlFailed};
        }
    }
}

} // namespace gv::onuopt
