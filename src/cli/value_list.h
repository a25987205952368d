// Lists of plain values ("1-4,7") checked against 1..max (0..max for a
// class of service). The port parsers and the parsers of the other value
// tokens (ranges, classes of service, VRRP ids, interfaces) differ only in
// the words of their messages and their lowest value.
#pragma once

#include "cli/range_sink.h"
#include "gvutil/cli.h"
#include "gvutil/platform.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace gv::cli {

// The messages of one kind of value; each takes the item, then the bound
// where it has one, then "\n".
struct ValueWords {
    const char *invalid_value;  // "%%Invalid port: %s%s"
    const char *invalid_range;  // "%%Invalid range: %s [1-%d]%s"
    const char *sequence_order; // "%%Invalid sequence order: %s%s"
    int lowest = 1;             // the smallest value of the kind
    // A range end below the lowest value; invalid_range when null.
    const char *end_below_lowest = nullptr;
};

inline constexpr const char *kSequenceOrder = "%%Invalid sequence order: %s%s";
inline constexpr const char *kRangeFromOne = "%%Invalid range: %s [1-%d]%s";

inline constexpr ValueWords kPortWords = {"%%Invalid port: %s%s", kRangeFromOne, kSequenceOrder};

// Lenient: a bad item is reported and dropped, the others are kept. A range
// whose end is above max is kept, lowered to max; a single value above max is
// dropped. Without a context single values are kept unchecked. An item that
// begins with "-" ends the call with 0 when there is a context to tell.
int parse_values(std::string_view text, RangeSink<value_range> &out, int max, const cli_ctx *ctx,
                 const ValueWords &words) noexcept;

// Strict: the first bad item ends the call with 0. Without a context only a
// range end below 1 is an error; a range end above max is lowered to it.
int parse_values_strictly(std::string_view text, RangeSink<value_range> &out, int max,
                          const cli_ctx *ctx, const ValueWords &words) noexcept;

using ValueParser = int (*)(std::string_view, RangeSink<value_range> &, int, const cli_ctx *,
                            const ValueWords &) noexcept;

// An exported token parser's call: the caller's array, which it sized for
// the text; a null text gives 0.
int parse_value_token(const char *text, value_range *out, int max, const cli_ctx *ctx,
                      ValueParser parser, const ValueWords &words) noexcept;

// Writes every value of every range, low to high and in order (duplicates
// kept), into out, each cut to the width of Id; answers how many.
template <typename Id> int expand_ranges(std::span<const value_range> ranges, Id *out) noexcept {
    int written = 0;
    for (const value_range &range : ranges) {
        for (int value = range.low; value <= range.high; ++value) {
            out[written++] = static_cast<Id>(value);
        }
    }
    return written;
}

// The values of a list that parse(RangeSink<value_range> &) reads, into out
// as expand_ranges writes them. The ranges are held in a local store of
// kLocalRanges; those beyond it are dropped.
template <typename Id, typename Parse> int list_every_value(Id *out, Parse parse) noexcept {
    std::array<value_range, kLocalRanges> ranges;
    RangeSink<value_range> sink(ranges.data(), ranges.size());
    const int count = parse(sink);
    return expand_ranges(
        std::span<const value_range>(ranges.data(), static_cast<std::size_t>(count)), out);
}

// Whether value is among the first `written` entries of out; the scan stops
// at a zero entry, as the shell's lists end there.
inline bool listed_before(const uint32_t *out, int written, uint32_t value) noexcept {
    for (int i = 0; i < written && out[i] != 0; ++i) {
        if (out[i] == value) {
            return true;
        }
    }
    return false;
}

} // namespace gv::cli
