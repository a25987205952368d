// One port token of a set text ("1/3", "0/2", "t/4") to its pnum, and the
// first and last pnums of a slot.
#include "gvutil/model.h"
#include "gvutil/settext.h"
#include "gvutil/sys.h"
#include "model/model_record.h"
#include "sys/items.h"
#include "sys/scan.h"

namespace {

constexpr int kSfuRealSlot = 3;

} // namespace

int make_port_number(const char *token) noexcept {
    if (token == nullptr) {
        return 0;
    }
    const int slots = get_slot_number();
    if (slots == 0) {
        return gv::sys::read_int(token); // a chassis without slots types pnums
    }
    const gv::sys::Halves parts = gv::sys::cut_at(token, '/');
    if (!parts.cut) {
        return 0;
    }
    int slot = 0;
    int bound = 0;
    if (!parts.left.empty() && parts.left.front() == 't') {
        slot = gv::model::logical_slot();
        bound = get_port_num(gv::model::kLogicalCapacity);
    } else {
        if (!gv::sys::all_digits(parts.left)) {
            return 0;
        }
        slot = gv::sys::read_int(parts.left);
        // Slot 0 is the switch-fabric unit's user number; kept as the shell types it.
        if (slot == 0) {
            slot = kSfuRealSlot;
        }
        if (slot > slots) {
            return 0;
        }
        bound = get_port_number_per_slot(slot - 1);
    }
    if (!gv::sys::all_digits(parts.right)) {
        return 0;
    }
    const int port = gv::sys::read_int(parts.right);
    if (port < 1 || port > bound || slot < get_start_slot()) {
        return 0;
    }
    return get_port_number_from_slotport(slot, port);
}

int make_port_number_from_slot_start(const char *text) noexcept {
    const int slot = text != nullptr ? gv::sys::read_int(text) : 0;
    int first = 1;
    for (int k = get_start_slot(); k < slot && k <= GV_MODEL_SLOT_ENTRIES; ++k) {
        first += get_port_number_per_slot(k - 1);
    }
    return first;
}

int make_port_number_from_slot_end(const char *text) noexcept {
    const int slot = text != nullptr ? gv::sys::read_int(text) : 0;
    int last = 0;
    // Entries 0..slot-1 describe slots 1..slot.
    for (int k = 0; k < slot && k < GV_MODEL_SLOT_ENTRIES; ++k) {
        last += get_port_number_per_slot(k);
    }
    return last;
}
