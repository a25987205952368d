// Creating or attaching the store. Every process that loads the library runs
// this at start-up and cannot work without the store, so a failing IPC call
// prints the system error and ends the process. The exit status is 0: the
// processes that load the library are written for that, keep it.
#include "gvutil/onuopt.h"

#include "onuopt/layout.h"
#include "onuopt/lock.h"
#include "onuopt/semaphore.h"
#include "os/ipc.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/ipc.h>

namespace {

using namespace gv::onuopt;

constexpr int kMode = 0666;

[[noreturn]] void fail_setup(const char *text) noexcept {
    std::perror(text);
    std::exit(0);
}

void number_records(opt_format_db_t &db) noexcept {
    for (int p = 0; p < kPons; ++p) {
        opt_format_pon_t &pon = db.pon[p];
        pon.pon = p + 1;
        for (int o = 0; o < kOnuRecords; ++o) {
            pon.onu[o].pon = p + 1;
            pon.onu[o].onu_id = o;
        }
    }
}

} // namespace

int gv_opt_format_create_shm() noexcept {
    const int shm_id = gv::os::shm_get(kKey, kSegmentSize, IPC_CREAT | kMode);
    if (shm_id < 0) {
        fail_setup("shmget failed : ");
    }
    return shm_id;
}

int gv_opt_format_attach_shm(int shm_id) noexcept {
    void *address = gv::os::shm_attach(shm_id);
    if (address == nullptr) {
        fail_setup(" SHARED MEMORY : shmat failed !!!\n");
    }
    Handle &h = handle();
    h.base = static_cast<std::byte *>(address);
    h.end = h.base + gv::os::mapped_size(kSegmentSize);
    return 0;
}

int gv_opt_format_create_sem() noexcept {
    const SemaphoreSetUp set_up = set_up_semaphore();
    if (set_up.sem_id < 0) {
        fail_setup(set_up.failure);
    }
    handle().sem_id = set_up.sem_id;
    return 0;
}

int gv_opt_format_init_db() noexcept {
    (void)with_store([](opt_format_db_t &db) {
        std::memset(&db, 0, sizeof db);
        db.min_onu_id = 1;
        db.display_sn = 0;
        number_records(db);
    });
    return 0;
}
