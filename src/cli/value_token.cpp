// Lists of plain numbers that are not ports: ranges, classes of service,
// VRRP router ids and interface numbers. Each reads as a port list does, with
// its own words.
#include "cli/value_list.h"
#include "gvutil/cli.h"
#include "gvutil/platform.h"

namespace {

using gv::cli::kRangeFromOne;
using gv::cli::kSequenceOrder;
using gv::cli::parse_value_token;
using gv::cli::ValueWords;

constexpr ValueWords kRangeWords = {"%%Invalid parameter: %s%s", kRangeFromOne, kSequenceOrder};

// A class of service may be 0. The message for a negative range end has no
// lower bound ("[-7]"); the shell's operators know it in that form.
constexpr ValueWords kCosWords = {"%%Invalid cos: %s%s", "%%Invalid range: %s [0-%d]%s",
                                  kSequenceOrder, 0, "%%Invalid range: %s [-%d]%s"};

constexpr ValueWords kVridWords = {"%%Invalid vrid: %s%s", kRangeFromOne, kSequenceOrder};
constexpr ValueWords kInterfaceWords = {"%%Invalid interface: %s%s", kRangeFromOne, kSequenceOrder};

} // namespace

int get_range_token(const char *text, value_range *out, int max, cli_ctx *ctx) noexcept {
    return parse_value_token(text, out, max, ctx, gv::cli::parse_values, kRangeWords);
}

int get_cos_token(const char *text, value_range *out, int max, cli_ctx *ctx) noexcept {
    return parse_value_token(text, out, max, ctx, gv::cli::parse_values, kCosWords);
}

int get_vrid_token(const char *text, value_range *out, int max, cli_ctx *ctx) noexcept {
    return parse_value_token(text, out, max, ctx, gv::cli::parse_values_strictly, kVridWords);
}

int get_interface_token(const char *text, value_range *out, int max, cli_ctx *ctx) noexcept {
    return parse_value_token(text, out, max, ctx, gv::cli::parse_values_strictly, kInterfaceWords);
}
