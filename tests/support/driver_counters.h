// The counters the generated switch driver answers for pnum n at clock t
// (the formulas of gvsim.h), so tests predict what a rebuild reads.
#pragma once

#include <cstdint>

namespace gvtest {

struct DriverCounters {
    std::uint64_t in_octets, in_ucast, in_nucast, in_mcast, in_bcast, in_discards, in_errors;
    std::uint64_t out_octets, out_ucast, out_nucast, out_mcast, out_bcast, out_discards, out_errors;
    std::uint64_t last_change;
    std::uint64_t pkts, p64, p65, p128, p256, p512, p1024;
    std::uint64_t undersize, oversize, fragments, jabbers;
};

inline DriverCounters driver_counters(std::uint64_t n, std::uint64_t t) {
    DriverCounters c{};
    c.in_ucast = t * (1000 + n);
    c.in_mcast = t * (20 + n);
    c.in_bcast = t * (5 + n);
    c.in_nucast = c.in_mcast + c.in_bcast;
    c.in_octets = c.in_ucast * 400 + c.in_nucast * 100;
    c.in_discards = t / (50 + n);
    c.in_errors = t / (500 + n);
    c.out_ucast = t * (800 + n);
    c.out_mcast = t * (10 + n);
    c.out_bcast = t * (2 + n);
    c.out_nucast = c.out_mcast + c.out_bcast;
    c.out_octets = c.out_ucast * 500 + c.out_nucast * 90;
    c.out_discards = t / (70 + n);
    c.out_errors = t / (700 + n);
    c.last_change = 100 * n + 7;
    c.pkts = c.in_ucast + c.in_nucast;
    c.p64 = c.pkts / 4;
    c.p65 = c.pkts / 5;
    c.p128 = c.pkts / 8;
    c.p256 = c.pkts / 8;
    c.p512 = c.pkts / 10;
    c.p1024 = c.pkts - c.p64 - c.p65 - c.p128 - c.p256 - c.p512;
    c.undersize = t / (1000 + n);
    c.oversize = t / (1500 + n);
    c.fragments = t / (2000 + n);
    c.jabbers = t / (3000 + n);
    return c;
}

} // namespace gvtest
