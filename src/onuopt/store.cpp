#include "onuopt/store.h"

#include "gvutil/platform.h"
#include "onuopt/layout.h"

namespace gv::onuopt {

Handle &handle() noexcept {
    static Handle process_handle;
    return process_handle;
}

int pon_index_of_number(int pon) noexcept {
    return pon >= 1 && pon <= kPons ? pon - 1 : -1;
}

int pon_index_of_port(int port) noexcept {
    return pon_index_of_number(get_pnum_from_type_b_trunk_pnum(port));
}

opt_format_onu_t *onu_at(int port, int onu_id) noexcept {
    const int min_id = gv_opt_format_get_min_onu_id();
    const int pon = pon_index_of_port(port);
    // Records start at 0 whatever minimum a caller stored.
    if (handle().base == nullptr || pon < 0 || onu_id < min_id || onu_id < 0 ||
        onu_id > kMaxOnuId) {
        return nullptr;
    }
    return reinterpret_cast<opt_format_onu_t *>(handle().base + onu_offset(pon, onu_id));
}

} // namespace gv::onuopt
