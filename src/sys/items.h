// Items of operator text: a list is cut into items with for_each_element
// (sys/text_builder.h); these cut an item further and hold a copy of it for
// the calls that take C text. Every list parser of the shell's tokens (port,
// slot, VLAN, id and range lists) uses them, so an item reads the same way
// wherever it is typed.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace gv::sys {

// An item cut at the first separator: "1/3-2/5" at '-' gives "1/3" and "2/5".
// Without the separator, cut is false, left is the whole item, right empty.
struct Halves {
    std::string_view left;
    std::string_view right;
    bool cut = false;
};
Halves cut_at(std::string_view item, char separator) noexcept;

inline bool contains(std::string_view text, char c) noexcept {
    return text.find(c) != std::string_view::npos;
}

inline bool is_decimal_digit(char c) noexcept {
    return c >= '0' && c <= '9';
}

// Every character a decimal digit; the empty text is not a number.
bool all_digits(std::string_view text) noexcept;

// A NUL-terminated copy in a fixed buffer, for the calls that take C text
// (stoi, the interface-name tests, message arguments). Longer text is cut at
// N-1 characters, as the shell's own fixed buffers cut it.
template <std::size_t N> class FixedText {
  public:
    FixedText() noexcept { text_[0] = '\0'; }
    explicit FixedText(std::string_view text) noexcept { assign(text); }
    void assign(std::string_view text) noexcept {
        length_ = text.size() < N ? text.size() : N - 1;
        std::memcpy(text_, text.data(), length_);
        text_[length_] = '\0';
    }
    // Adds text after what is held, cut at N-1 characters as assign() cuts.
    void append(std::string_view text) noexcept {
        const std::size_t n = text.size() < N - 1 - length_ ? text.size() : N - 1 - length_;
        std::memcpy(text_ + length_, text.data(), n);
        length_ += n;
        text_[length_] = '\0';
    }
    const char *c_str() const noexcept { return text_; }
    std::string_view view() const noexcept { return {text_, length_}; }
    operator std::string_view() const noexcept { return view(); }
    bool empty() const noexcept { return length_ == 0; }

  private:
    char text_[N];
    std::size_t length_ = 0;
};

// One item of operator text: the shell hands items of at most 255 characters.
inline constexpr std::size_t kItemSize = 256;
using ItemText = FixedText<kItemSize>;

} // namespace gv::sys
