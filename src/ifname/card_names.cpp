// Interface names of line-card ports.
#include "gvutil/ifname.h"
#include "gvutil/platform.h"

#include <cstdio>

namespace {

// The prefix of a card's port; null for card types that name no ports.
const char *card_port_prefix(int card_type, int port) noexcept {
    switch (card_type) {
    case 1:
    case 7:
    case 10:
    case 16:
    case 17:
    case 26:
        return "GE";
    case 5: // two ten-gigabit uplinks in front of the gigabit ports
        return port >= 3 ? "GE" : "XE";
    case 9:
    case 11:
    case 12:
    case 15:
    case 20:
    case 25:
        return "XE";
    case 13:
        return "EPON";
    case 14:
    case 19:
    case 33:
        return "XEPON";
    case 18:
    case 21:
    case 27:
    case 28:
    case 32:
        return "GPON";
    case 22: // switch-fabric uplinks; the K7400A SFU has two gigabit ports first
        return gv_board_is_K7400A_SFU() != 0 && (port == 1 || port == 2) ? "GE" : "XE";
    case 29:
        return "NGPON";
    case 30:
        return "XGSPON";
    case 31:
        return "CE";
    default:
        return nullptr;
    }
}

} // namespace

int convert_interface_name_from_cardtype_slot_port(int card_type, int slot, int port,
                                                   char *out) noexcept {
    const char *prefix = card_port_prefix(card_type, port);
    if (out != nullptr) {
        std::snprintf(out, GV_IF_PREFIX_SIZE, "%s%d/%d", prefix != nullptr ? prefix : "", slot,
                      port);
    }
    return prefix != nullptr ? 0 : -1;
}
