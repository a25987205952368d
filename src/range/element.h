// Elements of id-list text ("1-5" of "1-5,8") as the range parsers read them.
#pragma once

#include "gvutil/range.h"
#include "sys/items.h"

#include <string_view>

namespace gv::range {

using ElementText = sys::FixedText<GV_RANGE_ELEMENT_SIZE>;

// The shell reads an element into a 16-byte buffer: one of 16 characters or
// more does not fit and reads as the empty text.
inline ElementText element_text(std::string_view element) noexcept {
    return element.size() < GV_RANGE_ELEMENT_SIZE ? ElementText(element) : ElementText();
}

// Every character a decimal digit; the empty text passes.
inline bool all_num(std::string_view text) noexcept {
    for (char c : text) {
        if (!sys::is_decimal_digit(c)) {
            return false;
        }
    }
    return true;
}

} // namespace gv::range
