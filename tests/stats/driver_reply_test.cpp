// Driver replies as they come, good and bad, and the request OIDs of the
// three tables. Every case answers counters or 0, never a crash.
#include "stats/stats_fixture.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

using gvtest::StatsTest;

constexpr std::uint64_t kMax = UINT64_MAX;

struct Reply {
    const char *what;
    std::string interface_reply;
    std::string rmon_reply;
    std::uint64_t in_octets, out_octets, octets, collisions, pkts, pkts_64;
};

const Reply kReplies[] = {
    {"empty", "", "", 0, 0, 0, 0, 0, 0},
    {"the driver's lines", "IfInOctets : 5 IfOutOctets : 6\n",
     "DropEvents : 1 Jabbers : 2\nOctets : 7 Collisions : 8\nPkts : 9 Pkts64Octets : 10\n", 5, 6, 7,
     8, 9, 10},
    {"cut after the first value", "IfInOctets : 5", "Octets : 7", 5, 0, 7, 0, 0, 0},
    {"cut after the second name", "IfInOctets : 5 IfOutOctets", "", 5, 0, 0, 0, 0, 0},
    {"cut after the second separator", "IfInOctets : 5 IfOutOctets :", "", 5, 0, 0, 0, 0, 0},
    {"cut after the keyword", "IfInOctets", "Octets ", 0, 0, 0, 0, 0, 0},
    {"no value", "IfInOctets : x IfOutOctets : 6", "", 0, 0, 0, 0, 0, 0},
    {"no keyword", "InOctets : 5 OutOctets : 6", "", 0, 0, 0, 0, 0, 0},
    {"largest value", "IfInOctets : 18446744073709551615 IfOutOctets : 1", "", kMax, 1, 0, 0, 0, 0},
    {"one past the largest", "IfInOctets : 18446744073709551616 IfOutOctets : 1", "", kMax, 1, 0, 0,
     0, 0},
    {"huge", "IfInOctets : 999999999999999999999999999999 IfOutOctets : -999999999999999999999", "",
     kMax, kMax, 0, 0, 0, 0},
    {"negative wraps as %llu reads it", "IfInOctets : -1 IfOutOctets : -18446744073709551615", "",
     kMax, 1, 0, 0, 0, 0},
    {"signs", "IfInOctets : +7 IfOutOctets : +-7", "", 7, 0, 0, 0, 0, 0},
    {"any separator, any blanks", "IfInOctets\t=\n\n9\tIfOutOctets\r~  10", "", 9, 10, 0, 0, 0, 0},
    {"separator glued to the name", "IfInOctets: 5 IfOutOctets: 6", "", 0, 0, 0, 0, 0, 0},
    {"one separator character, then the value", "IfInOctets :5 IfOutOctets :6", "", 5, 6, 0, 0, 0,
     0},
    {"first occurrence", "IfInOctets : 1 IfOutOctets : 2\nIfInOctets : 3 IfOutOctets : 4", "", 1, 2,
     0, 0, 0, 0},
    {"keyword inside a word", "xIfInOctetsy : 1 z : 2", "", 1, 2, 0, 0, 0, 0},
    {"bare Octets and Pkts match inside other names", "",
     "Pkts64Octets : 9 Later : 1\nOctets : 5 Collisions : 6\nPkts : 3 Pkts64Octets : 4", 0, 0, 9, 1,
     9, 1},
    {"not text", "\x01\xfe\xff IfInOctets \x80 12 \x81\x82 \xff 13 \x7f", "\xff\xfe", 12, 13, 0, 0,
     0, 0},
    {"a NUL first", std::string("\0IfInOctets : 5 IfOutOctets : 6", 31), "", 0, 0, 0, 0, 0, 0},
    {"keyword cut at the reply's 8191 bytes",
     std::string(8190, ' ') + "IfInOctets : 5 IfOutOctets : 6", "", 0, 0, 0, 0, 0, 0},
    {"value cut at the reply's 8191 bytes",
     std::string(8160, ' ') + "IfInOctets : 5 IfOutOctets : 61234", "", 5, 61, 0, 0, 0, 0},
};

