#include "sys/scan.h"

#include <climits>

namespace gv::sys {

namespace {

bool is_space(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool is_dec(char c) noexcept {
    return c >= '0' && c <= '9';
}

// One "%d" at the front of text, consumed on success.
bool take_int(std::string_view &text, int &value) noexcept {
    std::size_t at = 0;
    while (at < text.size() && is_space(text[at])) {
        ++at;
    }
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
        ++at;
    }
    const long long limit = negative ? -static_cast<long long>(INT_MIN) : INT_MAX;
    long long magnitude = 0;
    const std::size_t digits_at = at;
    for (; at < text.size() && is_dec(text[at]); ++at) {
        magnitude = magnitude * 10 + (text[at] - '0');
        if (magnitude > limit) {
            return false;
        }
    }
    if (at == digits_at) {
        return false;
    }
    value = static_cast<int>(negative ? -magnitude : magnitude);
    text.remove_prefix(at);
    return true;
}

} // namespace

int scan_ints(std::string_view text, std::string_view pattern, std::span<int> values) noexcept {
    int stored = 0;
    while (!pattern.empty()) {
        if (pattern.starts_with("%d")) {
            if (static_cast<std::size_t>(stored) >= values.size() ||
                !take_int(text, values[static_cast<std::size_t>(stored)])) {
                break;
            }
            ++stored;
            pattern.remove_prefix(2);
            continue;
        }
        if (text.empty() || text.front() != pattern.front()) {
            break;
        }
        text.remove_prefix(1);
        pattern.remove_prefix(1);
    }
    return stored;
}

} // namespace gv::sys
