#include "sys/scan.h"

#include <climits>

namespace gv::sys {

namespace {

bool is_space(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

int digit_value(char c, int base) noexcept {
    int value = base;
    if (c >= '0' && c <= '9') {
        value = c - '0';
    } else if (c >= 'a' && c <= 'f') {
        value = c - 'a' + 10;
    } else if (c >= 'A' && c <= 'F') {
        value = c - 'A' + 10;
    }
    return value < base ? value : -1;
}

// What to do with a number beyond the int range.
enum class Overflow { refuse, saturate };

// One number of a base at the front of text, consumed on success.
bool take_int(std::string_view &text, int &value, int base, Overflow overflow) noexcept {
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
    for (int digit = 0; at < text.size() && (digit = digit_value(text[at], base)) >= 0; ++at) {
        magnitude = magnitude * base + digit;
        if (magnitude > limit) {
            if (overflow == Overflow::refuse) {
                return false;
            }
            magnitude = limit; // stays there whatever digits follow
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
        const bool decimal = pattern.starts_with("%d");
        if (decimal || pattern.starts_with("%x")) {
            if (static_cast<std::size_t>(stored) >= values.size() ||
                !take_int(text, values[static_cast<std::size_t>(stored)], decimal ? 10 : 16,
                          Overflow::refuse)) {
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

int read_int(std::string_view text) noexcept {
    // A number right at the front, the common case of list tokens, is read
    // here in one tight loop; white space and signs take the general way.
    if (!text.empty() && text.front() >= '0' && text.front() <= '9') {
        long long magnitude = 0;
        for (const char c : text) {
            if (c < '0' || c > '9') {
                break;
            }
            magnitude = magnitude * 10 + (c - '0');
            magnitude = magnitude > INT_MAX ? INT_MAX : magnitude;
        }
        return static_cast<int>(magnitude);
    }
    int value = 0;
    return take_int(text, value, 10, Overflow::saturate) ? value : 0;
}

} // namespace gv::sys