// The driver answers each command from its own file of the root.
constexpr const char *kReplyFiles = R"(#!/bin/sh
case $1 in interface-snmp*) f=interface ;; *) f=rmon ;; esac
cat "${0%/proc/switch/pstat/ctrl}/var/$f.reply"
)";

TEST_F(StatsTest, DriverRepliesGoodAndBad) {
    reply_file("");
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/1", 1, 10), 0U) << "stamps the cache";
    root.write_program("proc/switch/pstat/ctrl", kReplyFiles);
    for (const Reply &r : kReplies) {
        root.write_file("var/interface.reply", r.interface_reply);
        root.write_file("var/rmon.reply", r.rmon_reply);
        // Read once; the cached getters then answer from the one record.
        EXPECT_EQ(gv_if_get_stats_by_pnum(1, "GPON1/1", 1, 10), r.in_octets) << r.what;
        EXPECT_EQ(records(), 1) << r.what;
        const auto get = [](int table, int column) {
            return gv_if_get_stats_by_type("GE0/1", table, column);
        };
        EXPECT_EQ(get(2, 6), r.in_octets) << r.what << " (high-capacity copy)";
        EXPECT_EQ(get(1, 16), r.out_octets) << r.what;
        EXPECT_EQ(get(2, 10), r.out_octets) << r.what << " (high-capacity copy)";
        EXPECT_EQ(get(3, 4), r.octets) << r.what;
        EXPECT_EQ(get(3, 13), r.collisions) << r.what;
        EXPECT_EQ(get(3, 5), r.pkts) << r.what;
        EXPECT_EQ(get(3, 14), r.pkts_64) << r.what;
    }
}

// Both commands get one reply file's text: "Octets" then matches inside
// "IfInOctets", as the driver's own replies never let it.
TEST_F(StatsTest, OneReplyForBothCommands) {
    reply_file("IfInOctets : 5 IfOutOctets : 6\nIfInUcastPkts : 7 IfOutUcastPkts : 8\n");
    EXPECT_EQ(gv_if_get_stats_by_pnum(1, "GPON1/1", 3, 4), 5U);
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/1", 3, 13), 6U);
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/1", 3, 5), 7U) << "Pkts inside IfInUcastPkts";
    EXPECT_EQ(gv_if_get_stats_by_type("GE0/1", 3, 14), 8U);
}

TEST_F(StatsTest, RmonParseFillsOnlyTheRmonCounters) {
    gv_if_stats_t record;
    std::memset(&record, 0xab, sizeof record);
    const gv_if_stats_t before = record;
    reply_file("");
    EXPECT_EQ(gv_rmon_stats_parse(3, &record), -1);
    EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0);
    EXPECT_EQ(gv_rmon_stats_parse(3, nullptr), -1);
    reply_file("IfInErrors : 1 IfOutErrors : 2\nDropEvents : 3 Jabbers : 4\nFragments : 5\n");
    EXPECT_EQ(gv_rmon_stats_parse(3, &record), 0);
    EXPECT_EQ(record.drop_events, 3U);
    EXPECT_EQ(record.jabbers, 4U);
    EXPECT_EQ(record.fragments, 5U);
    EXPECT_EQ(record.in_errors, before.in_errors);
    EXPECT_EQ(record.octets, before.octets) << "a missing keyword keeps its fields";
    EXPECT_EQ(record.pkts, before.pkts);
    std::filesystem::remove(root.path() + "/proc/switch/pstat/ctrl");
    EXPECT_EQ(gv_rmon_stats_parse(3, &record), -1) << "no driver entry";
}

struct OidCase {
    std::vector<oid> name;
    int result, index, table, column;
};

std::vector<oid> with(std::vector<oid> prefix, std::initializer_list<oid> tail) {
    prefix.insert(prefix.end(), tail);
    return prefix;
}

