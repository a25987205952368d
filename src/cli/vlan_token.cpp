// VLAN (bridge) ids typed by the operator: a list ("1-3,10"), one bridge
// ("br10") or the default VLAN ("default").
#include "cli/value_list.h"
#include "gvutil/cli.h"
#include "gvutil/platform.h"
#include "gvutil/sys.h"
#include "sys/items.h"
#include "sys/operator_message.h"
#include "sys/text_builder.h"
#include "sys/work_buffer.h"

#include <cstring>
#include <string_view>

namespace {

using gv::cli::RangeSink;
using gv::sys::ItemText;
using gv::sys::say;

// The messages name 4094 as the highest VLAN id.
constexpr int kHighestVlan = 4094;

value_range single(int id) noexcept {
    return {static_cast<uint16_t>(id), static_cast<uint16_t>(id)};
}

bool all_decimal(const char *text) noexcept {
    return is_digit(text, static_cast<int>(std::strlen(text))) != 0;
}

// "br" and digits. VLAN 1 is never accepted in this form: the shell names it
// "default", and callers rely on br1 being refused.
int read_bridge(const char *text, std::string_view number, RangeSink<value_range> &out,
                const cli_ctx *ctx) noexcept {
    if (number.empty()) {
        say(ctx, "%%Invalid input parameter: %s\n", text);
        return 0;
    }
    const ItemText digits(number);
    const int id = stoi(digits.c_str());
    int stored = 0;
    if (id == 0) {
        say(ctx, "%%Invalid input parameter: %s\n", text);
    } else if (is_br_range(id) == 0) {
        say(ctx, "%%Invalid range: %s [1-%d]\n", digits.c_str(), kHighestVlan);
    } else {
        out.add(single(id));
        stored = 1;
    }
    if (id == 1) {
        say(ctx, "%% There is no such a vlan:'br1'%s", "\n");
        return 0;
    }
    return stored;
}

// One number of a list item: every character a digit (the message quotes
// the number) and not zero (the message quotes the item).
bool vlan_number(const ItemText &number, const ItemText &item, const cli_ctx *ctx,
                 int &id) noexcept {
    if (!all_decimal(number.c_str())) {
        say(ctx, "%%Invalid input parameter : %s\n", number.c_str());
        return false;
    }
    id = stoi(number.c_str());
    if (id == 0) {
        say(ctx, "%%Invalid input parameter: %s\n", item.c_str());
        return false;
    }
    return true;
}

bool out_of_range(const ItemText &item, const cli_ctx *ctx, int id) noexcept {
    if (is_br_range(id) != 0) {
        return false;
    }
    say(ctx, "%%Invalid range: %s [1-%d]\n", item.c_str(), kHighestVlan);
    return true;
}

// One item of a list; false (after its message) ends the call with 0.
bool read_vlan_item(std::string_view piece, RangeSink<value_range> &out,
                    const cli_ctx *ctx) noexcept {
    const ItemText item(piece);
    const gv::sys::Halves halves = gv::sys::cut_at(piece, '-');
    if (!halves.cut) {
        int id = 0;
        if (!vlan_number(item, item, ctx, id)) {
            return false;
        }
        // The one error that does not end the list: the id is skipped and
        // the rest is read, as the shell has always done.
        if (!out_of_range(item, ctx, id)) {
            out.add(single(id));
        }
        return true;
    }
    const ItemText low_text(halves.left);
    const ItemText high_text(halves.right);
    if (!all_decimal(low_text.c_str())) {
        say(ctx, "%%Invalid input parameter : %s\n", low_text.c_str());
        return false;
    }
    if (!all_decimal(high_text.c_str())) {
        say(ctx, "%%Invalid input parameter : %s\n", high_text.c_str());
        return false;
    }
    const int low = stoi(low_text.c_str());
    const int high = stoi(high_text.c_str());
    if (low == 0 || high == 0) {
        say(ctx, "%%Invalid input parameter: %s\n", item.c_str());
        return false;
    }
    if (out_of_range(item, ctx, low) || out_of_range(item, ctx, high)) {
        return false;
    }
    if (high <= low) {
        say(ctx, "%%Invalid sequence order: %s\n", item.c_str());
        return false;
    }
    out.add({static_cast<uint16_t>(low), static_cast<uint16_t>(high)});
    return true;
}

int read_vlan_list(const char *text, RangeSink<value_range> &out, const cli_ctx *ctx) noexcept {
    gv::sys::WorkBuffer list;
    if (!list.ok()) {
        return 0;
    }
    const bool whole = gv::sys::for_each_element(
        list.copy(text), [&](std::string_view piece) { return read_vlan_item(piece, out, ctx); });
    return whole ? out.count() : 0;
}

int read_vlans(const char *text, RangeSink<value_range> &out, const cli_ctx *ctx) noexcept {
    if (text == nullptr) {
        return 0;
    }
    if (text[0] == 'b' && text[1] == 'r' && all_decimal(text + 2)) {
        return read_bridge(text, text + 2, out, ctx);
    }
    if (std::strcmp(text, "default") == 0) {
        out.add(single(1));
        return 1;
    }
    return read_vlan_list(text, out, ctx);
}

} // namespace

int get_vid_token(const char *text, value_range *out, cli_ctx *ctx) noexcept {
    if (out == nullptr) {
        return 0;
    }
    RangeSink<value_range> sink(out, RangeSink<value_range>::kUnbounded);
    return read_vlans(text, sink, ctx);
}

int get_br_list(const char *text, uint16_t *out, cli_ctx *ctx) noexcept {
    if (out == nullptr) {
        return 0;
    }
    return gv::cli::list_every_value(
        out, [&](RangeSink<value_range> &sink) noexcept { return read_vlans(text, sink, ctx); });
}
