// Text built into a fixed buffer, and the ","-separated lists that operator
// and interface text is made of.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace gv::sys {

// Keeps what fits, always terminated, and remembers whether anything was cut
// off. kUnbounded is for the contracts that leave the buffer's size to the
// caller.
class TextBuilder {
  public:
    static constexpr std::size_t kUnbounded = SIZE_MAX;

    // Starts with the empty text.
    TextBuilder(char *buffer, std::size_t capacity) noexcept;
    // Starts after the text the buffer already holds.
    static TextBuilder after(char *buffer, std::size_t capacity) noexcept;

    bool append(std::string_view text) noexcept;
    // The decimal text of a number, written in place when there is room for
    // any int (the range-text writers put thousands of them in a row).
    bool append_decimal(int value) noexcept {
        constexpr std::size_t kRoom = 12; // "-2147483648" and the terminator
        if (capacity_ - length_ >= kRoom) {
            char *end = std::to_chars(buffer_ + length_, buffer_ + length_ + kRoom, value).ptr;
            *end = '\0';
            length_ = static_cast<std::size_t>(end - buffer_);
            return true;
        }
        char digits[kRoom];
        const char *end = std::to_chars(digits, digits + sizeof digits, value).ptr;
        return append({digits, static_cast<std::size_t>(end - digits)});
    }
    // printf-formatted; one piece holds at most 255 characters.
    __attribute__((format(printf, 2, 3))) bool appendf(const char *format, ...) noexcept;
    // Cuts the text back to its first length characters.
    void cut(std::size_t length) noexcept;

    std::string_view view() const noexcept { return {buffer_, length_}; }
    std::size_t size() const noexcept { return length_; }
    bool truncated() const noexcept { return truncated_; }

  private:
    char *buffer_;
    std::size_t capacity_;
    std::size_t length_ = 0;
    bool truncated_ = false;
};

// Elements of a ","-separated list as strtok finds them: empty elements are
// skipped. f answers false to stop; then so does for_each_element.
template <typename F> bool for_each_element(std::string_view list, F &&f) {
    while (!list.empty()) {
        const std::size_t comma = list.find(',');
        const std::string_view element = list.substr(0, comma);
        if (!element.empty() && !f(element)) {
            return false;
        }
        list = comma == std::string_view::npos ? std::string_view{} : list.substr(comma + 1);
    }
    return true;
}

// The same elements cut out of a writable list in place, as strtok does: the
// comma after each element becomes a terminator. Null after the last one.
char *next_element(char *&cursor) noexcept;

// Number of elements for_each_element would visit.
std::size_t count_elements(std::string_view list) noexcept;

} // namespace gv::sys
