// Port numbers of one slot, or of a chassis without slots ("1-4,7"), as
// ranges and as flat lists.
#include "cli/value_list.h"
#include "gvutil/cli.h"
#include "gvutil/platform.h"

#include <array>
#include <span>

using gv::cli::RangeSink;

namespace gv::cli {

int expand_ranges(std::span<const value_range> ranges, uint32_t *out) noexcept {
    int written = 0;
    for (const value_range &range : ranges) {
        for (int value = range.low; value <= range.high; ++value) {
            out[written++] = static_cast<uint32_t>(value);
        }
    }
    return written;
}

} // namespace gv::cli

namespace {

using Parser = int (*)(std::string_view, RangeSink<value_range> &, int, const cli_ctx *,
                       const gv::cli::ValueWords &) noexcept;

int parse_into(const char *text, value_range *out, int max, const cli_ctx *ctx,
               Parser parser) noexcept {
    RangeSink<value_range> sink(out, RangeSink<value_range>::kUnbounded);
    return text != nullptr ? parser(text, sink, max, ctx, gv::cli::kPortWords) : 0;
}

// Every value of every range, low to high and in order, duplicates kept.
int list_values(const char *text, uint32_t *out, int max, const cli_ctx *ctx,
                Parser parser) noexcept {
    if (text == nullptr || out == nullptr) {
        return 0;
    }
    std::array<value_range, gv::cli::kLocalRanges> ranges;
    RangeSink<value_range> sink(ranges.data(), ranges.size());
    const int count = parser(text, sink, max, ctx, gv::cli::kPortWords);
    return gv::cli::expand_ranges(std::span(ranges.data(), static_cast<std::size_t>(count)), out);
}

// The model code get_port_list_simple keeps; all ones until first asked.
uint32_t cached_model = 0xFFFFFFFFu;

} // namespace

int get_port_token(const char *text, value_range *out, int max, cli_ctx *ctx) noexcept {
    return parse_into(text, out, max, ctx, gv::cli::parse_values);
}

int get_pon_port_token(const char *text, value_range *out, int max, cli_ctx *ctx) noexcept {
    return parse_into(text, out, max, ctx, gv::cli::parse_values_strictly);
}

int get_uni_port_list(const char *text, uint32_t *out, int max, cli_ctx *ctx) noexcept {
    return list_values(text, out, max, ctx, gv::cli::parse_values);
}

int get_port_list_not_cli_input(const char *text, uint32_t *out, int max, cli_ctx *ctx) noexcept {
    return list_values(text, out, max, ctx, gv::cli::parse_values);
}

int get_pon_port_list_not_cli_input(const char *text, uint32_t *out, int max,
                                    cli_ctx *ctx) noexcept {
    return list_values(text, out, max, ctx, gv::cli::parse_values_strictly);
}

// Kept for its callers as it has always been: it notes the model and answers no ports.
int get_port_list_simple(const char * /*text*/, uint32_t * /*out*/, int /*max*/,
                         cli_ctx * /*ctx*/) noexcept {
    if (cached_model == 0xFFFFFFFFu) {
        cached_model = static_cast<uint32_t>(getModel());
    }
    return 0;
}
