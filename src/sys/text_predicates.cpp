// Tests and conversions on operator text shared by every token parser.
#include "gvutil/sys.h"

#include <charconv>
#include <string_view>

namespace {

constexpr bool is_dec(char c) noexcept {
    return c >= '0' && c <= '9';
}

constexpr bool is_hex_char(char c) noexcept {
    return is_dec(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// The first length characters are digits, the first one also possibly '-'.
// A terminator inside the span is not a digit, so the scan never runs past
// the caller's text.
int digits_only(const char *text, int length, bool minus_first) noexcept {
    for (int i = 0; i < length; ++i) {
        if (text == nullptr || !(is_dec(text[i]) || (minus_first && i == 0 && text[i] == '-'))) {
            return 0;
        }
    }
    return 1;
}

// The parsers read numbers from a 280-byte copy: longer text counts up to there.
constexpr std::size_t kNumberText = 279;

} // namespace

int is_digit(const char *text, int length) noexcept {
    return digits_only(text, length, false);
}

int is_digit_minus(const char *text, int length) noexcept {
    return digits_only(text, length, true);
}

int is_hex(const char *text) noexcept {
    if (text == nullptr) {
        return 0;
    }
    for (; *text != '\0'; ++text) {
        if (!is_hex_char(*text)) {
            return 0;
        }
    }
    return 1;
}

int stoi(const char *text) noexcept {
    if (text == nullptr) {
        return -1;
    }
    std::string_view digits(text);
    digits = digits.substr(0, kNumberText);
    if (digits.empty()) {
        return -1;
    }
    for (char c : digits) {
        if (!is_dec(c)) {
            return -1;
        }
    }
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    // A value beyond the int range is no port, slot or id either.
    return error == std::errc{} && end == digits.data() + digits.size() ? value : -1;
}

int is_br_range(int id) noexcept {
    return id >= 1 && id <= 4094 ? 1 : 0;
}

// Signed on purpose: callers check for negative values before asking.
int is_slot_range(int slot) noexcept {
    return slot <= 20 ? 1 : 0;
}
