// The two options that apply to the whole chassis.
#include "gvutil/onuopt.h"

#include "onuopt/lock.h"

#include <cstdio>

using gv::onuopt::with_store;

int gv_opt_format_set_min_onu_id(int32_t id) noexcept {
    return with_store([id](opt_format_db_t &db) { db.min_onu_id = id; });
}

int gv_opt_format_get_min_onu_id() noexcept {
    int32_t id = -1;
    (void)with_store([&id](const opt_format_db_t &db) { id = db.min_onu_id; });
    return id;
}

int gv_opt_format_set_onu_display_sn(uint32_t mode) noexcept {
    return with_store([mode](opt_format_db_t &db) { db.display_sn = mode; });
}

// The word is stored whole; its readers have always used the low byte only.
int gv_opt_format_get_onu_display_sn() noexcept {
    int mode = -1;
    (void)with_store(
        [&mode](const opt_format_db_t &db) { mode = static_cast<int>(db.display_sn & 0xffU); });
    return mode;
}

int gv_opt_format_get_onu_display_sn_str(const uint8_t *sn, char *out, size_t size) noexcept {
    if (sn == nullptr || out == nullptr) {
        return -1;
    }
    const int mode = gv_opt_format_get_onu_display_sn();
    if (mode < 0) {
        return -1;
    }
    if (mode != 0) {
        return std::snprintf(out, size, "%c%c%c%c%02X%02X%02X%02X", sn[0], sn[1], sn[2], sn[3],
                             sn[4], sn[5], sn[6], sn[7]);
    }
    return std::snprintf(out, size, "%c%c%c%c%02x%02x%02x%02x", sn[0], sn[1], sn[2], sn[3], sn[4],
                         sn[5], sn[6], sn[7]);
}
