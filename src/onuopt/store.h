// This process's view of the shared store: the attached segment and the
// semaphore that guards it, and how the operations' arguments find records.
#pragma once

#include "gvutil/onuopt.h"

#include <cstddef>

namespace gv::onuopt {

// Set up by the start-up calls. Before gv_opt_format_attach_shm there is no
// store and every operation refuses; before gv_opt_format_create_sem there is
// no semaphore to take.
struct Handle {
    int sem_id = -1;
    std::byte *base = nullptr;
    std::byte *end = nullptr; // end of the mapping: the segment in whole pages
};

Handle &handle() noexcept;

// The attached store, or nullptr.
inline opt_format_db_t *store() noexcept {
    return reinterpret_cast<opt_format_db_t *>(handle().base);
}

// PON index (0..31) of a flat port number after type-b trunk translation, or -1.
int pon_index_of_port(int port) noexcept;

// PON index of a PON number 1..32, or -1.
int pon_index_of_number(int pon) noexcept;

// The record an ONU operation addresses, or nullptr when there is no store,
// the port is no PON or the id is outside the accepted range. Reads the
// minimum ONU id, so call it before taking the lock.
opt_format_onu_t *onu_at(int port, int onu_id) noexcept;

} // namespace gv::onuopt
