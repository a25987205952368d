// Numbers read out of operator and interface text the way sscanf reads a
// pattern of "%d" conversions and literal characters, without its undefined
// corners: a number beyond the int range is not read.
#pragma once

#include <span>
#include <string_view>

namespace gv::sys {

// Each "%d" skips white space, takes an optional sign and at least one digit;
// every other pattern character must match the text exactly. Answers how
// many numbers were stored in values before the first mismatch (0 when none).
int scan_ints(std::string_view text, std::string_view pattern, std::span<int> values) noexcept;

} // namespace gv::sys
