// Value tokens: VLAN lists (get_vid_token, get_br_list), ONU ids
// (get_onu_token, get_onu_list) against an ONU option store, ranges, classes
// of service, VRRP ids, interfaces, group ids (get_gid_list), MAC addresses
// (get_mac_token), mapper/GEM ports (get_mapper_gemport_token,
// get_mapper_gemport) and trunk keywords (trunk_tag_to_index).
#include "gvutil/cli.h"
#include "gvutil/onuopt.h"
#include "support/fuzz_support.h"

#include <algorithm>
#include <sched.h>

namespace {

using gvfuzz::Exact;

constexpr std::size_t kHeldRanges = 2048;
constexpr int kHighestVlan = 4094;
constexpr int kHighestMapper = 32;

bool store_attached = false;

// The items a list can hold ranges for: the VLAN lists are read from a
// 10,240-byte copy.
std::size_t held_items(const gvfuzz::Text &text, std::size_t read = std::string_view::npos) {
    return std::min(gvfuzz::count_items(text.view().substr(0, read)), kHeldRanges);
}

void vlans(gvfuzz::Text &text, cli_ctx *ctx, bool expanded) {
    const std::size_t items = std::max<std::size_t>(held_items(text, 10239), 1);
    if (!expanded) {
        Exact<value_range> out(items);
        (void)get_vid_token(text.c_str(), out.data(), ctx);
        return;
    }
    Exact<uint16_t> out(items * kHighestVlan);
    const int count = get_br_list(text.c_str(), out.data(), ctx);
    for (int i = 0; i < count; ++i) {
        const int id = out[static_cast<std::size_t>(i)];
        gvfuzz::check(id >= 1 && id <= kHighestVlan, "a VLAN id out of range", text.view());
    }
}

void onus(gvfuzz::Text &text, int max, cli_ctx *ctx, bool expanded) {
    if (!expanded) {
        Exact<value_range> out(gvfuzz::count_items(text.view()));
        (void)get_onu_token(text.c_str(), out.data(), max, ctx);
        return;
    }
    // Ids from the smallest id the store holds (0 at least) up to max.
    const int lowest = std::max(gv_opt_format_get_min_onu_id(), 0);
    Exact<uint8_t> out(held_items(text) * static_cast<std::size_t>(std::max(max - lowest + 1, 1)));
    (void)get_onu_list(text.c_str(), out.data(), max, ctx);
}

void values(int (*parser)(const char *, value_range *, int, cli_ctx *), gvfuzz::Text &text, int max,
            cli_ctx *ctx) {
    Exact<value_range> out(gvfuzz::count_items(text.view()));
    (void)parser(text.c_str(), out.data(), max, ctx);
}

// Each group once, ascending: at most limit of them (288 at most).
void groups(gvfuzz::Text &text, int limit, cli_ctx *ctx) {
    Exact<uint32_t> out(static_cast<std::size_t>(std::clamp(limit, 0, GV_GID_ARRAY_WORDS * 32)));
    const int count = get_gid_list(text.c_str(), out.data(), limit, ctx);
    for (int i = 1; i < count; ++i) {
        gvfuzz::check(out[static_cast<std::size_t>(i - 1)] < out[static_cast<std::size_t>(i)],
                      "group ids not ascending", text.view());
    }
}

void macs(gvfuzz::Text &text, cli_ctx *ctx) {
    Exact<char> out(gvfuzz::count_items(text.view()) * GV_MAC_TOKEN_SIZE);
    (void)get_mac_token(text.c_str(), out.data(), ctx);
}

// A mapper/GEM item spreads over at most 32 mappers; the indexes are 1..max,
// each once.
void gem_ports(gvfuzz::Text &text, int max, int per, cli_ctx *ctx, bool expanded) {
    if (!expanded) {
        uint32_t errs = 0;
        Exact<mapper_gem_range> out(gvfuzz::count_items(text.view()) * kHighestMapper);
        (void)get_mapper_gemport_token(text.c_str(), out.data(), &errs, per, ctx);
        return;
    }
    Exact<uint32_t> out(static_cast<std::size_t>(std::max(max, 0)));
    const int count = get_mapper_gemport(text.c_str(), out.data(), max, per, ctx);
    for (int i = 0; i < count; ++i) {
        const auto index = static_cast<int>(out[static_cast<std::size_t>(i)]);
        gvfuzz::check(index >= 1 && index <= max, "a GEM index out of range", text.view());
    }
}

} // namespace

// The ONU ids are checked against the store's smallest id: the store lives in
// a private IPC namespace (root only; without it the store answers -1).
extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    store_attached = unshare(CLONE_NEWIPC) == 0 &&
                     gv_opt_format_attach_shm(gv_opt_format_create_shm()) == 0 &&
                     gv_opt_format_create_sem() == 0 && gv_opt_format_init_db() == 0;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider in(data, size);
    gvfuzz::use_chassis(in);
    cli_ctx *ctx = gvfuzz::shell_or_quiet(in);
    const int which = in.ConsumeIntegralInRange(0, 12);
    const int max = in.ConsumeIntegralInRange(-1, 300);
    const int per = in.ConsumeIntegralInRange(-1, 300);
    if (store_attached) {
        (void)gv_opt_format_set_min_onu_id(in.ConsumeIntegralInRange(-1, 3));
    }
    gvfuzz::Text text = gvfuzz::rest_as_text(in);
    switch (which) {
    case 0:
    case 1:
        vlans(text, ctx, which == 1);
        break;
    case 2:
    case 3:
        onus(text, max, ctx, which == 3);
        break;
    case 4:
        values(get_range_token, text, max, ctx);
        break;
    case 5:
        values(get_cos_token, text, max, ctx);
        break;
    case 6:
        values(get_vrid_token, text, max, ctx);
        break;
    case 7:
        values(get_interface_token, text, max, ctx);
        break;
    case 8:
        // Group lists are only read with a context to tell.
        groups(text, max, gvfuzz::shell());
        break;
    case 9:
        macs(text, ctx);
        break;
    case 10:
    case 11:
        gem_ports(text, max, per, ctx, which == 11);
        break;
    default:
        (void)trunk_tag_to_index(text.c_str());
        break;
    }
    return 0;
}
