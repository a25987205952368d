// Configuration entries that share a value printed as one command line each.
#include "gvutil/cli.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"
#include "support/heap_watch.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace gvtest;

TEST(BridgeValueCommands, PairsWithOneValueShareALine) {
    // Null option and tail read as empty texts.
    for (const auto &[option, tail, printed] : std::vector<std::array<const char *, 3>>{
             {"priority", "end", "sw 10-11,13 priority 1 end\nsw 12,1 priority 2 end\n"},
             {nullptr, nullptr, "sw 10-11,13 1 \nsw 12,1 2 \n"}}) {
        // A pair whose VLAN is 0 holds none: it neither starts nor joins a line.
        std::vector<br_info_t> pairs = {{0, 2}, {10, 1}, {11, 1}, {12, 2}, {0, 2}, {13, 1}, {1, 2}};
        CliCapture capture;
        EXPECT_EQ(get_br_info_cmds(pairs.data(), 7, "sw", option, tail, capture.ctx()), 2);
        EXPECT_EQ(capture.text(), printed);
        for (const br_info_t &pair : pairs) {
            EXPECT_EQ(pair.br_id, 0) << "every VLAN given up";
        }
    }
    std::vector<br_info_t> lone = {{1, 7}, {5, 8}};
    CliCapture capture;
    EXPECT_EQ(get_br_info_cmds(lone.data(), 2, "vlan", "", "", capture.ctx()), 2);
    EXPECT_EQ(capture.text(), "vlan default 7 \nvlan br5 8 \n");
    // More VLANs than a line collects go on in another line with the value.
    std::vector<br_info_t> many;
    for (int id = 1; id <= 5000; ++id) {
        many.push_back({static_cast<uint16_t>(id), 3});
    }
    EXPECT_EQ(get_br_info_cmds(many.data(), 5000, "vlan", "", "", nullptr), 2);
}

TEST(PortValueCommands, ValueFirstAndPortsFirstLines) {
    ChassisRoot root{"test3"}; // pnums 1-8 GPON1/1-8, 9-16 EPON2/1-8
    const auto value_first = get_info_port_cmds;
    const auto ports_first = get_port_info_cmds;
    for (const auto &[print, option, printed] :
         std::vector<std::tuple<decltype(value_first), const char *, const char *>>{
             {value_first, "", "st 5 GPON1/1-GPON1/2,EPON2/1 end\nst -1 GPON1/3 end\n"},
             {value_first, "lv", "st 5 lv GPON1/1-GPON1/2,EPON2/1 end\nst -1 lv GPON1/3 end\n"},
             {ports_first, "", "st GPON1/1-GPON1/2,EPON2/1 5 end\nst GPON1/3 end\n"},
             {ports_first, "lv", "st GPON1/1-GPON1/2,EPON2/1 lv 5 end\nst GPON1/3 lv end\n"}}) {
        std::vector<port_info_t> entries = {
            {1, 5, 0}, {2, 5, 0}, {3, -1, 0}, {9, 5, 0}, {GV_PORT_INFO_TAKEN, 7, 0}};
        CliCapture capture;
        EXPECT_EQ(print(entries.data(), 5, "st", option, "end", capture.ctx()), 2);
        EXPECT_EQ(capture.text(), printed);
    }
    // Entries past those a port set holds are not read.
    std::vector<port_info_t> entries(GV_PORTSET_MAX_PORT, port_info_t{1, 5, 0});
    entries.push_back({2, 6, 0});
    EXPECT_EQ(
        get_port_info_cmds(entries.data(), static_cast<int>(entries.size()), "st", "", "", nullptr),
        1);
    EXPECT_EQ(entries.back().port, 2) << "left untaken";
}

TEST(VlanPortCommands, PortsWithTheSameVlansAndValueShareALine) {
    ChassisRoot root{"test3"};
    HeapWatch heap;
    std::vector<vp_info_t> entries = {
        {10, 1, 0, 5}, {11, 1, 0, 5}, {12, 1, 0, GV_PVSI_NO_VALUE}, {10, 2, 0, 5},
        {11, 2, 0, 5}, {7, 3, 0, 5},  {99, GV_PVSI_TAKEN, 0, 5}};
    CliCapture capture;
    HeapWatch::fail_after(0); // no group table to be had: no line
    EXPECT_EQ(get_vp_info_cmds(entries.data(), 7, "sw", "tr", "end", capture.ctx()), 0);
    HeapWatch::never_fail();
    EXPECT_EQ(get_vp_info_cmds(entries.data(), 7, "sw", "tr", "end", capture.ctx()), 3);
    EXPECT_EQ(capture.text(), "sw 10-11 GPON1/1-GPON1/2 tr 5 end\nsw br12 GPON1/1 tr end\n"
                              "sw br7 GPON1/3 tr 5 end\n");
    EXPECT_EQ(heap.held(), 0);
}

TEST(VlanPortCommands, TableTextAndLineAreBounded) {
    ChassisRoot root{"test3"};
    std::vector<vp_info_t> entries;
    for (uint16_t id = 1000; id < 1400; id += 2) {
        entries.push_back({id, 1, 0, 5}); // 200 VLANs, 999 characters as text
    }
    CliCapture capture;
    EXPECT_EQ(get_vp_info_cmds(entries.data(), 200, "sw", "", "", capture.ctx()), 1);
    EXPECT_EQ(capture.text().substr(0, 18), "sw 1000,1002,1004,");
    EXPECT_EQ(capture.text().size(), 255u + 1);
    // One group per value: the 257th does not fit the table.
    entries.clear();
    for (uint16_t value = 0; value <= GV_PVSI_GROUPS; ++value) {
        entries.push_back({10, 1, 0, value});
    }
    EXPECT_EQ(get_vp_info_cmds(entries.data(), GV_PVSI_GROUPS + 1, "sw", "", "", nullptr),
              GV_PVSI_GROUPS);
    EXPECT_EQ(entries.back().port, 1) << "the last entry made no group";
}

TEST(SelectPortFromPvsi, TakesGroupsWithTheSameTextAndValue) {
    std::vector<pvsi_info_t> groups = {
        {GV_PVSI_TAKEN, "1-3", 5}, {4, "1-3", 5}, {6, "1-3", 6}, {7, "1-4", 5}, {9, "1-3", 5}};
    uint32_t out[8] = {};
    pvsi_info_t current{};
    std::vector<std::string> taken;
    for (int n; (n = select_port_from_pvsi(groups.data(), 5, out, &current)) > 0;) {
        taken.push_back(shown(out, n) + " " + current.br_text + " " +
                        std::to_string(current.value) + " " + std::to_string(current.port));
    }
    // The current group's value and text are set, not its port.
    EXPECT_EQ(taken, (std::vector<std::string>{"4 9 1-3 5 0", "6 1-3 6 0", "7 1-4 5 0"}));
    EXPECT_EQ(select_port_from_pvsi(groups.data(), 5, nullptr, &current), 0);
}

} // namespace
