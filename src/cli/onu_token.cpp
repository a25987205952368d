// ONU ids typed by the operator ("1-8,12"), checked against the smallest ONU
// id the ONU option store holds, and the text form of an ONT number.
#include "cli/value_list.h"
#include "gvutil/cli.h"
#include "gvutil/onuopt.h"
#include "gvutil/platform.h"
#include "gvutil/sys.h"
#include "sys/items.h"
#include "sys/operator_message.h"
#include "sys/text_builder.h"

#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

using gv::cli::RangeSink;
using gv::sys::ItemText;
using gv::sys::say;

constexpr const char *kNewline = "\n";

struct OnuBounds {
    int lowest;
    int max;

    // What is not a number reads as -1 and is never an id, even when the
    // store cannot say its smallest id (it answers -1 without a store).
    bool below(int id) const noexcept { return id < lowest || id < 0; }
    void report_range(const ItemText &item, const cli_ctx *ctx) const noexcept {
        say(ctx, "%%Invalid range: %s [%d-%d]%s", item.c_str(), lowest, max, kNewline);
    }
};

// A bad item is reported and skipped; only an item that begins with "-"
// ends the call.
bool read_onu_item(std::string_view piece, RangeSink<value_range> &out, const OnuBounds &bounds,
                   const cli_ctx *ctx) noexcept {
    const ItemText item(piece);
    if (piece.front() == '-') {
        say(ctx, "%%Invalid onu token: %s%s", item.c_str(), kNewline);
        return false;
    }
    const gv::sys::Halves halves = gv::sys::cut_at(piece, '-');
    if (!halves.cut) {
        const int id = stoi(item.c_str());
        if (bounds.below(id)) {
            say(ctx, "%%Invalid onu token: %s%s", item.c_str(), kNewline);
        } else if (id > bounds.max) {
            bounds.report_range(item, ctx);
        } else {
            out.add({static_cast<uint16_t>(id), static_cast<uint16_t>(id)});
        }
        return true;
    }
    const int low = stoi(ItemText(halves.left).c_str());
    int high = stoi(ItemText(halves.right).c_str());
    if (bounds.below(low) || bounds.below(high)) {
        bounds.report_range(item, ctx);
        return true;
    }
    if (low >= high) {
        say(ctx, "%%Invalid sequence order: %s%s", item.c_str(), kNewline);
        return true;
    }
    if (low > bounds.max) {
        bounds.report_range(item, ctx);
        return true;
    }
    // A range reaching past max is kept up to max.
    if (high > bounds.max) {
        bounds.report_range(item, ctx);
        high = bounds.max;
    }
    out.add({static_cast<uint16_t>(low), static_cast<uint16_t>(high)});
    return true;
}

int read_onus(const char *text, RangeSink<value_range> &out, int max, const cli_ctx *ctx) noexcept {
    if (text == nullptr) {
        return 0;
    }
    const OnuBounds bounds{gv_opt_format_get_min_onu_id(), max};
    const bool whole = gv::sys::for_each_element(text, [&](std::string_view piece) noexcept {
        return read_onu_item(piece, out, bounds, ctx);
    });
    return whole ? out.count() : 0;
}

} // namespace

int get_onu_token(const char *text, value_range *out, int max, cli_ctx *ctx) noexcept {
    RangeSink<value_range> sink(out, RangeSink<value_range>::kUnbounded);
    return read_onus(text, sink, max, ctx);
}

// ONU ids fit in a byte on the shell's side: each id is kept in 8 bits.
int get_onu_list(const char *text, uint8_t *out, int max, cli_ctx *ctx) noexcept {
    if (out == nullptr) {
        return 0;
    }
    return gv::cli::list_every_value(out, [&](RangeSink<value_range> &sink) noexcept {
        return read_onus(text, sink, max, ctx);
    });
}

int convert_int_ontid_to_str_ontid(uint32_t ontid, char *dest) noexcept {
    if (dest == nullptr) {
        return 0;
    }
    if (ontid >= 1025) {
        return std::sprintf(dest, "Invalid ONTID");
    }
    // Unsigned on purpose: 0 wraps to 0/4/64, as the shell shows it.
    const uint32_t n = ontid - 1;
    const auto first = static_cast<uint16_t>((n >> 8) + 1);
    return std::sprintf(dest, "%d/%d/%d", static_cast<int>(first),
                        static_cast<int>(((n >> 6) & 3U) + 1), static_cast<int>((n & 63U) + 1));
}
