// A chassis root with the statistics tree made afresh and the host clock
// held at a time no earlier rebuild has stamped, so the first cached read
// rebuilds.
#pragma once

#include "chassis_rules.h"
#include "gvsim/gvsim.h"
#include "gvutil/stats.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace gvtest {

class StatsRoot {
  public:
    explicit StatsRoot(std::string_view chassis) : root(chassis) { start(); }
    explicit StatsRoot(const gvsim::ChassisDesc &desc) : root(desc) { start(); }
    ~StatsRoot() {
        gvsim_allocator_fail_after(-1);
        gvsim_allocator_fail_nth(0);
        gv_if_stats_regist();
        gvsim_clock_release();
    }
    StatsRoot(const StatsRoot &) = delete;
    StatsRoot &operator=(const StatsRoot &) = delete;

    // The statistics control answers every request with this text.
    void reply_file(std::string_view text) const {
        std::filesystem::remove(root.path() + "/proc/switch/pstat/ctrl");
        root.write_file("proc/switch/pstat/ctrl", text);
    }
    static long records() { return gvsim_live_allocations_from(GV_IF_STATS_SOURCE); }

    ChassisRoot root;
    time_t now = 0;

  private:
    void start() {
        static time_t base = 100000;
        base += 1000;
        now = base;
        gvsim_clock_set(now);
        gv_if_stats_regist();
    }
};

class StatsTest : public ::testing::Test, public StatsRoot {
  protected:
    StatsTest() : StatsRoot("test3") {}
};

// One GPON card of two ports and five logical ports: records (1, 1),
// (1, 2) and pnums 1-14, of which the driver answers 1-7. Rebuilds that
// run the driver's responder stay quick.
inline gvsim::ChassisDesc two_gpon_chassis() {
    gvsim::ChassisDesc desc = shipped_chassis("test3");
    desc.slot_count = 1;
    desc.slots = {};
    desc.slots[0] = {32, 2};
    desc.interlink = 0;
    desc.logical_ports = 5;
    desc.channel_groups = 2;
    gvsim::derive_port_kinds(desc);
    return desc;
}

class SmallStatsTest : public ::testing::Test, public StatsRoot {
  protected:
    SmallStatsTest() : StatsRoot(two_gpon_chassis()) {}
};

} // namespace gvtest
