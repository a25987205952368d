// Finding an ONU of a PON by its identity address.
#include "gvutil/onuopt.h"

#include "onuopt/layout.h"
#include "onuopt/lock.h"

#include <algorithm>
#include <cstring>

using namespace gv::onuopt;

namespace {

// An all-zero address is what every unused record holds, so it never names
// an ONU.
bool is_usable_address(const uint8_t *addr) noexcept {
    return addr != nullptr &&
           std::any_of(addr, addr + GV_OPT_FORMAT_MAC_SIZE, [](uint8_t b) { return b != 0; });
}

// Runs found on the first record of the port's PON, in record order, whose
// identity address is addr: 0, or -1 when none matches or an argument is refused.
template <typename F>
int find_by_address(int port, const uint8_t *addr, bool args_ok, F &&found) noexcept {
    int result = -1;
    const int status =
        with_pon(port, args_ok && is_usable_address(addr), [&](opt_format_pon_t &pon) {
            for (const opt_format_onu_t &onu : pon.onu) {
                if (std::memcmp(onu.ident_addr, addr, sizeof onu.ident_addr) == 0) {
                    found(onu);
                    result = 0;
                    return;
                }
            }
        });
    return status < 0 ? -1 : result;
}

} // namespace

int gv_opt_format_get_onu_id(int port, const uint8_t *addr, int *onu_id) noexcept {
    return find_by_address(port, addr, onu_id != nullptr,
                           [onu_id](const opt_format_onu_t &onu) { *onu_id = onu.onu_id; });
}

int gv_opt_format_get_onu_description_by_mac(int port, const uint8_t *addr, char *out) noexcept {
    return find_by_address(port, addr, out != nullptr, [out](const opt_format_onu_t &onu) {
        std::memcpy(out, onu.description, GV_OPT_FORMAT_DESC_OUT_SIZE);
    });
}
