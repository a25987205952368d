// Port numbers of one slot, or of a chassis without slots ("1-4,7"), as
// ranges and as flat lists.
#include "cli/value_list.h"
#include "gvutil/cli.h"
#include "gvutil/platform.h"

using gv::cli::RangeSink;

namespace {

using gv::cli::kPortWords;
using Parser = gv::cli::ValueParser;

// Every value of every range, low to high and in order, duplicates kept.
int list_values(const char *text, uint32_t *out, int max, const cli_ctx *ctx,
                Parser parser) noexcept {
    if (text == nullptr || out == nullptr) {
        return 0;
    }
    return gv::cli::list_every_value(out, [&](RangeSink<value_range> &sink) noexcept {
        return parser(text, sink, max, ctx, kPortWords);
    });
}

// The model code get_port_list_simple keeps; all ones until first asked.
uint32_t cached_model = 0xFFFFFFFFu;

} // namespace

int get_port_token(const char *text, value_range *out, int max, cli_ctx *ctx) noexcept {
    return gv::cli::parse_value_token(text, out, max, ctx, gv::cli::parse_values, kPortWords);
}

int get_pon_port_token(const char *text, value_range *out, int max, cli_ctx *ctx) noexcept {
    return gv::cli::parse_value_token(text, out, max, ctx, gv::cli::parse_values_strictly,
                                      kPortWords);
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
