// Lists of slot/port items typed by the operator ("1/1-1/8,2/3", "t/1-t/3").
#include "cli/shell_slot_ports.h"
#include "cli/slot_port_item.h"
#include "cli/slot_port_list.h"
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/platform.h"
#include "gvutil/sys.h"
#include "sys/operator_message.h"

struct gv_simple_slot_port_limits simple_slot_port_limits;

namespace {

using gv::cli::RangeSink;
using gv::cli::SlotPorts;
using gv::sys::ItemText;
using gv::sys::say;

// The shell's own lists: user slots, trunk and interface-name forms.
struct ShellSlotPorts {
    cli_ctx *ctx;
    uint32_t *errs;

    bool read(std::string_view endpoint, slot_port_pair &pair) const noexcept {
        ItemText real;
        gv::cli::user_slot_text_to_real(endpoint, real);
        return build_slot_port_list(real.c_str(), &pair, ctx, errs) == 1;
    }
    ItemText port_only_end(const gv::sys::Halves &range, const ItemText &item) const noexcept {
        if (gv::cli::is_trunk_item(range.left)) {
            return ItemText(range.right); // t/1-3: a bare number, read as such
        }
        if (!gv::sys::contains(range.left, '/')) {
            gv::sys::count_error(errs);
            say(ctx, "%%Invalid input: %s\n", item.c_str());
            return ItemText(range.left);
        }
        return gv::cli::same_slot_end(range.left, range.right);
    }
    int last_port(int slot) const noexcept { return get_logical_slot_port_num(slot); }
    void report_order(const ItemText &item) const noexcept {
        gv::sys::count_error(errs);
        say(ctx, "%%Invalid sequence order: %s\n", item.c_str());
    }
};

struct SimplePair {
    int slot;
    int port;
};

// Lists checked against simple_slot_port_limits: plain slot/port items only.
struct SimpleSlotPorts {
    cli_ctx *ctx;
    uint32_t *errs;

    bool fail(const char *format, const char *endpoint) const noexcept {
        gv::sys::count_error(errs);
        say(ctx, format, endpoint);
        return false;
    }
    bool read(std::string_view endpoint, SimplePair &pair) const noexcept {
        const ItemText text(endpoint);
        const gv::sys::Halves halves = gv::sys::cut_at(endpoint, '/');
        if (!halves.cut) {
            return fail("%%Invalid input parameter: %s\n", text.c_str());
        }
        pair.slot = stoi(ItemText(halves.left).c_str());
        pair.port = static_cast<uint8_t>(stoi(ItemText(halves.right).c_str()));
        if (pair.slot < get_start_slot() || pair.port == 0) {
            return fail("%%Invalid input parameter: %s\n", text.c_str());
        }
        if (pair.slot > simple_slot_port_limits.highest_slot) {
            return fail("%%Invalid slot id range: %s\n", text.c_str());
        }
        const int highest_port = simple_slot_port_limits.highest_port;
        if (pair.port > highest_port) {
            pair.port = highest_port;
            gv::sys::count_error(errs);
            say(ctx, "%%range error: %s [%d/1-%d]\n", text.c_str(), pair.slot, highest_port);
            return false;
        }
        return true;
    }
    ItemText port_only_end(const gv::sys::Halves &range, const ItemText &) const noexcept {
        return gv::cli::same_slot_end(range.left, range.right);
    }
    int last_port(int) const noexcept { return simple_slot_port_limits.highest_port; }
    void report_order(const ItemText &item) const noexcept {
        gv::sys::count_error(errs);
        say(ctx, "%%Invalid sequence order: %s\n", item.c_str());
    }
};

template <typename Pair, typename Policy>
int parse_into(const char *text, RangeSink<slot_port_range> &out, Policy policy) noexcept {
    if (text == nullptr) {
        return 0;
    }
    gv::cli::parse_slot_port_list<Pair>(text, policy, [&out](const SlotPorts &ports) noexcept {
        out.add({static_cast<uint16_t>(ports.slot), static_cast<uint16_t>(ports.first_port),
                 static_cast<uint16_t>(ports.last_port)});
    });
    return out.count();
}

} // namespace

namespace gv::cli {

int read_shell_slot_ports(const char *text, RangeSink<slot_port_range> &out, cli_ctx *ctx,
                          uint32_t *errs) noexcept {
    return parse_into<slot_port_pair>(text, out, ShellSlotPorts{ctx, errs});
}

} // namespace gv::cli

int get_slot_port_token(const char *text, slot_port_range *out, cli_ctx *ctx,
                        uint32_t *errs) noexcept {
    RangeSink<slot_port_range> sink(out, RangeSink<slot_port_range>::kUnbounded);
    return gv::cli::read_shell_slot_ports(text, sink, ctx, errs);
}

int get_slot_port_token_simple(const char *text, slot_port_range *out, cli_ctx *ctx,
                               uint32_t *errs) noexcept {
    RangeSink<slot_port_range> sink(out, RangeSink<slot_port_range>::kUnbounded);
    return parse_into<SimplePair>(text, sink, SimpleSlotPorts{ctx, errs});
}
