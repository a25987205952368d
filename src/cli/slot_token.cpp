// Slot numbers typed by the operator ("1,3-5", "s2") and the port counts of
// a slot that the slot/port parsers check against.
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/platform.h"
#include "gvutil/sys.h"
#include "model/model_record.h"
#include "sys/items.h"
#include "sys/operator_message.h"
#include "sys/scan.h"
#include "sys/text_builder.h"
#include "sys/work_buffer.h"

#include <cstring>

namespace {

using gv::sys::ItemText;
using gv::sys::say;

// The highest slot number the equipment manager shows; 0 before it has
// published its record.
int shown_slot_max() noexcept {
    const eqm_global_info *info = EqmGlobalInfo;
    return info != nullptr ? info->slot_max : 0;
}

// Checks a number of the list: a non-digit, a negative value and a value
// is_slot_range refuses. `item` is what the last two messages quote.
bool slot_number(const char *number, const char *item, const cli_ctx *ctx, int &value) noexcept {
    if (is_digit(number, static_cast<int>(std::strlen(number))) == 0) {
        say(ctx, "%% Invalid input parameter : %s\n", number);
        return false;
    }
    value = stoi(number);
    if (value < 0) {
        say(ctx, "%% Invalid input parameter: %s\n", item);
        return false;
    }
    return true;
}

bool in_slot_range(int value, const char *item, const cli_ctx *ctx) noexcept {
    if (is_slot_range(value) == 0) {
        say(ctx, "%% Invalid range: %s [%d-%d]\n", item, 0, shown_slot_max());
        return false;
    }
    return true;
}

// One item of the list; false (after its message) discards the whole list.
bool read_slot_item(std::string_view piece, value_range &range, const cli_ctx *ctx) noexcept {
    const ItemText item(piece);
    const gv::sys::Halves halves = gv::sys::cut_at(piece, '-');
    if (!halves.cut) {
        int slot = 0;
        if (!slot_number(item.c_str(), item.c_str(), ctx, slot)) {
            return false;
        }
        // Slot 3 can be named only inside a range (2-4), never alone.
        if (slot == 3) {
            say(ctx, "%% Invalid input parameter: %s\n", item.c_str());
            return false;
        }
        if (!in_slot_range(slot, item.c_str(), ctx)) {
            return false;
        }
        range = {static_cast<uint16_t>(slot), static_cast<uint16_t>(slot)};
        return true;
    }
    const ItemText low_text(halves.left);
    const ItemText high_text(halves.right);
    int low = 0;
    int high = 0;
    if (!slot_number(low_text.c_str(), item.c_str(), ctx, low) ||
        !slot_number(high_text.c_str(), item.c_str(), ctx, high)) {
        return false;
    }
    if (!in_slot_range(low, item.c_str(), ctx) || !in_slot_range(high, item.c_str(), ctx)) {
        return false;
    }
    // An equal pair (2-2) is no range either.
    if (high <= low) {
        say(ctx, "%% Invalid sequence order: %s\n", item.c_str());
        return false;
    }
    range = {static_cast<uint16_t>(low), static_cast<uint16_t>(high)};
    return true;
}

} // namespace

int get_slot_token(const char *text, value_range *out, cli_ctx *ctx) noexcept {
    if (text == nullptr || out == nullptr) {
        return 0;
    }
    gv::sys::WorkBuffer list;
    if (!list.ok()) {
        return 0;
    }
    int count = 0;
    // Any bad item discards the whole list.
    const bool whole =
        gv::sys::for_each_element(list.copy(text), [&](std::string_view piece) noexcept {
            return read_slot_item(piece, out[count++], ctx);
        });
    return whole ? count : 0;
}

int is_slot_valid(int slot, int allow_trunk) noexcept {
    const int top = gv::model::logical_slot();
    if (allow_trunk != 0 ? slot > top : slot >= top) {
        return 0;
    }
    return slot >= get_start_slot() ? 1 : 0;
}

int check_input_slot_number(const char *token, cli_ctx *ctx, uint32_t *errs) noexcept {
    // The first character (the 's') is not looked at.
    if (token == nullptr || token[0] == '\0' || !gv::sys::is_decimal_digit(token[1])) {
        gv::sys::count_error(errs);
        say(ctx, "%%Invalid slot number ex) s1 or s1,s2\n");
        return 0;
    }
    const int slot = gv::sys::read_int(token + 1);
    // Two slots past the last line slot are accepted on purpose.
    const int highest = gv::model::wrap_add(get_slot_number(), 2);
    if (slot <= highest && slot >= get_start_slot()) {
        return 1;
    }
    gv::sys::count_error(errs);
    say(ctx, "%%range error: %s [s1-s%d]\n", token, highest);
    return 0;
}

int get_logical_slot_port_num(int slot) noexcept {
    const int slots = get_slot_number();
    if (slot == gv::model::logical_slot()) {
        return get_port_num(gv::model::kChannelGroups);
    }
    return slot > slots ? 0 : gv_hal_get_port_number_per_slot(slot);
}

int get_logical_slot_port_max_num(int slot) noexcept {
    const int slots = get_slot_number();
    if (slot == gv::model::logical_slot()) {
        return get_port_num(gv::model::kLogicalCapacity);
    }
    return slot > slots ? 0 : get_port_number_per_slot(slot - 1);
}
