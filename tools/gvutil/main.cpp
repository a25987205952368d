// gvutil: the library on the command line, on a real or simulated chassis.
#include "chassis_root.h"
#include "commands.h"

#include "gvutil/model.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <span>

namespace gvtool {

namespace {

constexpr std::array kCommands = {
    Command{"map", "map", "the model and its slot/port map", run_map},
    Command{"pnum", "pnum PNUM", "the slot and port of a flat port number", run_pnum},
    Command{"slotport", "slotport SLOT/PORT", "the flat port number of a user slot/port",
            run_slotport},
    Command{"ifname", "ifname WORD [LIST]",
            "internal names of an operator's list (gigabitethernet 0/1-4,1/2), checked",
            run_ifname},
    Command{"ifuser", "ifuser NAMES", "internal names with user slots (GE3/1 -> GE0/1)",
            run_ifuser},
    Command{"ifreal", "ifreal NAMES", "user-slot names with real slots (GE0/1 -> GE3/1)",
            run_ifreal},
    Command{"ifconfig", "ifconfig NAMES",
            "running-configuration texts, range line and prompt of internal names", run_ifconfig},
    Command{"ports", "ports LIST", "a port list as the shell reads it (1/1-4,0/2,t/1)", run_ports},
    Command{"portset", "portset TEXT", "a port set text read back into a set (1/1-1/4,t/2)",
            run_portset},
    Command{"slots", "slots LIST", "a slot list as the shell reads it (1,2-4)", run_slots},
    Command{"vlans", "vlans LIST", "a VLAN list (1-3,10, br5, default) and its bridge texts",
            run_vlans},
    Command{"onus", "onus LIST [MAX]", "ONU ids from the store's smallest id to MAX (128)",
            run_onus},
    Command{"cos", "cos LIST MAX", "classes of service 0..MAX (0-3,7)", run_cos},
    Command{"vrids", "vrids LIST MAX", "VRRP router ids 1..MAX, first error ends it", run_vrids},
    Command{"ranges", "ranges LIST MAX", "plain values 1..MAX", run_ranges},
    Command{"interfaces", "interfaces LIST MAX", "interface numbers 1..MAX, first error ends it",
            run_interfaces},
    Command{"gids", "gids LIST LIMIT", "group ids 0..LIMIT-1, sorted, each once", run_gids},
    Command{"macs", "macs LIST", "MAC addresses (00:11:22:33:44:55,00-11-...)", run_macs},
    Command{"gems", "gems LIST PER [MAX]",
            "mapper/GEM-port items (1/3-2/5) and their GEM indexes, PER ports a mapper", run_gems},
    Command{"trunk-tags", "trunk-tags WORD...", "trunk distribution keywords (srcmac, srcdstl4)",
            run_trunk_tags},
    Command{"ontids", "ontids N...", "text forms of ONT numbers (1..1024)", run_ontids},
    Command{"onu-init", "onu-init", "create or attach the ONU option store and initialise it",
            run_onu_init},
    Command{"onu-attach", "onu-attach", "create or attach the ONU option store, show its state",
            run_onu_attach},
    Command{"onu-set",
            "onu-set PORT ONU description TEXT | mac XX:XX:XX:XX:XX:XX | unis N | uni U TEXT",
            "set an option of an ONU (PORT: SLOT/PORT or pnum)", run_onu_set},
    Command{"onu-show", "onu-show PORT ONU", "the options of an ONU", run_onu_show},
    Command{"onu-table", "onu-table PORT", "the ONUs of a PON that hold options", run_onu_table},
    Command{"olt-red", "olt-red MODE MASTER PARTNER",
            "pair two PONs (1..32) for redundancy; mode 0 unpairs", run_olt_red},
    Command{"onu-remove", "onu-remove", "remove the store's segment and semaphore", run_onu_remove},
    Command{"idrange", "idrange [--ports|--bridges] LIST",
            "an id list (1-5,8) as a range list: nodes, text, ids, rebuilt", run_range},
    Command{"instances", "instances IDS",
            "per-member instance numbers (2,2,1,1,2) grouped into instances", run_instances},
    Command{"portcmd", "portcmd LIST", "a port list (1/1-4,2/3) written back as command text",
            run_portcmd},
    Command{"idcmd", "idcmd LIST", "an id list (1-3,7) as int, VLAN, ONU and GEM-port text",
            run_idcmd},
    Command{"slotif", "slotif TEXT...", "slot/port range strings (1/3-3/2) or names (GE105)",
            run_slotif},
    Command{"brcmds", "brcmds WORD OPTION TAIL VID:VALUE,...",
            "per-VLAN values grouped into command lines", run_brcmds},
    Command{"portcmds", "portcmds WORD OPTION TAIL PNUM:VALUE,...",
            "per-port values grouped into command lines (both forms)", run_portcmds},
    Command{"vpcmds", "vpcmds WORD OPTION TAIL VID:PNUM:VALUE,...",
            "per-port VLAN values grouped into command lines", run_vpcmds},
    Command{"ber", "ber encode int N | encode string TEXT | decode HEX...",
            "BER octets of an integer or a text; hex octets decoded", run_ber},
    Command{"stats", "stats PORT", "every counter of a port (GE1/3, 1/3 or an ifindex)", run_stats},
    Command{"alarm",
            "alarm [show|leds|raise CAUSE [N]|clear CAUSE [N]|route CAUSE SEV,..|none|"
            "enable SEV|disable SEV]",
            "alarm causes, their LEDs and the active alarms", run_alarm},
    Command{"channel", "channel [-f FLAG] PATH REQUEST...",
            "a request on a /proc channel (or /SLOTn/...), its reply and result", run_channel},
    Command{"loglevel", "loglevel [get TYPE INDEX | set TYPE INDEX PRIORITY [disable]]",
            "kernel log thresholds: all of them, or one read or set", run_loglevel},
    Command{"probe", "probe uptime | config-mem | timezone FILE | ftp-log FILE | host NAME",
            "the system probes", run_probe},
    Command{"portdata", "portdata set FILE PORTS TEXT... | del FILE PORTS | show FILE",
            "a port-data file (PORTS: 1,3,5)", run_portdata},
    Command{"mirror", "mirror", "port mirroring of /proc/switch/mirror", run_mirror},
    Command{"alive", "alive [SLOT...]", "which slots hold a running board", run_alive},
    Command{"octets", "octets HEX | octets -p PNUMS",
            "octet strings as port bitmaps and words, and pnums as octets", run_octets},
};

const Command *find_command(const char *name) {
    for (const auto &command : kCommands) {
        if (std::strcmp(command.name, name) == 0) {
            return &command;
        }
    }
    return nullptr;
}

void print_help(std::FILE *out) {
    std::fprintf(out, "usage: gvutil [--root DIR] [COMMAND [ARGS]]\n\n"
                      "Runs on the chassis root DIR, else on $GVUTIL_ROOT, else on the\n"
                      "embedded default chassis. The default command is map.\n\ncommands:\n");
    for (const auto &command : kCommands) {
        std::fprintf(out, "  %-28s %s\n", command.usage, command.summary);
    }
}

} // namespace

int usage_error(const char *name) {
    const Command *command = find_command(name);
    std::fprintf(stderr, "usage: gvutil %s\n", command != nullptr ? command->usage : name);
    return 2;
}

} // namespace gvtool

int main(int argc, char **argv) {
    std::span<char *const> args(argv + 1, static_cast<std::size_t>(argc - 1));
    const char *root = nullptr;
    if (!args.empty() && (std::strcmp(args[0], "-h") == 0 || std::strcmp(args[0], "--help") == 0)) {
        gvtool::print_help(stdout);
        return 0;
    }
    if (!args.empty() && std::strcmp(args[0], "--root") == 0) {
        if (args.size() < 2) {
            gvtool::print_help(stderr);
            return 2;
        }
        root = args[1];
        args = args.subspan(2);
    }
    const char *name = args.empty() ? "map" : args[0];
    const gvtool::Command *command = gvtool::find_command(name);
    if (command == nullptr) {
        std::fprintf(stderr, "gvutil: unknown command '%s'\n", name);
        gvtool::print_help(stderr);
        return 2;
    }
    if (!gvtool::select_chassis_root(root)) {
        return 1;
    }
    if (init_switch_model_info() != 1) {
        std::fprintf(stderr, "gvutil: cannot read the model record (/proc/shape/ioctrl)\n");
        return 1;
    }
    return command->run(args.empty() ? args : args.subspan(1));
}
