// ports, portset and slots: lists parsed as the shell parses them
// (its operator messages printed as the operator would see them) and the
// resulting set printed back as range text and as numbers.
#include "commands.h"
#include "list_output.h"

#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/platform.h"
#include "gvutil/settext.h"

#include <array>
#include <cstdio>
#include <vector>

namespace gvtool {

namespace {

// A set's text in every form the library prints a port set.
void print_port_set(const std::vector<uint32_t> &pnums) {
    portset_t set;
    ps_zero(&set);
    for (uint32_t pnum : pnums) {
        ps_set(&set, static_cast<int>(pnum));
    }
    std::vector<char> text(16384);
    const int total = get_port_num(0);
    portset2str(text.data(), total, &set);
    std::printf("%-12s %s\n", get_slot_number() != 0 ? "names" : "ports", text.data());
    if (get_slot_number() == 0) {
        return; // the slot/port forms name slots
    }
    portset2str_wo_iftype(text.data(), total, &set);
    std::printf("%-12s %s\n", "slot/port", text.data());
    std::vector<uint32_t> list = pnums;
    text[0] = '\0';
    if (!list.empty() && gv_get_cli_format_string_from_plist(
                             list.data(), static_cast<int>(list.size()), text.data()) == 0) {
        std::printf("%-12s%s\n", "command", text.data());
    }
}

} // namespace

int run_ports(Args args) {
    if (args.size() != 1) {
        return usage_error("ports");
    }
    cli_ctx out = shell_output();
    // The ranges quietly first, then the list with the shell's messages.
    std::vector<slot_port_range> ranges(4096);
    uint32_t errors = 0;
    const int count = get_slot_port_token(args[0], ranges.data(), nullptr, &errors);
    std::vector<uint32_t> pnums(4096);
    const int listed = get_port_list(args[0], pnums.data(), get_port_num(0), &out);
    pnums.resize(static_cast<std::size_t>(listed));
    if (get_slot_number() != 0) {
        std::printf("%-12s", "ranges");
        for (int i = 0; i < count; ++i) {
            const slot_port_range &r = ranges[static_cast<std::size_t>(i)];
            std::printf(" %u:%u-%u", r.slot, r.first_port, r.last_port);
        }
        std::printf("%s   (real slot:ports, %u item errors)\n", count == 0 ? " (none)" : "",
                    errors);
    }
    print_numbers("pnums", pnums);
    print_port_set(pnums);
    return listed > 0 ? 0 : 1;
}

int run_portset(Args args) {
    if (args.size() != 1) {
        return usage_error("portset");
    }
    portset_t set;
    ps_zero(&set);
    const int members = getportset(args[0], get_port_num(0), &set);
    std::vector<uint32_t> pnums;
    for (int pnum = 1; pnum <= GV_PORTSET_MAX_PORT; ++pnum) {
        if (ps_isset(&set, pnum) != 0) {
            pnums.push_back(static_cast<uint32_t>(pnum));
        }
    }
    std::printf("%-12s %d\n", "members", members);
    print_numbers("pnums", pnums);
    print_port_set(pnums);
    return members > 0 ? 0 : 1;
}

int run_slots(Args args) {
    if (args.size() != 1) {
        return usage_error("slots");
    }
    cli_ctx out = shell_output();
    std::vector<value_range> ranges(4096);
    const int count = get_slot_token(args[0], ranges.data(), &out);
    const std::vector<uint32_t> numbers = values_of(ranges, count);
    std::array<uint8_t, 256> slots{};
    for (uint32_t slot : numbers) {
        slots[slot % slots.size()] = 1; // slot numbers stay below 21
    }
    char text[1024];
    ports_array2str(slots.data(), static_cast<int>(slots.size()) - 1, text);
    print_numbers("slots", numbers);
    std::printf("%-12s %s\n", "text", text);
    return count > 0 ? 0 : 1;
}

} // namespace gvtool
