// Flat port numbers (pnums) and slot/port pairs. No per-model table: every
// number comes from the model record, walked afresh on each call.
#include "model/model_record.h"

using namespace gv::model;

namespace {

constexpr int kSfuRealSlot = 3;
constexpr int kSfuUserSlot = 0;

// Sum of the ports of slots 1..last (last may be beyond the record).
int ports_before_end_of(int last) noexcept {
    int sum = 0;
    for (int slot = 1; slot <= last && slot <= GV_MODEL_SLOT_ENTRIES; ++slot) {
        sum = wrap_add(sum, ports_at(slot - 1));
    }
    return sum;
}

// The slot holding pnum and the pnums before that slot; 0 when none does.
int find_slot(int pnum, int *before) noexcept {
    int sum = 0;
    for (int slot = 1; slot <= described_slots(); ++slot) {
        const int end = wrap_add(sum, ports_at(slot - 1));
        if (end >= pnum) {
            *before = sum;
            return slot;
        }
        sum = end;
    }
    return 0;
}

} // namespace

int get_start_port_number_from_slot(int slot) noexcept {
    return wrap_add(1, ports_before_end_of(slot - 1));
}

int get_end_port_number_from_slot(int slot) noexcept {
    return ports_before_end_of(slot);
}

int get_port_number_from_slotport(int slot, int port) noexcept {
    const int slots = slot_count();
    int sum = 0;
    // Slots below the given one, counted downwards; the interlink ports sit
    // between the last line slot and the logical slot.
    for (int i = slot - 1; i >= 1; --i) {
        sum = wrap_add(sum, ports_at(i - 1));
        if (i == slots) {
            sum = wrap_add(sum, port_count(kInterlinkPorts));
        }
    }
    return wrap_add(sum, port);
}

int get_port_number_from_real_slotport(int slot, int port) noexcept {
    return get_port_number_from_slotport(slot, port);
}

int get_slot_number_from_pnum(int pnum) noexcept {
    int before = 0;
    const int slot = find_slot(pnum, &before);
    return slot > 0 ? slot : -1;
}

int get_slotport_number_from_pnum(int pnum) noexcept {
    int before = 0;
    return find_slot(pnum, &before) > 0 ? wrap_sub(pnum, before) : -1;
}

int check_slot_port(int slot, int port) noexcept {
    const int slots = slot_count();
    // A chassis without line slots accepts every pair.
    if (slots == 0) {
        return 0;
    }
    if (slot < 1 || slot > slots || port < 1 || port > ports_at(slot - 1)) {
        return -1;
    }
    return 0;
}

int get_real_slot_by_user_slot(int user_slot) noexcept {
    return user_slot == kSfuUserSlot ? kSfuRealSlot : user_slot;
}

int get_user_slot_by_real_slot(int real_slot) noexcept {
    return real_slot == kSfuRealSlot ? kSfuUserSlot : real_slot;
}

int is_interlink_port(int pnum) noexcept {
    const int base = port_count(kInterlinkBase);
    return (pnum > base && pnum <= wrap_add(base, port_count(kInterlinkPorts))) ? 1 : 0;
}

int get_slot_index_by_pnum(int /*pnum*/) noexcept {
    return 0;
}

int get_frame_index_by_pnum(int /*pnum*/) noexcept {
    return 0;
}
