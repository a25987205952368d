// The statistics tree: every column of the three tables, the 5-second
// cache, the keys each getter looks up, full rebuilds over the chassis and
// what the tracked allocator holds after each.
#include "stats/stats_fixture.h"
#include "support/driver_counters.h"

#include "chassis_rules.h"
#include "gvutil/model.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using gvtest::SmallStatsTest;
using gvtest::StatsTest;

// Every counter of port n is n * 100 + its number here, so a counter read
// into the wrong field shows.
constexpr const char *kNumberedDriver = R"(#!/bin/sh
set -f
set -- $1
n=$2
p() { echo "$1 : ${n}$2 $3 : ${n}$4"; }
case $1 in
interface-snmp)
    p IfInOctets 01 IfOutOctets 02
    p IfInUcastPkts 03 IfOutUcastPkts 04
    p IfInNUcastPkts 05 IfOutNUcastPkts 06
    p IfInMcastPkts 07 IfOutMcastPkts 08
    p IfInBcastPkts 09 IfOutBcastPkts 10
    p IfInDiscards 11 IfOutDiscards 12
    p IfInErrors 13 IfOutErrors 14
    echo "IfLastChange : ${n}15" ;;
rmon-snmp)
    p DropEvents 21 Jabbers 22
    p Octets 23 Collisions 24
    p Pkts 25 Pkts64Octets 26
    p BroadcastPkts 27 Pkts65to127Octets 28
    p MulticastPkts 29 Pkts128to255Octets 30
    p CRCAlignErrors 31 Pkts256to511Octets 32
    p UndersizePkts 33 Pkts512to1023Octets 34
    p OversizePkts 35 Pkts1024to1518Octets 36
    echo "Fragments : ${n}37" ;;
esac
)";

struct Column {
    int table;
    int column;
    int number; // of the counter in kNumberedDriver; 0: the column answers 0
};

// Both ends of every table, with the first column outside each end.
constexpr Column kColumns[] = {
    {1, 8, 0},   {1, 9, 15},  {1, 10, 1},  {1, 11, 3},  {1, 12, 5},  {1, 13, 11}, {1, 14, 13},
    {1, 15, 0},  {1, 16, 2},  {1, 17, 4},  {1, 18, 6},  {1, 19, 12}, {1, 20, 14}, {1, 21, 0},
    {2, 1, 0},   {2, 2, 7},   {2, 3, 9},   {2, 4, 8},   {2, 5, 10},  {2, 6, 1},   {2, 7, 3},
    {2, 8, 7},   {2, 9, 9},   {2, 10, 2},  {2, 11, 4},  {2, 12, 8},  {2, 13, 10}, {2, 14, 0},
    {3, 2, 0},   {3, 3, 21},  {3, 4, 23},  {3, 5, 25},  {3, 6, 27},  {3, 7, 29},  {3, 8, 31},
    {3, 9, 33},  {3, 10, 35}, {3, 11, 37}, {3, 12, 22}, {3, 13, 24}, {3, 14, 26}, {3, 15, 28},
    {3, 16, 30}, {3, 17, 32}, {3, 18, 34}, {3, 19, 36}, {3, 20, 0},  {0, 10, 0},  {4, 3, 0},
};

class Columns : public StatsTest {
  protected:
    Columns() { root.write_program("proc/switch/pstat/ctrl", kNumberedDriver); }
};

std::uint64_t numbered(int pnum, int number) {
    return number == 0 ? 0 : static_cast<std::uint64_t>(pnum) * 100 + number;
}

TEST_F(Columns, EveryColumnOfEachGetter) {
    struct Port {
        const char *what;
        int pnum; // the driver's port behind the record
        std::uint64_t (*get)(int table, int column);
    };
    const Port ports[] = {
        {"GPON1/3 by name", 3,
         [](int t, int c) { return gv_if_get_stats_by_type("GPON1/3", t, c); }},
        {"ifindex 2000005", 13,
         [](int t, int c) { return gv_if_get_stats_by_ifindex(2000005, t, c); }},
        {"ifindex 7, slot 3", 23, [](int t, int c) { return gv_if_get_stats_by_ifindex(7, t, c); }},
        {"CG1 by pnum", 35, [](int t, int c) { return gv_if_get_stats_all(35, "CG1", t, c); }},
        {"XE3/16 by name", 32,
         [](int t, int c) { return gv_if_get_stats_all(32, "XE3/16", t, c); }},
    };
    for (const Port &port : ports) {
        for (const Column &col : kColumns) {
            EXPECT_EQ(port.get(col.table, col.column), numbered(port.pnum, col.number))
                << port.what << ", table " << col.table << " column " << col.column;
        }
    }
    // Read fresh for the pnum, whatever the cache holds; the one record is
    // what the cached getters see until the next rebuild.
    EXPECT_EQ(gv_if_get_stats_by_pnum(9, "EPON2/1", 1, 10), numbered(9, 1));
    for (const Column &col : kColumns) {
        EXPECT_EQ(gv_if_get_stats_by_type("GE0/9", col.table, col.column), numbered(9, col.number))
            << "table " << col.table << " column " << col.column;
    }
}

