// stats PORT: every counter of the three tables for one port, as the SNMP
// sub-agent would read them.
#include "commands.h"
#include "port_arg.h"

#include "gvutil/ifname.h"
#include "gvutil/model.h"
#include "gvutil/stats.h"
#include "gvutil/sys.h"

#if GVUTIL_HOST_SIM
#include "gvsim/gvsim.h"
#endif

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace gvtool {

namespace {

// A port as the library keys its records.
struct StatsPort {
    int slot = 0; // real slot; 0 for a slotless box's pnum records
    int port = 0;
    int pnum = 0;
};

bool all_digits(const char *text) {
    return *text != '\0' && std::strspn(text, "0123456789") == std::strlen(text);
}

// "GE1/3" (any known prefix, user slot), "1/3", or an ifindex
// (slot x 1000000 + port; below 1000000 the switch-fabric unit's slot 3).
bool resolve(const char *text, StatsPort &out) {
    int user_slot = 0;
    int port = 0;
    if (all_digits(text)) {
        const long long ifindex = std::strtoll(text, nullptr, 10);
        if (ifindex > 0x7fffffff) {
            return false;
        }
        out.slot = static_cast<int>(ifindex / 1000000);
        out.slot = out.slot == 0 ? 3 : out.slot;
        out.port = static_cast<int>(ifindex % 1000000);
    } else {
        std::string name = text;
        for (char &c : name) {
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        }
        const std::size_t digits = name.find_first_of("0123456789");
        if (digits == std::string::npos ||
            (digits > 0 && get_interface_type_from_prefix(name.substr(0, digits).c_str()) == 0) ||
            !parse_slot_port(name.c_str() + digits, user_slot, port)) {
            return false;
        }
        out.slot = get_real_slot_by_user_slot(user_slot);
        out.port = port;
    }
    if (get_slot_number() == 0) {
        // A slotless box names its ports slot 1; its records are by pnum.
        out.pnum = out.port;
        out.slot = 0;
        return (out.port >= 1 && out.port <= get_port_num(1)) && (user_slot == 1 || user_slot == 0);
    }
    if (check_slot_port(out.slot, out.port) != 0) {
        return false;
    }
    out.pnum = get_port_number_from_slotport(out.slot, out.port);
    return true;
}

unsigned long long counter(const StatsPort &p, int table, int column) {
    const std::string key = "P" + std::to_string(p.slot) + "/" + std::to_string(p.port);
    return gv_if_get_stats_by_type(key.c_str(), table, column);
}

struct PairRow {
    const char *label;
    int table;
    int in_column;
    int out_column; // 0: none
};

constexpr PairRow kInterfaceRows[] = {
    {"octets", 1, 10, 16},   {"unicast packets", 1, 11, 17}, {"non-unicast packets", 1, 12, 18},
    {"discards", 1, 13, 19}, {"errors", 1, 14, 20},          {"unknown protocols", 1, 15, 0},
};

constexpr PairRow kExtendedRows[] = {
    {"multicast packets", 2, 2, 4},
    {"broadcast packets", 2, 3, 5},
    {"HC octets", 2, 6, 10},
    {"HC unicast packets", 2, 7, 11},
    {"HC multicast packets", 2, 8, 12},
    {"HC broadcast packets", 2, 9, 13},
};

struct RmonRow {
    const char *label;
    int column;
};

constexpr RmonRow kRmonRows[] = {
    {"octets", 4},
    {"packets", 5},
    {"broadcast packets", 6},
    {"multicast packets", 7},
    {"drop events", 3},
    {"CRC/align errors", 8},
    {"undersize packets", 9},
    {"oversize packets", 10},
    {"fragments", 11},
    {"jabbers", 12},
    {"collisions", 13},
    {"64 octets", 14},
    {"65-127 octets", 15},
    {"128-255 octets", 16},
    {"256-511 octets", 17},
    {"512-1023 octets", 18},
    {"1024-1518 octets", 19},
};

void print_pairs(const StatsPort &p, const char *title, const PairRow *rows, std::size_t count) {
    std::printf("\n%-30s %20s %20s\n", title, "in", "out");
    for (std::size_t i = 0; i < count; ++i) {
        const PairRow &row = rows[i];
        char label[64];
        if (row.out_column != 0) {
            std::snprintf(label, sizeof label, "%s [%d/%d]", row.label, row.in_column,
                          row.out_column);
            std::printf("  %-28s %20llu %20llu\n", label, counter(p, row.table, row.in_column),
                        counter(p, row.table, row.out_column));
        } else {
            std::snprintf(label, sizeof label, "%s [%d]", row.label, row.in_column);
            std::printf("  %-28s %20llu %20s\n", label, counter(p, row.table, row.in_column), "-");
        }
    }
}

// Two counters a line, in the table's column order of the sizes.
void print_rmon(const StatsPort &p) {
    std::printf("\nRMON Ethernet statistics (table 3)\n");
    constexpr std::size_t kRows = sizeof kRmonRows / sizeof kRmonRows[0];
    for (std::size_t i = 0; i < kRows; i += 2) {
        for (std::size_t j = i; j < i + 2 && j < kRows; ++j) {
            char label[48];
            std::snprintf(label, sizeof label, "%s [%d]", kRmonRows[j].label, kRmonRows[j].column);
            std::printf("  %-24s %18llu", label, counter(p, 3, kRmonRows[j].column));
        }
        std::printf("\n");
    }
}

} // namespace

int run_stats(Args args) {
    if (args.size() != 1) {
        return usage_error("stats");
    }
    StatsPort port;
    if (!resolve(args[0], port)) {
        std::fprintf(stderr, "gvutil: %s: not a port of this chassis\n", args[0]);
        return 1;
    }
#if GVUTIL_HOST_SIM
    // The host chassis' clock is held while the counters are read: one
    // rebuild then answers them all at one moment, however long the
    // driver's responders take.
    gvsim_clock_set(gvsim_now());
#endif
    if (gv_if_stats_regist() == nullptr) {
        std::fprintf(stderr, "gvutil: the statistics tree cannot be made\n");
        return 1;
    }
    if (port.slot == 0) {
        std::printf("port %d (pnum record 0/%d)\n", port.pnum, port.pnum);
    } else {
        std::printf("user %d/%d: real slot %d port %d, pnum %d, ifindex %d\n",
                    get_user_slot_by_real_slot(port.slot), port.port, port.slot, port.port,
                    port.pnum, port.slot * 1000000 + port.port);
    }
    std::printf("last change [1/9] %llu\n", counter(port, 1, 9));
    print_pairs(port, "interface (table 1)", kInterfaceRows,
                sizeof kInterfaceRows / sizeof kInterfaceRows[0]);
    print_pairs(port, "extended interface (table 2)", kExtendedRows,
                sizeof kExtendedRows / sizeof kExtendedRows[0]);
    print_rmon(port);
    return 0;
}

} // namespace gvtool
