// Pieces of interface names shared by the interface-name code.
#pragma once

#include "gvutil/ifname.h"

#include <cstddef>
#include <string_view>

namespace gv::ifname {

constexpr bool is_dec(char c) noexcept {
    return c >= '0' && c <= '9';
}

// Everything before the first decimal digit.
constexpr std::string_view prefix_of(std::string_view name) noexcept {
    std::size_t at = 0;
    while (at < name.size() && !is_dec(name[at])) {
        ++at;
    }
    return name.substr(0, at);
}

// The prefix as the 32-byte prefix buffers hold it.
constexpr std::string_view held_prefix(std::string_view name) noexcept {
    return prefix_of(name).substr(0, GV_IF_PREFIX_SIZE - 1);
}

constexpr bool has_digit(std::string_view name) noexcept {
    return prefix_of(name).size() < name.size();
}

constexpr char lower(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// ASCII letters compared without case, the way the shell types them.
constexpr bool same_letters(std::string_view a, std::string_view b) noexcept {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lower(a[i]) != lower(b[i])) {
            return false;
        }
    }
    return true;
}

constexpr bool begins_with_letters(std::string_view text, std::string_view head) noexcept {
    return text.size() >= head.size() && same_letters(text.substr(0, head.size()), head);
}

// Copies text into a prefix output of GV_IF_PREFIX_SIZE bytes, terminated.
void put_prefix(char *out, std::string_view text) noexcept;

// The short prefix of a code; empty for 105 and unknown codes.
std::string_view short_prefix(int type) noexcept;

} // namespace gv::ifname
