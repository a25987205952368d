// What the grouped configuration commands build their lines from: the line
// itself and the VLAN ids a group gives up.
#pragma once

#include "sys/runs.h"
#include "sys/text_builder.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace gv::cli {

// The optional texts of a command (option, tail): null reads as empty.
inline bool has_text(const char *text) noexcept {
    return text != nullptr && text[0] != '\0';
}
inline const char *or_empty(const char *text) noexcept {
    return text != nullptr ? text : "";
}

// One configuration command line in the 256 bytes the shell gives a line;
// a longer line is cut there.
class CommandLine {
  public:
    static constexpr std::size_t kSize = 256;

    CommandLine() noexcept : text_(line_, kSize) {}
    CommandLine(const CommandLine &) = delete;
    CommandLine &operator=(const CommandLine &) = delete;

    // A word of the line and the space after it ("%s ").
    CommandLine &word(std::string_view text) noexcept {
        text_.append(text);
        text_.append(" ");
        return *this;
    }
    CommandLine &word(const char *text) noexcept { return word(std::string_view(or_empty(text))); }
    // A word that is left out when it is empty (the option).
    CommandLine &word_if_any(const char *text) noexcept {
        return has_text(text) ? word(text) : *this;
    }
    CommandLine &number(int value) noexcept { return word(sys::Decimal(value).view()); }
    // The tail ends the line as it is, without a space after it.
    CommandLine &tail(const char *text) noexcept {
        text_.append(or_empty(text));
        return *this;
    }
    const char *c_str() const noexcept { return line_; }

  private:
    char line_[kSize];
    sys::TextBuilder text_;
};

// The VLAN ids that the entries of one group give up for a line. A group of
// more is taken in several lines with the same value.
class VlanIds {
  public:
    static constexpr std::size_t kMost = 4096;
    // Room for the longest text of kMost ids: "65535," each.
    static constexpr std::size_t kTextSize = kMost * 6 + 1;

    bool full() const noexcept { return held_ == kMost; }
    void add(uint16_t id) noexcept { ids_[held_++] = id; }
    std::span<const uint16_t> view() const noexcept { return {ids_.data(), held_}; }

  private:
    std::array<uint16_t, kMost> ids_;
    std::size_t held_ = 0;
};

} // namespace gv::cli
