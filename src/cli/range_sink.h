// Where the token parsers store their ranges. The exported parsers write into
// caller arrays without a bound (the caller sized them for the text); the
// parsers' own callers pass a bounded local array, and ranges beyond it are
// dropped rather than written past it.
#pragma once

#include "gvutil/cli.h"

#include <cstddef>
#include <limits>

namespace gv::cli {

// The shell's range records, as its C code lays them out.
static_assert(sizeof(value_range) == 4);
static_assert(sizeof(slot_port_range) == 6);
static_assert(sizeof(slot_port_pair) == 2);

template <typename Range> class RangeSink {
  public:
    static constexpr std::size_t kUnbounded = std::numeric_limits<std::size_t>::max();

    RangeSink(Range *out, std::size_t capacity) noexcept : out_(out), capacity_(capacity) {}

    void add(const Range &range) noexcept {
        if (out_ != nullptr && static_cast<std::size_t>(count_) < capacity_) {
            out_[count_++] = range;
        }
    }
    int count() const noexcept { return count_; }
    const Range *data() const noexcept { return out_; }

  private:
    Range *out_;
    std::size_t capacity_;
    int count_ = 0;
};

// Ranges a list expansion holds at once (as many as the shell's VLAN lists).
inline constexpr std::size_t kLocalRanges = 2048;

} // namespace gv::cli
