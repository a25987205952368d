#include "sys/text_builder.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace gv::sys {

TextBuilder::TextBuilder(char *buffer, std::size_t capacity) noexcept
    : buffer_(buffer), capacity_(buffer != nullptr ? capacity : 0) {
    if (capacity_ > 0) {
        buffer_[0] = '\0';
    }
}

TextBuilder TextBuilder::after(char *buffer, std::size_t capacity) noexcept {
    const std::size_t held = buffer != nullptr ? std::strlen(buffer) : 0;
    TextBuilder builder(buffer != nullptr ? buffer + held : nullptr,
                        capacity == kUnbounded ? kUnbounded : capacity - std::min(held, capacity));
    return builder;
}

bool TextBuilder::append(std::string_view text) noexcept {
    if (capacity_ == 0) {
        truncated_ = truncated_ || !text.empty();
        return text.empty();
    }
    const std::size_t room = capacity_ - 1 - length_;
    const std::size_t taken = std::min(room, text.size());
    std::memcpy(buffer_ + length_, text.data(), taken);
    length_ += taken;
    buffer_[length_] = '\0';
    truncated_ = truncated_ || taken < text.size();
    return taken == text.size();
}

bool TextBuilder::appendf(const char *format, ...) noexcept {
    char piece[256];
    va_list args;
    va_start(args, format);
    const int length = std::vsnprintf(piece, sizeof piece, format, args);
    va_end(args);
    if (length < 0) {
        truncated_ = true;
        return false;
    }
    const bool whole = static_cast<std::size_t>(length) < sizeof piece;
    truncated_ = truncated_ || !whole;
    return append({piece, std::min(static_cast<std::size_t>(length), sizeof piece - 1)}) && whole;
}

void TextBuilder::cut(std::size_t length) noexcept {
    if (length < length_) {
        length_ = length;
        buffer_[length_] = '\0';
    }
}

char *next_element(char *&cursor) noexcept {
    if (cursor == nullptr) {
        return nullptr;
    }
    while (*cursor == ',') {
        ++cursor;
    }
    if (*cursor == '\0') {
        cursor = nullptr;
        return nullptr;
    }
    char *element = cursor;
    char *comma = std::strchr(cursor, ',');
    if (comma != nullptr) {
        *comma = '\0';
        cursor = comma + 1;
    } else {
        cursor = nullptr;
    }
    return element;
}

std::size_t count_elements(std::string_view list) noexcept {
    std::size_t count = 0;
    for_each_element(list, [&count](std::string_view) {
        ++count;
        return true;
    });
    return count;
}

} // namespace gv::sys