// Slot 0 of a name is the pnum records' slot, not the switch-fabric unit:
// names are looked up as they read, ifindexes below 1000000 as slot 3.
TEST_F(Columns, KeysEachGetterLooksUp) {
    const struct {
        const char *what;
        std::uint64_t got;
        int pnum; // 0: no record
    } rows[] = {
        {"ifindex 0 is slot 3 port 0", gv_if_get_stats_by_ifindex(0, 1, 10), 0},
        {"ifindex 1 is XE3/1", gv_if_get_stats_by_ifindex(1, 1, 10), 17},
        {"ifindex 999999 keeps only port % 10000", gv_if_get_stats_by_ifindex(999999, 1, 10), 0},
        {"ifindex 3000016", gv_if_get_stats_by_ifindex(3000016, 1, 10), 32},
        {"ifindex 3000017: no such port", gv_if_get_stats_by_ifindex(3000017, 1, 10), 0},
        {"ifindex 1010003 is 1/3", gv_if_get_stats_by_ifindex(1010003, 1, 10), 3},
        {"negative ifindex", gv_if_get_stats_by_ifindex(-5, 1, 10), 0},
        {"GE0/5 is pnum 5", gv_if_get_stats_by_type("GE0/5", 1, 10), 5},
        {"GE0/44, the last pnum read", gv_if_get_stats_by_type("GE0/44", 1, 10), 44},
        {"GE0/45 is not read", gv_if_get_stats_by_type("GE0/45", 1, 10), 0},
        {"GPON1/9: no such port", gv_if_get_stats_by_type("GPON1/9", 1, 10), 0},
        {"empty name", gv_if_get_stats_by_type("", 1, 10), 0},
        {"no name", gv_if_get_stats_by_type(nullptr, 1, 10), 0},
        {"pnum 0", gv_if_get_stats_all(0, "CG1", 1, 10), 0},
        {"GE1/2 with any pnum", gv_if_get_stats_all(40, "GE1/2", 1, 10), 2},
        {"no name and a pnum", gv_if_get_stats_all(40, nullptr, 1, 10), 0},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(row.got, numbered(row.pnum, row.pnum == 0 ? 0 : 1)) << row.what;
    }
}

// The generated driver's counters grow with the clock; the cache keeps the
// values of its last rebuild for 5 seconds.
TEST_F(SmallStatsTest, CacheHoldsForFiveSeconds) {
    const auto at = [](time_t t) {
        return gvtest::driver_counters(2, static_cast<std::uint64_t>(t));
    };
    EXPECT_EQ(gv_if_get_stats_by_type("GPON1/2", 1, 10), at(now).in_octets);
    gvsim_clock_advance(4);
    EXPECT_EQ(gv_if_get_stats_by_type("GPON1/2", 1, 10), at(now).in_octets);
    EXPECT_EQ(gv_if_get_stats_by_ifindex(1000002, 3, 5), at(now).pkts);
    gvsim_clock_advance(1);
    EXPECT_EQ(gv_if_get_stats_by_ifindex(1000002, 3, 5), at(now + 5).pkts);
    EXPECT_GT(gv_if_get_stats_by_type("GPON1/2", 1, 10), at(now).in_octets);
    // A clock set back counts as expired.
    gvsim_clock_set(now - 100);
    EXPECT_EQ(gv_if_get_stats_all(3, "CG1", 1, 17),
              gvtest::driver_counters(3, now - 100).out_ucast);
}

