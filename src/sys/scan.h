// Numbers read out of operator and interface text the way sscanf reads a
// pattern of "%d" and "%x" conversions and literal characters, and the way
// atoi reads a number, without their undefined corners.
#pragma once

#include <span>
#include <string_view>

namespace gv::sys {

// Each "%d" skips white space, takes an optional sign and at least one digit;
// "%x" does the same with hexadecimal digits (no "0x" prefix); every other
// pattern character must match the text exactly. A number beyond the int
// range is not read. Answers how many numbers were stored in values before
// the first mismatch (0 when none).
int scan_ints(std::string_view text, std::string_view pattern, std::span<int> values) noexcept;

// atoi: the decimal number at the front of the text (white space and a sign
// allowed), 0 when there is none. Beyond the int range it answers the nearest
// int, as the chassis' 32-bit C library does.
int read_int(std::string_view text) noexcept;

} // namespace gv::sys
