// Slot and slot/port tokens: get_slot_token, check_input_slot_number,
// build_slot_port_list, get_slot_port_token(_simple),
// parse_slotif_range_string, get_slot_port_from_interface_name and
// sputil_mk_string_from_str_port, on every chassis.
#include "gvutil/cli.h"
#include "support/fuzz_support.h"

#include <algorithm>

namespace {

using gvfuzz::Exact;

// The slot parsers read a list from a 10,240-byte copy, the slotif ranges
// from a 1,024-byte one; ranges come only from what they read.
std::size_t items_within(const gvfuzz::Text &text, std::size_t read) {
    return gvfuzz::count_items(text.view().substr(0, read));
}

void slot_token(gvfuzz::Text &text, cli_ctx *ctx) {
    Exact<value_range> out(items_within(text, 10239));
    const int count = get_slot_token(text.c_str(), out.data(), ctx);
    gvfuzz::check(count >= 0 && static_cast<std::size_t>(count) <= out.size(),
                  "more slot ranges than items", text.view());
}

// A slot/port item spreads over at most 256 slots (slot numbers are bytes).
void slot_port_token(gvfuzz::Text &text, cli_ctx *ctx) {
    uint32_t errs = 0;
    Exact<slot_port_range> out(gvfuzz::count_items(text.view()) * 256);
    const int count = get_slot_port_token(text.c_str(), out.data(), ctx, &errs);
    gvfuzz::check(count >= 0 && static_cast<std::size_t>(count) <= out.size(),
                  "more slot/port ranges than the items can spread over", text.view());
}

void simple_slot_port_token(gvfuzz::Text &text, cli_ctx *ctx) {
    const std::size_t slots = std::max(simple_slot_port_limits.highest_slot, 1);
    Exact<slot_port_range> out(gvfuzz::count_items(text.view()) * slots);
    (void)get_slot_port_token_simple(text.c_str(), out.data(), ctx, nullptr);
}

// One range per slot from 0 to the chassis' slot count.
void slotif_ranges(gvfuzz::Text &text, cli_ctx *ctx) {
    const std::size_t slots = static_cast<std::size_t>(get_slot_number()) + 1;
    Exact<slot_port_range> out(items_within(text, 1023) * slots);
    const int count = parse_slotif_range_string(ctx, text.c_str(), out.data());
    gvfuzz::check(count >= -1, "slotif ranges below -1", text.view());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider in(data, size);
    gvfuzz::use_chassis(in);
    cli_ctx *ctx = gvfuzz::shell_or_quiet(in);
    const int which = in.ConsumeIntegralInRange(0, 6);
    if (which == 4) {
        simple_slot_port_limits.highest_slot = in.ConsumeIntegralInRange(-1, 40);
        simple_slot_port_limits.highest_port = in.ConsumeIntegralInRange(-1, 300);
    }
    gvfuzz::Text text = gvfuzz::rest_as_text(in);
    switch (which) {
    case 0:
        slot_token(text, ctx);
        break;
    case 1:
        (void)check_input_slot_number(text.c_str(), ctx, nullptr);
        break;
    case 2: {
        // The pair carries over between calls, as the list parsers use it.
        static slot_port_pair pair;
        uint32_t errs = 0;
        (void)build_slot_port_list(text.c_str(), &pair, ctx, &errs);
        break;
    }
    case 3:
        slot_port_token(text, ctx);
        break;
    case 4:
        simple_slot_port_token(text, ctx);
        break;
    case 5:
        slotif_ranges(text, ctx);
        break;
    default: {
        slot_port_pair pair{};
        (void)get_slot_port_from_interface_name(text.c_str(), &pair);
        Exact<char> dest(64);
        (void)sputil_mk_string_from_str_port(text.c_str(), dest.data());
        break;
    }
    }
    return 0;
}
