// The trunk load-balance modes, shared with the CLI's tag lookup.
#pragma once

#include <cstdint>
#include <span>

namespace gv::model {

struct TrunkMode {
    int16_t index;
    const char *name;
    const char *user_tag;
};

// Every mode row, without the closing row.
std::span<const TrunkMode> trunk_modes() noexcept;

} // namespace gv::model
