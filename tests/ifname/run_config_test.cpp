// Running-configuration texts, range lines and the range prompt.
#include "gvutil/ifname.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(RunConfig, OneNameShowsTheUserSlotOfPorts) {
    struct Case {
        const char *name, *text;
    };
    for (const Case c : {Case{"GE3/5", "gigabitethernet 0/5"},
                         Case{"XE2/1", "tengigabitethernet 2/1"},
                         Case{"EPON3/1", "epon 0/1"},
                         Case{"gpon3/2", "gpon 0/2"},
                         Case{"XGSPON4/8", "xgspon 4/8"},
                         Case{"CE8/2", "hundredgigabitethernet 8/2"},
                         Case{"FE1/1", "fastethernet 1/1"},
                         Case{"XEPON6/1", "xepon 6/1"},
                         Case{"XGPON1/1", "xgpon 1/1"},
                         Case{"NGPON5/1", "ngpon 5/1"},
                         Case{"CG2", "channelgroup 2"},
                         Case{"br10", "vlan 10"},
                         Case{"br3", "vlan 3"},
                         Case{"default", "vlan 1"},
                         Case{"mgmt2", "management"},
                         Case{"mgmt1", ""},
                         Case{"lo0", "loopback"},
                         Case{"Tunnel7", "tunnel 7"},
                         Case{"GEX1/1", ""},
                         Case{"", ""},
                         Case{nullptr, ""}}) {
        EXPECT_STREQ(get_interface_string_for_run_config_from_ifstr(c.name), c.text)
            << (c.name != nullptr ? c.name : "NULL");
    }
    EXPECT_EQ(get_interface_string_for_run_config_from_ifstr("GE1/1"),
              get_interface_string_for_run_config_from_ifstr("GE1/2")); // one static buffer
}

TEST(RunConfig, RangeLineStopsAtTheFirstNameThatIsNoPort) {
    struct Case {
        const char *names, *line;
    };
    for (const Case c :
         {Case{"GE1/1,GE1/3,XE2/1", " gigabitethernet 1/1,1/3, tengigabitethernet 2/1"},
          Case{"ge1/1,GE1/2-4", " gigabitethernet 1/1,1/2-4"},
          Case{"GE3/1,XE3/2,GE1/1",
               " gigabitethernet 3/1, tengigabitethernet 3/2, gigabitethernet 1/1"},
          Case{"CG1,CG2-3", " channelgroup 1,2-3"}, Case{"br10,GE1/1", ""},
          Case{"GE1/1,br5,GE1/2", " gigabitethernet 1/1"},
          Case{"GE1/1,mgmt1,GE1/2", " gigabitethernet 1/1"}, Case{"GEX1/1", ""}, Case{"", ""},
          Case{nullptr, ""}}) {
        EXPECT_STREQ(get_interface_range_string_for_run_config_from_ifranstr(c.names), c.line)
            << (c.names != nullptr ? c.names : "NULL");
    }
}

TEST(RunConfig, RangeLineReadsAndWrites127Characters) {
    std::string names = "GE1/1";
    while (names.size() < 300) {
        names += ",GE1/1";
    }
    const std::string line = get_interface_range_string_for_run_config_from_ifranstr(names.c_str());
    // 127 characters of the list are read: 21 elements, then a "G" that names no port.
    std::string expected = " gigabitethernet 1/1";
    for (int i = 0; i < 20; ++i) {
        expected += ",1/1";
    }
    EXPECT_EQ(line, expected);
    std::string changing = "GE1/1";
    while (changing.size() < 60) {
        changing += ",XE1/1,GE1/1";
    }
    const std::string wide =
        get_interface_range_string_for_run_config_from_ifranstr(changing.c_str());
    EXPECT_EQ(wide.size(), 127u);
    EXPECT_EQ(wide.substr(0, 45), " gigabitethernet 1/1, tengigabitethernet 1/1,");
}

