// Options of one PON: the optical module's part number and the redundancy
// pairing.
#include "gvutil/onuopt.h"

#include "onuopt/layout.h"
#include "onuopt/lock.h"

#include <cstring>
#include <initializer_list>

using namespace gv::onuopt;

namespace {

// Part numbers end at the first blank or control character.
bool is_part_number_char(char c) noexcept {
    const auto u = static_cast<unsigned char>(c);
    return u > ' ' && u < 0x7f;
}

} // namespace

int gv_opt_format_set_pon_module_pn(int port, const char *pn) noexcept {
    return with_pon(port, pn != nullptr, [pn](opt_format_pon_t &pon) {
        std::memset(pon.module_pn, 0, sizeof pon.module_pn);
        for (std::size_t i = 0; i < sizeof pon.module_pn && is_part_number_char(pn[i]); ++i) {
            pon.module_pn[i] = pn[i];
        }
    });
}

int gv_opt_format_get_pon_module_pn(int port, char *pn) noexcept {
    return with_pon(port, pn != nullptr, [pn](const opt_format_pon_t &pon) {
        std::strncpy(pn, pon.module_pn, GV_OPT_FORMAT_PN_SIZE);
    });
}

int gv_opt_format_set_pon_red_info(int port, uint32_t mode, uint32_t user_word1,
                                   uint32_t master_pon, uint32_t partner_pon,
                                   uint32_t user_word2) noexcept {
    return with_pon(port, true, [&](opt_format_pon_t &pon) {
        pon.red = {mode, user_word1, master_pon, partner_pon, user_word2};
    });
}

int gv_opt_format_get_pon_red_info(int port, pon_red_info_t *info) noexcept {
    return with_pon(port, info != nullptr,
                    [info](const opt_format_pon_t &pon) { *info = pon.red; });
}

// Both members of a pair carry the same mode, master and partner, so either
// one leads to the master. The caller's two words stay as they were, except
// that unpairing clears the whole entry.
int gv_opt_format_set_olt_red(uint32_t mode, int master_pon, int partner_pon) noexcept {
    const int master = pon_index_of_number(master_pon);
    const int partner = pon_index_of_number(partner_pon);
    if (master < 0 || partner < 0) {
        return -1;
    }
    return with_store([&](opt_format_db_t &db) {
        for (const int index : {master, partner}) {
            pon_red_info_t &red = db.pon[index].red;
            if (mode == 0) {
                red = {};
                continue;
            }
            red.mode = mode;
            red.master_pon = static_cast<uint32_t>(master_pon);
            red.partner_pon = static_cast<uint32_t>(partner_pon);
        }
    });
}

int gv_opt_format_get_olt_red_master_id(int pon) noexcept {
    const int index = pon_index_of_number(pon);
    if (index < 0) {
        return -1;
    }
    int master = -1;
    (void)with_store([&](const opt_format_db_t &db) {
        const pon_red_info_t &red = db.pon[index].red;
        master = red.mode != 0 ? static_cast<int>(red.master_pon) : pon;
    });
    return master;
}
