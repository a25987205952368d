// Records that come from the switch kernel module are big-endian whatever the
// host; they are converted where they are read.
#pragma once

#include <cstdint>

namespace gv {

constexpr std::int32_t load_be32(const std::uint8_t *bytes) noexcept {
    return static_cast<std::int32_t>(
        static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
        static_cast<std::uint32_t>(bytes[2]) << 8 | static_cast<std::uint32_t>(bytes[3]));
}

} // namespace gv
