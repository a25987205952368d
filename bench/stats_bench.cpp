// One full statistics rebuild of a fully fitted K7100 (every port of every
// line card, both driver commands per record), split into the channel
// exchanges and the parsing of the replies they bring.
//
//   cmake --build --preset default --target stats_bench
//   ./build/default/bench/stats_bench
#include "chassis_rules.h"
#include "gvsim/gvsim.h"
#include "gvutil/model.h"
#include "gvutil/stats.h"
#include "stats/driver_reply.h"
#include "support/chassis_root.h"

#include <benchmark/benchmark.h>

#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

// The K7100 with its three empty slots fitted with IU-GEPON8 cards.
gvsim::ChassisDesc fully_fitted_k7100() {
    gvsim::ChassisDesc desc = gvtest::shipped_chassis("k7100");
    for (auto &slot : desc.slots) {
        if (&slot - desc.slots.data() < desc.slot_count && slot.card_type == 0) {
            slot = {13, 8};
        }
    }
    gvsim::derive_port_kinds(desc);
    return desc;
}

// The driver's pnum behind every record of a rebuild, in its order.
std::vector<int> rebuild_pnums() {
    std::vector<int> pnums;
    const eqm_global_info *eqm = EqmGlobalInfo;
    for (int slot = get_start_slot(); eqm != nullptr && slot <= eqm->slot_max; ++slot) {
        for (int port = 1; port <= _get_max_port_by_type(eqm->card_type[slot], slot); ++port) {
            pnums.push_back(get_port_number_from_slotport(slot, port));
        }
    }
    for (int pnum = 1; pnum <= get_port_num(1) + 12; ++pnum) {
        pnums.push_back(pnum);
    }
    return pnums;
}

struct Replies {
    std::string interface_reply;
    std::string rmon_reply;
};

Replies capture(int pnum) {
    char command[32];
    char *reply = nullptr;
    Replies captured;
    std::snprintf(command, sizeof command, "interface-snmp %d", pnum);
    swch_sioctl("/proc/switch/pstat/ctrl", command, &reply, 0);
    captured.interface_reply = reply;
    std::snprintf(command, sizeof command, "rmon-snmp %d", pnum);
    swch_sioctl("/proc/switch/pstat/ctrl", command, &reply, 0);
    captured.rmon_reply = reply;
    return captured;
}

void FullRebuild(benchmark::State &state) {
    gvtest::ChassisRoot root{fully_fitted_k7100()};
    gvsim_clock_set(1700000000);
    gv_if_stats_regist();
    for (auto _ : state) {
        gvsim_clock_advance(5);
        benchmark::DoNotOptimize(gv_if_get_stats_by_ifindex(12000008, 3, 5));
    }
    state.counters["records"] =
        static_cast<double>(gvsim_live_allocations_from(GV_IF_STATS_SOURCE));
    gv_if_stats_regist();
    gvsim_clock_release();
}
BENCHMARK(FullRebuild)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

// The same exchanges with nothing parsed: where a rebuild's time goes.
void ExchangesOfARebuild(benchmark::State &state) {
    gvtest::ChassisRoot root{fully_fitted_k7100()};
    gvsim_clock_set(1700000000);
    const std::vector<int> pnums = rebuild_pnums();
    for (auto _ : state) {
        for (const int pnum : pnums) {
            benchmark::DoNotOptimize(capture(pnum));
        }
    }
    state.counters["exchanges"] = static_cast<double>(2 * pnums.size());
    gvsim_clock_release();
}
BENCHMARK(ExchangesOfARebuild)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

// Parsing a port's two replies, captured from the driver once.
void ParsePortReplies(benchmark::State &state) {
    std::vector<Replies> replies;
    {
        gvtest::ChassisRoot root{fully_fitted_k7100()};
        gvsim_clock_set(1700000000);
        for (const int pnum : rebuild_pnums()) {
            replies.push_back(capture(pnum));
        }
        gvsim_clock_release();
    }
    std::size_t next = 0;
    gv_if_stats_t record;
    for (auto _ : state) {
        const Replies &r = replies[next];
        next = next + 1 == replies.size() ? 0 : next + 1;
        std::memset(&record, 0, sizeof record);
        gv::stats::scan_interface_reply(r.interface_reply.c_str(), record);
        gv::stats::scan_rmon_reply(r.rmon_reply.c_str(), record);
        benchmark::DoNotOptimize(record);
    }
    state.counters["ports"] = static_cast<double>(replies.size());
}
BENCHMARK(ParsePortReplies);

// The same two replies read the plain way, with sscanf and the same
// formats, for comparison.
void sscanf_pair(const char *reply, const char *keyword, std::uint64_t &a, std::uint64_t &b) {
    if (const char *at = std::strstr(reply, keyword)) {
        unsigned long long x = a;
        unsigned long long y = b;
        std::sscanf(at, "%*s %*c %llu %*s %*c %llu", &x, &y);
        a = x;
        b = y;
    }
}

void sscanf_single(const char *reply, const char *keyword, std::uint64_t &a) {
    if (const char *at = std::strstr(reply, keyword)) {
        unsigned long long x = a;
        std::sscanf(at, "%*s %*c %llu", &x);
        a = x;
    }
}

void ParsePortRepliesWithSscanf(benchmark::State &state) {
    gvtest::ChassisRoot root{fully_fitted_k7100()};
    gvsim_clock_set(1700000000);
    const Replies r = capture(40);
    gvsim_clock_release();
    gv_if_stats_t x{};
    for (auto _ : state) {
        const char *i = r.interface_reply.c_str();
        const char *m = r.rmon_reply.c_str();
        sscanf_pair(i, "IfInOctets", x.in_octets, x.out_octets);
        sscanf_pair(i, "IfInUcastPkts", x.in_ucast_pkts, x.out_ucast_pkts);
        sscanf_pair(i, "IfInMcastPkts", x.in_multicast_pkts, x.out_multicast_pkts);
        sscanf_pair(i, "IfInBcastPkts", x.in_broadcast_pkts, x.out_broadcast_pkts);
        sscanf_pair(i, "IfInNUcastPkts", x.in_nucast_pkts, x.out_nucast_pkts);
        sscanf_pair(i, "IfInDiscards", x.in_discards, x.out_discards);
        sscanf_pair(i, "IfInErrors", x.in_errors, x.out_errors);
        sscanf_single(i, "IfLastChange", x.last_change);
        sscanf_pair(m, "DropEvents", x.drop_events, x.jabbers);
        sscanf_pair(m, "Octets", x.octets, x.collisions);
        sscanf_pair(m, "Pkts", x.pkts, x.pkts_64_octets);
        sscanf_pair(m, "BroadcastPkts", x.broadcast_pkts, x.pkts_65_to_127_octets);
        sscanf_pair(m, "MulticastPkts", x.multicast_pkts, x.pkts_128_to_255_octets);
        sscanf_pair(m, "CRCAlignErrors", x.crc_align_errors, x.pkts_256_to_511_octets);
        sscanf_pair(m, "UndersizePkts", x.undersize_pkts, x.pkts_512_to_1023_octets);
        sscanf_pair(m, "OversizePkts", x.oversize_pkts, x.pkts_1024_to_1518_octets);
        sscanf_single(m, "Fragments", x.fragments);
        benchmark::DoNotOptimize(x);
    }
}
BENCHMARK(ParsePortRepliesWithSscanf);

} // namespace
