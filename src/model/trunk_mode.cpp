#include "model/trunk_mode.h"

#include "gvutil/model.h"

#include <array>

namespace gv::model {

namespace {

// "SRC_DST_L4" shares index 5 with "SRC_DST_IP" and no row has index 6: the
// running configuration written by earlier releases depends on both.
constexpr std::array<TrunkMode, 9> kModes = {{
    {0, "SRC_MAC", "srcmac"},
    {1, "DST_MAC", "dstmac"},
    {2, "SRC_DST_MAC", "srcdstmac"},
    {3, "SRC_IP", "srcip"},
    {4, "DST_IP", "dstip"},
    {5, "SRC_DST_IP", "srcdstip"},
    {5, "SRC_DST_L4", "srcdstl4"},
    {7, "LABEL", "label"},
    {-1, nullptr, nullptr},
}};

} // namespace

std::span<const TrunkMode> trunk_modes() noexcept {
    return std::span<const TrunkMode>(kModes).first(kModes.size() - 1);
}

} // namespace gv::model

const char *trunk_index_to_user_tag(int index) noexcept {
    for (const auto &mode : gv::model::trunk_modes()) {
        if (mode.index == index) {
            return mode.user_tag; // the first row of an index wins
        }
    }
    return nullptr;
}
