#include "cli/slot_port_item.h"

#include "gvutil/cli.h"
#include "gvutil/ifname.h"
#include "gvutil/model.h"
#include "gvutil/sys.h"
#include "model/model_record.h"
#include "sys/operator_message.h"
#include "sys/scan.h"

#include <cstdio>

namespace gv::cli {

namespace {

void renumber_slot(std::string_view item, sys::ItemText &dest, int (*convert)(int)) noexcept {
    int numbers[2] = {};
    if (!item.empty() && sys::is_decimal_digit(item.front()) &&
        sys::scan_ints(item, "%d/%d", numbers) == 2 && numbers[1] != 0) {
        char converted[32];
        std::snprintf(converted, sizeof converted, "%d/%d", convert(numbers[0]), numbers[1]);
        dest.assign(converted);
        return;
    }
    dest.assign(item);
}

} // namespace

void user_slot_text_to_real(std::string_view item, sys::ItemText &dest) noexcept {
    renumber_slot(item, dest, get_real_slot_by_user_slot);
}

void real_slot_text_to_user(std::string_view item, sys::ItemText &dest) noexcept {
    renumber_slot(item, dest, get_user_slot_by_real_slot);
}

bool is_trunk_item(std::string_view item) noexcept {
    if (item.size() >= 2 && item[0] == 't' && item[1] == '/') {
        return true;
    }
    return is_aggregator_interface(sys::ItemText(item).c_str()) != 0;
}

} // namespace gv::cli

namespace {

using gv::sys::ItemText;
using gv::sys::say;

// Counts the rejected item and tells the operator (quietly without a context).
template <typename... Args>
int reject(const cli_ctx *ctx, uint32_t *errs, const char *format, Args... args) noexcept {
    gv::sys::count_error(errs);
    say(ctx, format, args...);
    return 0;
}

// The checks every item passes once its pair is filled in.
int check_pair(const ItemText &item, slot_port_pair &pair, bool trunk, const cli_ctx *ctx,
               uint32_t *errs) noexcept {
    if (pair.slot < get_start_slot() || pair.port == 0) {
        return reject(ctx, errs, "%%Invalid input parameter: %s\n", item.c_str());
    }
    if (is_slot_valid(pair.slot, trunk ? 1 : 0) == 0) {
        return reject(ctx, errs, "%%Invalid slot id range: %s\n", item.c_str());
    }
    const int ports = get_logical_slot_port_num(pair.slot);
    if (ports == 0) {
        return reject(ctx, errs, "%%Can't get slot info : %s\n", item.c_str());
    }
    if (pair.port > ports) {
        // Lowered even when the item is refused: callers read the pair back.
        pair.port = static_cast<uint8_t>(ports);
        if (trunk) {
            return reject(ctx, errs, "%%range error: %s [%s/1-%d]\n", item.c_str(), "t", ports);
        }
        ItemText shown;
        gv::cli::real_slot_text_to_user(item.view(), shown);
        return reject(ctx, errs, "%%range error: %s [%d/1-%d]\n", shown.c_str(),
                      get_user_slot_by_real_slot(pair.slot), ports);
    }
    return 1;
}

void read_slot_slash_port(const ItemText &item, slot_port_pair &pair) noexcept {
    const gv::sys::Halves halves = gv::sys::cut_at(item.view(), '/');
    const ItemText before(halves.left);
    int slot = 0;
    int port = 0;
    if (is_ethernet_interface(before.c_str()) != 0) {
        get_slot_port_no_from_ifstr(item.c_str(), &slot, &port);
    } else {
        slot = stoi(before.c_str());
        port = stoi(ItemText(halves.right).c_str());
    }
    pair.slot = static_cast<uint8_t>(slot);
    pair.port = static_cast<uint8_t>(port);
}

} // namespace

int build_slot_port_list(const char *text, slot_port_pair *pair, cli_ctx *ctx,
                         uint32_t *errs) noexcept {
    if (text == nullptr || text[0] == '\0' || pair == nullptr) {
        return 0;
    }
    const ItemText item(text);
    const bool trunk = gv::cli::is_trunk_item(item.view());
    if (!trunk && gv::sys::contains(item.view(), '/')) {
        read_slot_slash_port(item, *pair);
        return check_pair(item, *pair, false, ctx, errs);
    }
    if (gv::sys::contains(item.view(), '-')) {
        return reject(ctx, errs, "%%Invalid input parameter: %s\n", item.c_str());
    }
    if (trunk) {
        pair->slot = static_cast<uint8_t>(gv::model::logical_slot());
        pair->port = static_cast<uint8_t>(stoi(item.c_str() + 2)); // t/2 and CG2 give 2
    }
    // A bare number names no slot: the pair keeps what the previous item of
    // the list left in it, and the shell relies on that carry-over.
    return check_pair(item, *pair, trunk, ctx, errs);
}
