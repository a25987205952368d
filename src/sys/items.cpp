#include "sys/items.h"

namespace gv::sys {

Halves cut_at(std::string_view item, char separator) noexcept {
    const std::size_t at = item.find(separator);
    if (at == std::string_view::npos) {
        return {item, item.substr(item.size()), false};
    }
    return {item.substr(0, at), item.substr(at + 1), true};
}

bool all_digits(std::string_view text) noexcept {
    if (text.empty()) {
        return false;
    }
    for (char c : text) {
        if (!is_decimal_digit(c)) {
            return false;
        }
    }
    return true;
}

} // namespace gv::sys
