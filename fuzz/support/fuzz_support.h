// What every fuzz target shares: the chassis it runs on, shell contexts that
// format what the library prints, and text and arrays allocated to their
// exact size, so a read or write one byte past them stops the run.
#pragma once

#include "gvutil/platform.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace gvfuzz {

// Chassis roots written once per process from the shipped descriptions: two
// modular chassis, the three-slot test chassis, the K7400A and the slotless
// box, whose numbering differs most.
inline constexpr int kChassisCount = 5;

// Points GVUTIL_ROOT at one of them (chosen by the next byte of the input)
// and loads its model record; answers its index.
int use_chassis(FuzzedDataProvider &in);
// The same, by index.
void use_chassis(int index);
// Root directory of chassis `index` (for targets that rewrite a file of it).
const std::string &chassis_root(int index);

// A shell context whose output function formats every message into a
// scratch buffer: a message whose arguments do not match its format is read
// as the format says, and a bad read stops the run.
cli_ctx *shell();
// shell() or null (the quiet call), chosen by the next byte of the input.
cli_ctx *shell_or_quiet(FuzzedDataProvider &in);

// An array of exactly n elements on the heap, value-initialised; n may be 0.
template <typename T> class Exact {
  public:
    explicit Exact(std::size_t n) : data_(new T[n]()), size_(n) {}
    T *data() { return data_.get(); }
    const T *data() const { return data_.get(); }
    std::size_t size() const { return size_; }
    T &operator[](std::size_t i) { return data_[i]; }

  private:
    std::unique_ptr<T[]> data_;
    std::size_t size_;
};

// NUL-terminated text in exactly strlen + 1 bytes (cut at its first NUL).
class Text {
  public:
    explicit Text(std::string_view text);
    char *c_str() { return bytes_.data(); }
    std::size_t size() const { return length_; }
    std::string_view view() const { return {bytes_.data(), length_}; }

  private:
    std::size_t length_;
    Exact<char> bytes_;
};

// The rest of the input as text.
inline Text rest_as_text(FuzzedDataProvider &in) {
    return Text(in.ConsumeRemainingBytesAsString());
}

// Elements of a ","-separated list, empty ones not counted: each gives a
// token parser at most one range.
std::size_t count_items(std::string_view text);

// Stops the run when a property of the library does not hold.
[[noreturn]] void fail(const char *what, std::string_view input);
inline void check(bool holds, const char *what, std::string_view input) {
    if (!holds) {
        fail(what, input);
    }
}

} // namespace gvfuzz
