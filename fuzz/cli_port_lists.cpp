// Port tokens and port lists: get_port_token, get_pon_port_token,
// get_port_list, get_uni_port_list, get_port_list_not_cli_input,
// get_pon_port_list_not_cli_input and get_port_list_simple, on every chassis
// and for maxima on both sides of the port counts.
#include "gvutil/cli.h"
#include "support/fuzz_support.h"

#include <algorithm>

namespace {

using gvfuzz::Exact;

// A list expansion holds 2,048 ranges at once.
constexpr std::size_t kHeldRanges = 2048;

using TokenParser = int (*)(const char *, value_range *, int, cli_ctx *);
using ListParser = int (*)(const char *, uint32_t *, int, cli_ctx *);

// One range per item.
void token(TokenParser parser, gvfuzz::Text &text, int max, cli_ctx *ctx) {
    Exact<value_range> out(gvfuzz::count_items(text.view()));
    const int count = parser(text.c_str(), out.data(), max, ctx);
    gvfuzz::check(count >= 0 && static_cast<std::size_t>(count) <= out.size(),
                  "more ranges than items", text.view());
}

// Values 1..max of each held range (a single value may lie anywhere).
void value_list(ListParser parser, gvfuzz::Text &text, int max, cli_ctx *ctx) {
    const std::size_t ranges = std::min(gvfuzz::count_items(text.view()), kHeldRanges);
    Exact<uint32_t> out(ranges * static_cast<std::size_t>(std::max(max, 1)));
    const int count = parser(text.c_str(), out.data(), max, ctx);
    gvfuzz::check(count >= 0 && static_cast<std::size_t>(count) <= out.size(),
                  "more values than the list can hold", text.view());
}

// On a chassis with slots the list holds pnums 1..max, each once.
void port_list(gvfuzz::Text &text, int max, cli_ctx *ctx) {
    if (get_slot_number() == 0) {
        value_list(get_port_list, text, max, ctx);
        return;
    }
    Exact<uint32_t> out(static_cast<std::size_t>(std::max(max, 0)));
    const int count = get_port_list(text.c_str(), out.data(), max, ctx);
    for (int i = 0; i < count; ++i) {
        const auto pnum = static_cast<int>(out[static_cast<std::size_t>(i)]);
        gvfuzz::check(pnum >= 1 && pnum <= max, "a pnum out of range", text.view());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider in(data, size);
    gvfuzz::use_chassis(in);
    cli_ctx *ctx = gvfuzz::shell_or_quiet(in);
    const int which = in.ConsumeIntegralInRange(0, 6);
    const int max = in.ConsumeIntegralInRange(-1, 1600);
    gvfuzz::Text text = gvfuzz::rest_as_text(in);
    switch (which) {
    case 0:
        token(get_port_token, text, max, ctx);
        break;
    case 1:
        token(get_pon_port_token, text, max, ctx);
        break;
    case 2:
        port_list(text, max, ctx);
        break;
    case 3:
        value_list(get_uni_port_list, text, max, ctx);
        break;
    case 4:
        value_list(get_port_list_not_cli_input, text, max, ctx);
        break;
    case 5:
        value_list(get_pon_port_list_not_cli_input, text, max, ctx);
        break;
    default: {
        Exact<uint32_t> out(1);
        gvfuzz::check(get_port_list_simple(text.c_str(), out.data(), max, ctx) == 0,
                      "get_port_list_simple lists ports", text.view());
        break;
    }
    }
    return 0;
}