// gv_if_get_stats_by_pnum keeps one record: the cached getters see only
// that one until their next rebuild is due.
TEST_F(SmallStatsTest, ReadByPnumEmptiesTheCache) {
    const auto c1 = gvtest::driver_counters(1, static_cast<std::uint64_t>(now));
    const auto c2 = gvtest::driver_counters(2, static_cast<std::uint64_t>(now));
    EXPECT_EQ(gv_if_get_stats_by_type("GPON1/1", 1, 10), c1.in_octets);
    EXPECT_EQ(records(), 2 + 14);
    EXPECT_EQ(gv_if_get_stats_by_pnum(0, "GPON1/2", 1, 10), 0U);
    EXPECT_EQ(gv_if_get_stats_by_type("GPON1/1", 1, 10), c1.in_octets) << "pnum 0 keeps the tree";
    EXPECT_EQ(gv_if_get_stats_by_pnum(2, "GPON1/2", 2, 6), c2.in_octets);
    EXPECT_EQ(records(), 1);
    EXPECT_EQ(gv_if_get_stats_by_type("GPON1/2", 1, 10), 0U);
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/2", 2, 10), c2.out_octets);
    // A name that does not parse answers 0, after the tree was renewed.
    EXPECT_EQ(gv_if_get_stats_by_pnum(1, "", 1, 10), 0U);
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/2", 2, 10), 0U);
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/1", 1, 10), c1.in_octets);
    gvsim_clock_advance(5);
    EXPECT_EQ(gv_if_get_stats_by_type("GPON1/1", 1, 11),
              gvtest::driver_counters(1, now + 5).in_ucast);
    EXPECT_EQ(records(), 2 + 14);
}

// Every slot of the K7100 (line cards of types 12, 13, 14 and 19, the
// fabric's uplinks of type 22, empty slots) and every pnum record.
class K7100 : public ::testing::Test, public gvtest::StatsRoot {
  protected:
    K7100() : StatsRoot("k7100") {}
};

TEST_F(K7100, FullRebuildOverEverySlotAndPnum) {
    const long start = records();
    const auto t = static_cast<std::uint64_t>(now);
    int slot_records = 0;
    for (int slot = 1; slot <= 12; ++slot) {
        const int ports = root.desc().slots[static_cast<std::size_t>(slot - 1)].ports;
        for (int port = 1; port <= ports + 1; ++port) {
            const std::string name = "GE" + std::to_string(slot) + "/" + std::to_string(port);
            const bool fitted = port <= ports;
            const auto c = gvtest::driver_counters(
                static_cast<std::uint64_t>(get_port_number_from_slotport(slot, port)), t);
            SCOPED_TRACE(name);
            EXPECT_EQ(gv_if_get_stats_by_type(name.c_str(), 1, 16), fitted ? c.out_octets : 0);
            EXPECT_EQ(gv_if_get_stats_by_type(name.c_str(), 3, 19), fitted ? c.p1024 : 0);
            EXPECT_EQ(gv_if_get_stats_by_ifindex(slot * 1000000 + port, 2, 13),
                      fitted ? c.out_bcast : 0);
            slot_records += fitted ? 1 : 0;
        }
    }
    EXPECT_EQ(slot_records, get_port_num(1));
    // Pnums 1 to physical + 12; the driver answers nothing past the
    // chassis' 73 pnums, which leaves those records 0.
    const int last = get_port_num(1) + 12;
    for (int pnum = 1; pnum <= last + 1; ++pnum) {
        const std::string name = "GE0/" + std::to_string(pnum);
        const auto c = gvtest::driver_counters(static_cast<std::uint64_t>(pnum), t);
        const bool answered = pnum <= get_port_num(0);
        EXPECT_EQ(gv_if_get_stats_by_type(name.c_str(), 1, 9), answered ? c.last_change : 0)
            << name;
        EXPECT_EQ(gv_if_get_stats_by_type(name.c_str(), 3, 12), answered ? c.jabbers : 0) << name;
    }
    EXPECT_EQ(records() - start, slot_records + last);
}