TEST(MonitorOid, ClassifiesTheThreeTables) {
    const std::vector<oid> rmon = {1, 3, 6, 1, 2, 1, 16, 1, 1, 1};
    const std::vector<oid> ift = {1, 3, 6, 1, 2, 1, 2, 2, 1};
    const std::vector<oid> ifx = {1, 3, 6, 1, 2, 1, 31, 1, 1, 1};
    const OidCase cases[] = {
        {with(rmon, {3, 7}), 0, 7, 3, 3},
        {with(rmon, {19, 7}), 0, 7, 3, 19},
        {with(rmon, {2, 7}), -1, 0, 0, 0},
        {with(rmon, {20, 7}), -1, 0, 0, 0},
        {with(rmon, {4}), 0, 0, 3, 4},
        {with(ift, {9, 5}), 0, 5, 1, 9},
        {with(ift, {20, 5, 99}), 0, 5, 1, 20},
        {with(ift, {8, 5}), -1, 0, 0, 0},
        {with(ift, {21, 5}), -1, 0, 0, 0},
        {with(ifx, {2, 1000003}), 0, 1000003, 2, 2},
        {with(ifx, {15, 4}), 0, 4, 2, 15},
        {with(ifx, {1, 4}), -1, 0, 0, 0},
        {with(ifx, {16, 4}), -1, 0, 0, 0},
        {with(ifx, {6}), 0, 0, 2, 6},
        {with(rmon, {}), -1, 0, 0, 0},
        {with(rmon, {3, 7, 1}), -1, 0, 0, 0},
        {{}, -1, 0, 0, 0},
        {std::vector<oid>(128, 1), -1, 0, 0, 0},
        {{1, 3, 6, 1, 2, 1, 16, 1, 1, 2, 3, 7}, -1, 0, 0, 0},
        {{1, 3, 6, 1, 2, 1, 2, 2, 1, 10, 5, 6}, 0, 5, 1, 10},
    };
    for (const OidCase &c : cases) {
        int index = 0;
        int table = 0;
        int column = 0;
        EXPECT_EQ(gv_is_rmon_monitor_oid(c.name.data(), c.name.size(), &index, &table, &column),
                  c.result)
            << c.name.size() << " sub-identifiers";
        EXPECT_EQ(index, c.index);
        EXPECT_EQ(table, c.table);
        EXPECT_EQ(column, c.column);
    }
    if constexpr (sizeof(oid) > 4) {
        const auto wide = with(ifx, {3, static_cast<oid>(0x100000005ULL)});
        int index = 0;
        EXPECT_EQ(gv_is_rmon_monitor_oid(wide.data(), wide.size(), &index, nullptr, nullptr), 0);
        EXPECT_EQ(index, 5) << "the low 32 bits";
    }
    const auto name = with(rmon, {5, 2});
    EXPECT_EQ(gv_is_rmon_monitor_oid(name.data(), name.size(), nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(gv_is_rmon_monitor_oid(nullptr, 12, nullptr, nullptr, nullptr), -1);
}

TEST(MonitorOid, DumpPrintsTheLabelAndTheSubIdentifiers) {
    const oid name[] = {1, 3, 6, 1, 2, 1, 16, 1, 1, 1, 4, 4294967295UL};
    const struct {
        const char *label;
        const oid *name;
        std::size_t length;
        const char *printed;
    } cases[] = {
        {"request", name, 12, "request 1.3.6.1.2.1.16.1.1.1.4.-1\n"},
        {"one", name, 1, "one 1\n"},
        {"none", name, 0, "none \n"},
        {nullptr, name, 2, "(null) 1.3\n"},
        {"", nullptr, 5, " \n"},
    };
    for (const auto &c : cases) {
        testing::internal::CaptureStderr();
        gv_display_oid_dump(c.label, c.name, c.length);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), c.printed);
    }
}

} // namespace
