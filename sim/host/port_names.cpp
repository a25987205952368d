// Port names and the slot/port behind a pnum, as the host chassis' switch
// services answer them. A slotless box numbers its front-panel ports slot 0,
// port = pnum (as the library's slot/port conversions do), and names them
// slot 1, port = pnum (GPON1/5), as the interface-range services do; its
// logical slot is slot 1.
#include "gvsim/gvsim.h"
#include "host/root_chassis.h"

#include "chassis_rules.h"

#include <cstdio>

namespace {

using gvsim::ChassisDesc;

constexpr int kSlotlessSlot = 0;
constexpr int kSlotlessNamedSlot = 1;

int logical_slot(const ChassisDesc &chassis) {
    return chassis.slot_count + 1;
}

// The card type and port on the card of a real slot and port; false when the
// chassis has no such port.
bool find_port(const ChassisDesc &chassis, int slot, int port, int &card_type, int &card_port) {
    if (chassis.slot_count == 0) {
        bool found = false;
        gvsim::for_each_physical_port(chassis, [&](int pnum, int type, int on_card) {
            if (slot == kSlotlessSlot && pnum == port) {
                card_type = type;
                card_port = on_card;
                found = true;
            }
        });
        return found;
    }
    if (slot < 1 || slot > chassis.slot_count || port < 1 ||
        port > chassis.slots[static_cast<std::size_t>(slot - 1)].ports) {
        return false;
    }
    card_type = chassis.slots[static_cast<std::size_t>(slot - 1)].card_type;
    card_port = port;
    return true;
}

// The real slot and port of a physical pnum; false for any other pnum.
bool physical_slot_port(const ChassisDesc &chassis, int pnum, int &slot, int &port) {
    if (pnum < 1 || pnum > chassis.kind[1]) {
        return false;
    }
    if (chassis.slot_count == 0) {
        slot = kSlotlessSlot;
        port = pnum;
        return true;
    }
    int before = 0;
    for (int s = 1; s <= chassis.slot_count; ++s) {
        const int ports = chassis.slots[static_cast<std::size_t>(s - 1)].ports;
        if (pnum <= before + ports) {
            slot = s;
            port = pnum - before;
            return true;
        }
        before += ports;
    }
    return false;
}

int answer(bool found, int found_slot, int found_port, int *slot, int *port) {
    *slot = found ? found_slot : 0;
    *port = found ? found_port : 0;
    return found ? 0 : -1;
}

} // namespace

int get_ifname(int slot, int port, char *name) {
    if (name == nullptr) {
        return -1;
    }
    name[0] = '\0';
    const ChassisDesc *chassis = gvsim::root_chassis();
    if (chassis == nullptr) {
        return -1;
    }
    if (slot == logical_slot(*chassis) && port >= 1 && port <= chassis->kind[9]) {
        std::snprintf(name, 16, "CG%d", port);
        return 0;
    }
    int card_type = 0;
    int card_port = 0;
    if (!find_port(*chassis, slot, port, card_type, card_port)) {
        return -1;
    }
    const char *prefix = gvsim::interface_prefix(
        gvsim::card_port_interface(card_type, card_port, gvsim::is_k7400a_board(*chassis)));
    // A card that names no interface still has numbered ports.
    std::snprintf(name, 32, "%s%d/%d", prefix != nullptr ? prefix : "",
                  chassis->slot_count == 0 ? kSlotlessNamedSlot : slot, port);
    return 0;
}

int get_logical_slot_port_from_sfu_port(int sfu_port, int *slot, int *port) {
    const ChassisDesc *chassis = gvsim::root_chassis();
    int found_slot = 0;
    int found_port = 0;
    const bool found =
        chassis != nullptr && physical_slot_port(*chassis, sfu_port, found_slot, found_port);
    return answer(found, found_slot, found_port, slot, port);
}

int get_logical_slot_port_from_virtual_port(int pnum, int *slot, int *port) {
    const ChassisDesc *chassis = gvsim::root_chassis();
    if (chassis == nullptr) {
        return answer(false, 0, 0, slot, port);
    }
    int found_slot = 0;
    int found_port = 0;
    if (physical_slot_port(*chassis, pnum, found_slot, found_port)) {
        return answer(true, found_slot, found_port, slot, port);
    }
    const auto &kind = chassis->kind;
    const int logical = pnum - kind[1] - kind[6];
    if (pnum > kind[0] || logical < 1) {
        return answer(false, 0, 0, slot, port); // interlink or beyond the chassis
    }
    if (logical <= kind[9]) {
        return answer(true, logical_slot(*chassis), logical, slot, port);
    }
    // A type-b trunk is named by the working port behind it.
    return get_logical_slot_port_from_sfu_port(get_pnum_from_type_b_trunk_pnum(pnum) & 0xFFFF, slot,
                                               port);
}