// Only the counted card types get records per slot; the pnum records
// cover every port.
TEST(StatsCards, SlotRecordsForCountedCardTypesOnly) {
    const std::vector<int> counted = {12, 13, 14, 16, 17, 18, 19, 20, 21,
                                      22, 23, 24, 25, 27, 28, 32, 33, 34};
    for (int card = 1; card <= 36; ++card) {
        gvsim::ChassisDesc desc = gvtest::shipped_chassis("test3");
        desc.slots[0].card_type = card;
        gvsim::derive_port_kinds(desc);
        const gvtest::StatsRoot test(desc);
        test.reply_file("IfInOctets : 5 IfOutOctets : 6\n");
        const bool is_counted = std::find(counted.begin(), counted.end(), card) != counted.end();
        EXPECT_EQ(gv_if_get_stats_by_type("GE1/8", 1, 10), is_counted ? 5U : 0U) << "card " << card;
        EXPECT_EQ(gv_if_get_stats_by_type("GE0/8", 1, 16), 6U) << "card " << card;
        EXPECT_EQ(gvtest::StatsRoot::records(), (is_counted ? 8 : 0) + 8 + 16 + 44)
            << "card " << card;
    }
}

// Without a chassis root there is no equipment record and no driver: the
// rebuild keeps twelve empty pnum records.
TEST(StatsWithoutRoot, TwelveEmptyPnumRecords) {
    gvtest::unload_model();
    static time_t base = 50000;
    gvsim_clock_set(base += 1000);
    gv_if_stats_regist();
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/12", 1, 10), 0U);
    EXPECT_EQ(gvtest::StatsRoot::records(), 12);
    EXPECT_EQ(gv_if_get_stats_by_pnum(1, "GE1/1", 1, 10), 0U);
    gv_if_stats_regist();
    EXPECT_EQ(gvtest::StatsRoot::records(), 0);
    gvsim_clock_release();
}

// What the tracked allocator holds: the records of the last build, and
// nothing once the tree is made afresh. A refused record is skipped alone.
TEST_F(StatsTest, RecordsAreFreedAndRefusalsSkipOnlyTheirRecord) {
    reply_file("IfInOctets : 5 IfOutOctets : 6\nDropEvents : 7 Jabbers : 8\n");
    const long start = records();
    const long trees = gvsim_live_trees();
    const long total = 32 + 44;
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(gv_if_get_stats_by_ifindex(1000001, 1, 10), 5U);
        EXPECT_EQ(records() - start, total);
        gvsim_clock_advance(5);
    }
    ASSERT_NE(gv_if_stats_regist(), nullptr);
    EXPECT_EQ(records(), 0);
    EXPECT_EQ(gvsim_live_trees(), trees);

    // Build order: GPON1/1-8, EPON2/1-8, XE3/1-16, then pnums 1-44.
    auto key_of = [](int nth) {
        const int slot = nth <= 8 ? 1 : nth <= 16 ? 2 : nth <= 32 ? 3 : 0;
        const int before[] = {32, 0, 8, 16};
        return "GE" + std::to_string(slot) + "/" + std::to_string(nth - before[slot]);
    };
    for (const int refused : {1, 2, 16, 17, 32, 33, 75, 76}) {
        gvsim_clock_advance(5);
        gvsim_allocator_fail_nth(refused);
        EXPECT_EQ(gv_if_get_stats_by_type(key_of(refused).c_str(), 3, 3), 0U) << refused;
        EXPECT_EQ(records(), total - 1) << refused;
        for (int nth = 1; nth <= total; ++nth) {
            if (nth != refused) {
                ASSERT_EQ(gv_if_get_stats_by_type(key_of(nth).c_str(), 3, 3), 7U)
                    << key_of(nth) << " with " << refused << " refused";
            }
        }
    }
    gvsim_clock_advance(5);
    gvsim_allocator_fail_after(0);
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/1", 1, 10), 0U);
    EXPECT_EQ(records(), 0);
    gvsim_allocator_fail_after(-1);
    // A tree that cannot be made answers 0 until the next rebuild is due.
    gvsim_clock_advance(5);
    gvsim_tree_fail_creates(1);
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/1", 1, 10), 0U);
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/1", 1, 10), 0U);
    gvsim_clock_advance(5);
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/1", 1, 10), 5U);
    EXPECT_EQ(records(), total);
    EXPECT_EQ(gv_if_get_stats_by_pnum(4, "GE1/4", 1, 16), 6U);
    EXPECT_EQ(records(), 1);
    gvsim_allocator_fail_nth(1);
    EXPECT_EQ(gv_if_get_stats_by_pnum(4, "GE1/4", 1, 16), 0U);
    EXPECT_EQ(records(), 0);
}

} // namespace
