// Big-endian stores into byte buffers: the chassis CPU's order, whatever the host's.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace gvsim {

inline void store_be32(std::span<std::uint8_t> out, std::size_t offset, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
        out[offset + i] = static_cast<std::uint8_t>(value >> (24 - 8 * i));
    }
}

// Copies text into a fixed field, leaving at least one NUL after it.
inline void store_text(std::span<std::uint8_t> out, std::size_t offset, std::size_t width,
                       std::string_view text) {
    for (std::size_t i = 0; i < text.size() && i + 1 < width; ++i) {
        out[offset + i] = static_cast<std::uint8_t>(text[i]);
    }
}

} // namespace gvsim
