// The store's one lock: semaphore 0 of the set, taken with SEM_UNDO so that
// the kernel gives it back when a holder dies. Held around one access only and
// never nested: an operation that needs another operation's value (the
// minimum ONU id, the display mode) gets it before taking its own lock.
#pragma once

#include "onuopt/store.h"

namespace gv::onuopt {

class StoreLock {
  public:
    StoreLock() noexcept;
    ~StoreLock();
    StoreLock(const StoreLock &) = delete;
    StoreLock &operator=(const StoreLock &) = delete;

  private:
    int sem_id_; // the set taken, released on leaving; -1 when none was taken
};

// The accessors below run `access` under the lock and answer 0, or answer -1
// without locking when there is no store, the record is not addressed or the
// caller's other arguments are refused (args_ok false).

template <typename F> int with_store(F &&access) noexcept {
    opt_format_db_t *db = store();
    if (db == nullptr) {
        return -1;
    }
    StoreLock lock;
    access(*db);
    return 0;
}

template <typename F> int with_pon(int port, bool args_ok, F &&access) noexcept {
    const int index = pon_index_of_port(port);
    opt_format_db_t *db = store();
    if (db == nullptr || index < 0 || !args_ok) {
        return -1;
    }
    StoreLock lock;
    access(db->pon[index]);
    return 0;
}

template <typename F> int with_onu(int port, int onu_id, bool args_ok, F &&access) noexcept {
    opt_format_onu_t *onu = onu_at(port, onu_id);
    if (onu == nullptr || !args_ok) {
        return -1;
    }
    StoreLock lock;
    access(*onu);
    return 0;
}

} // namespace gv::onuopt
