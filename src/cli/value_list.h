// Lists of plain values ("1-4,7") checked against 1..max. The port parsers
// use them here; the parsers of other value tokens (ranges, VRRP ids,
// interfaces) differ only in the words of their messages.
#pragma once

#include "cli/range_sink.h"
#include "gvutil/cli.h"
#include "gvutil/platform.h"

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
};

inline constexpr ValueWords kPortWords = {"%%Invalid port: %s%s", "%%Invalid range: %s [1-%d]%s",
                                          "%%Invalid sequence order: %s%s"};

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

// Writes every value of every range, low to high and in order (duplicates
// kept), into out; answers how many.
int expand_ranges(std::span<const value_range> ranges, uint32_t *out) noexcept;

} // namespace gv::cli
