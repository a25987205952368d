// Subcommands of the gvutil tool. Each takes the words after its name and
// answers the process exit status.
#pragma once

#include <span>

namespace gvtool {

using Args = std::span<char *const>;

struct Command {
    const char *name;
    const char *usage;
    const char *summary;
    int (*run)(Args args);
};

int run_map(Args args);
int run_pnum(Args args);
int run_slotport(Args args);
int run_ifname(Args args);
int run_ifuser(Args args);
int run_ifreal(Args args);
int run_ifconfig(Args args);
int run_ports(Args args);
int run_portset(Args args);
int run_slots(Args args);
int run_vlans(Args args);
int run_onus(Args args);
int run_cos(Args args);
int run_vrids(Args args);
int run_ranges(Args args);
int run_interfaces(Args args);
int run_gids(Args args);
int run_macs(Args args);
int run_gems(Args args);
int run_trunk_tags(Args args);
int run_ontids(Args args);
int run_onu_init(Args args);
int run_onu_attach(Args args);
int run_onu_set(Args args);
int run_onu_show(Args args);
int run_onu_table(Args args);
int run_olt_red(Args args);
int run_onu_remove(Args args);
int run_range(Args args);
int run_instances(Args args);
int run_portcmd(Args args);
int run_idcmd(Args args);
int run_slotif(Args args);
int run_brcmds(Args args);
int run_portcmds(Args args);
int run_vpcmds(Args args);
int run_ber(Args args);
int run_stats(Args args);
int run_alarm(Args args);
int run_channel(Args args);
int run_loglevel(Args args);
int run_probe(Args args);
int run_portdata(Args args);
int run_mirror(Args args);
int run_alive(Args args);
int run_octets(Args args);

// Prints "usage: gvutil <usage>" for a command and answers 2.
int usage_error(const char *name);

} // namespace gvtool