TEST(RunConfig, SlotAndPortRangeOfOneName) {
    struct Case {
        const char *name;
        int result, slot, first, last;
        const char *prefix;
    };
    for (const Case c : {Case{"GE1/1-1/4", 0, 1, 1, 4, "GE"}, Case{"GE1/1-4", 0, 1, 1, 4, "GE"},
                         Case{"GE1/3", 0, 1, 3, 3, "GE"}, Case{"GE1/1-2/4", -1, 0, 0, 0, "?"},
                         Case{"GE1/1-", -1, 0, 0, 0, "?"}, Case{"GE1", -1, 0, 0, 0, "?"},
                         Case{"CG1-3", 0, 0, 1, 3, "CG"}, Case{"CG2", 0, 0, 2, 2, "CG"},
                         Case{"CG2-", -1, 0, 0, 0, "?"}, Case{"br10", 0, 0, 0, 0, "br"},
                         Case{"default", 0, 0, 0, 0, "?"}, Case{"", -1, 0, 0, 0, "?"},
                         Case{nullptr, -1, 0, 0, 0, "?"}}) {
        int slot = 9, first = 9, last = 9;
        char prefix[32] = "?";
        EXPECT_EQ(get_slot_and_port_range_from_ifstr(c.name, prefix, &slot, &first, &last),
                  c.result)
            << (c.name != nullptr ? c.name : "NULL");
        EXPECT_EQ(std::vector<int>({slot, first, last}),
                  std::vector<int>({c.slot, c.first, c.last}));
        EXPECT_STREQ(prefix, c.prefix);
    }
    int slot = 0;
    EXPECT_EQ(get_slot_and_port_range_from_ifstr("GE1/1", nullptr, &slot, nullptr, &slot), -1);
}

TEST(RangePrompt, RunsOfPortsPerSlot) {
    struct Case {
        const char *name;
        std::vector<ifrange_port_t> records;
        const char *prompt;
    };
    const std::vector<Case> cases = {
        {"GE9/9",
         {{1, 5, {50, 0}}, {1, 1, {10, 0}}, {1, 3, {30, 0}}, {1, 2, {20, 0}}},
         "GE1/1-3,5"},
        {"GE9/9", {{1, 1, {}}, {1, 2, {}}, {1, 4, {}}, {1, 5, {}}}, "GE1/1-2,4-5"},
        {"GE9/9", {{2, 1, {}}, {1, 3, {}}, {1, 2, {}}, {1, 1, {}}}, "GE1/1-3,2/1"},
        {"GE9/9", {{1, 1, {}}, {1, 3, {}}, {1, 4, {}}, {1, 6, {}}}, "GE1/1,3-4,6"},
        {"GE9/9", {{1, 1, {}}, {2, 1, {}}, {2, 2, {}}}, "GE1/1,2/1-2"},
        // The next slot's port follows the run's end, so the run is never closed.
        {"GE9/9", {{1, 1, {}}, {1, 2, {}}, {2, 3, {}}}, "GE1/1,2/3"},
        {"GE9/9", {{2, 7, {}}}, "GE2/7"},
        {"CG9", {{0, 1, {}}, {0, 2, {}}, {0, 4, {}}}, "CG1-2,4"},
        {"GE", {{1, 1, {}}}, "GE"},
        {"GE9/9", {}, "GE9/9"},
    };
    for (Case c : cases) {
        char name[64];
        std::snprintf(name, sizeof name, "%s", c.name);
        get_interface_range_prompt_string(name, static_cast<int>(c.records.size()),
                                          c.records.data());
        EXPECT_STREQ(name, c.prompt);
        for (std::size_t i = 1; i < c.records.size(); ++i) {
            EXPECT_LE(c.records[i - 1].slot * 100 + c.records[i - 1].port,
                      c.records[i].slot * 100 + c.records[i].port);
        }
        // Records move whole.
        for (const auto &record : c.records) {
            EXPECT_TRUE(record.data[0] == 0 || record.data[0] == record.port * 10);
        }
    }
}

} // namespace
