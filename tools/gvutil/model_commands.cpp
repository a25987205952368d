// map, pnum and slotport: the chassis' numbering as the library sees it.
#include "commands.h"
#include "port_arg.h"

#include "gvutil/model.h"
#include "gvutil/sys.h"

#include <cstdio>

namespace gvtool {

namespace {

enum Kind : unsigned { kTotal = 0, kPhysical = 1, kCapacity = 2, kInterlink = 6, kGroups = 9 };

int logical_slot() {
    return get_slot_number() + 1;
}
int logical_base() {
    return get_port_num(kPhysical) + get_port_num(kInterlink);
}

void print_pnum_range(int first, int last) {
    if (last < first) {
        std::printf("-");
    } else if (first == last) {
        std::printf("%d", first);
    } else {
        std::printf("%d-%d", first, last);
    }
}

void print_slots() {
    std::printf("%-6s %-6s %-6s %s\n", "slot", "user", "ports", "pnums");
    for (int slot = get_start_slot(); slot <= get_slot_number(); ++slot) {
        std::printf("%-6d %-6d %-6d ", slot, get_user_slot_by_real_slot(slot),
                    get_port_number_per_slot(slot - 1));
        print_pnum_range(get_start_port_number_from_slot(slot),
                         get_end_port_number_from_slot(slot));
        std::printf("\n");
    }
}

// A pnum beyond the physical ports, described from the record's counts.
void describe_logical(int pnum) {
    const int base = get_port_num(5);
    if (is_interlink_port(pnum) != 0) {
        std::printf("pnum %d: interlink port %d\n", pnum, pnum - base);
        return;
    }
    if (pnum > get_port_num(kTotal)) {
        std::printf("pnum %d: no such port (the chassis has %d pnums)\n", pnum,
                    get_port_num(kTotal));
        return;
    }
    const int port = pnum - logical_base();
    std::printf("pnum %d: logical slot %d port %d (%s)\n", pnum, logical_slot(), port,
                port <= get_port_num(kGroups) ? "channel group" : "trunk");
}

} // namespace

int run_map(Args args) {
    if (!args.empty()) {
        return usage_error("map");
    }
    std::printf("model         %s (board %s)\n", get_model_name(), get_real_model_name());
    std::printf("layer 3       %s\n", is_enable_l3() != 0 ? "enabled" : "disabled");
    const int slots = get_slot_number();
    if (slots == 0) {
        std::printf("slots         none; pnums 1-%d name the front-panel ports\n",
                    get_port_num(kPhysical));
    } else {
        std::printf("slots         %d (user slot 0 is the switch fabric in real slot 3)\n\n",
                    slots);
        print_slots();
        std::printf("\n");
    }
    const int interlink = get_port_num(kInterlink);
    std::printf("interlink     %d ports, pnums ", interlink);
    print_pnum_range(get_port_num(5) + 1, get_port_num(5) + interlink);
    std::printf("\nlogical slot  %d, capacity %d, pnums ", logical_slot(), get_port_num(kCapacity));
    print_pnum_range(logical_base() + 1, logical_base() + get_port_num(kCapacity));
    std::printf("\nchannel group CG1-CG%d\n", get_port_num(kGroups));
    std::printf("total pnums   %d\n", get_port_num(kTotal));
    return 0;
}

int run_pnum(Args args) {
    if (args.size() != 1 || stoi(args[0]) < 1) {
        return usage_error("pnum");
    }
    const int pnum = stoi(args[0]);
    const int slot = get_slot_number_from_pnum(pnum);
    if (slot < 0) {
        describe_logical(pnum);
        return 0;
    }
    const int port = get_slotport_number_from_pnum(pnum);
    std::printf("pnum %d: real slot %d port %d, user %d/%d\n", pnum, slot, port,
                get_user_slot_by_real_slot(slot), port);
    return 0;
}

int run_slotport(Args args) {
    int user_slot = 0;
    int port = 0;
    if (args.size() != 1 || !parse_slot_port(args[0], user_slot, port)) {
        return usage_error("slotport");
    }
    const int slot = get_real_slot_by_user_slot(user_slot);
    if (check_slot_port(slot, port) != 0) {
        std::printf("%d/%d: no such port on this chassis\n", user_slot, port);
        return 1;
    }
    std::printf("%d/%d: real slot %d port %d, pnum %d\n", user_slot, port, slot, port,
                get_port_number_from_slotport(slot, port));
    return 0;
}

} // namespace gvtool
