// Running-configuration texts, range lines and the range prompt.
#include "gvutil/ifname.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace {

const char *shown(const char *text) {
    return text != nullptr ? text : "NULL";
}

// The round trip over the chassis reads every port type's text back; here the
// user slot, any letter case, names without text, and range lines, which stop
// at the first name that is no port.
TEST(RunConfig, TextsOfOneNameAndOfRangeLines) {
    using Text = char *(*)(const char *);
    const Text single = get_interface_string_for_run_config_from_ifstr;
    const Text line = get_interface_range_string_for_run_config_from_ifranstr;
    const std::tuple<Text, const char *, const char *> cases[] = {
        {single, "GE3/5", "gigabitethernet 0/5"},
        {single, "gpon3/2", "gpon 0/2"},
        {single, "mgmt2", "management"},
        {single, "mgmt1", ""},
        {single, "lo0", "loopback"},
        {single, "GEX1/1", ""},
        {single, nullptr, ""},
        {line, "GE1/1,GE1/3,XE2/1", " gigabitethernet 1/1,1/3, tengigabitethernet 2/1"},
        {line, "ge1/1,GE1/2-4", " gigabitethernet 1/1,1/2-4"},
        {line, "GE3/1,XE3/2,GE1/1",
         " gigabitethernet 3/1, tengigabitethernet 3/2, gigabitethernet 1/1"},
        {line, "CG1,CG2-3", " channelgroup 1,2-3"},
        {line, "br10,GE1/1", ""},
        {line, "GE1/1,br5,GE1/2", " gigabitethernet 1/1"},
        {line, "GE1/1,mgmt1,GE1/2", " gigabitethernet 1/1"},
        {line, "GEX1/1", ""},
        {line, nullptr, ""}};
    for (const auto &[text, name, expected] : cases) {
        EXPECT_STREQ(text(name), expected) << shown(name);
    }
    EXPECT_EQ(single("GE1/1"), single("GE1/2")); // one static buffer
}

TEST(RunConfig, RangeLineReadsAndWrites127Characters) {
    std::string names = "GE1/1";
    while (names.size() < 300) {
        names += ",GE1/1";
    }
    // 127 characters of the list are read: 21 elements, then a "G" that names no port.
    std::string expected = " gigabitethernet 1/1";
    for (int i = 0; i < 20; ++i) {
        expected += ",1/1";
    }
    EXPECT_EQ(get_interface_range_string_for_run_config_from_ifranstr(names.c_str()), expected);
    std::string changing = "GE1/1";
    while (changing.size() < 60) {
        changing += ",XE1/1,GE1/1";
    }
    const std::string wide =
        get_interface_range_string_for_run_config_from_ifranstr(changing.c_str());
    EXPECT_EQ(wide.size(), 127u);
    EXPECT_EQ(wide.substr(0, 45), " gigabitethernet 1/1, tengigabitethernet 1/1,");
}

// A range with two slots is shortened only when all four numbers read.
TEST(RunConfig, SlotAndPortRangeOfOneName) {
    const std::tuple<const char *, const char *> cases[] = {
        {"GE1/1-1/4", "0 GE 1 1 4"}, {"GE1/1-4", "0 GE 1 1 4"}, {"GE1/3", "0 GE 1 3 3"},
        {"GE1/1-2/4", "-1 ? 0 0 0"}, {"GE1/1-", "-1 ? 0 0 0"},  {"GE1", "-1 ? 0 0 0"},
        {"CG1-3", "0 CG 0 1 3"},     {"CG2", "0 CG 0 2 2"},     {"CG2-", "-1 ? 0 0 0"},
        {"br10", "0 br 0 0 0"},      {"default", "0 ? 0 0 0"},  {nullptr, "-1 ? 0 0 0"}};
    for (const auto &[name, expected] : cases) {
        int slot = 9, first = 9, last = 9;
        char prefix[32] = "?";
        const int result = get_slot_and_port_range_from_ifstr(name, prefix, &slot, &first, &last);
        std::ostringstream got;
        got << result << " " << prefix << " " << slot << " " << first << " " << last;
        EXPECT_EQ(got.str(), expected) << shown(name);
    }
    int slot = 0;
    EXPECT_EQ(get_slot_and_port_range_from_ifstr("GE1/1", nullptr, &slot, nullptr, &slot), -1);
}

// Records are "slot/port" words; each carries data 10 * port, which must move
// with it when the records are sorted.
TEST(RangePrompt, RunsOfPortsPerSlot) {
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"GE9/9", "1/5 1/1 1/3 1/2", "GE1/1-3,5"},
        {"GE9/9", "1/1 1/2 1/4 1/5", "GE1/1-2,4-5"},
        {"GE9/9", "2/1 1/3 1/2 1/1", "GE1/1-3,2/1"},
        {"GE9/9", "1/1 1/3 1/4 1/6", "GE1/1,3-4,6"},
        // The next slot's port follows the run's end, so the run is never closed.
        {"GE9/9", "1/1 1/2 2/3", "GE1/1,2/3"},
        {"CG9", "0/1 0/2 0/4", "CG1-2,4"},
        {"GE", "1/1", "GE"},
        {"GE9/9", "", "GE9/9"}};
    for (const auto &[before, text, prompt] : cases) {
        std::vector<ifrange_port_t> records;
        std::istringstream words(text);
        char slash = 0;
        for (ifrange_port_t r{}; words >> r.slot >> slash >> r.port; r = {}) {
            r.data[0] = r.port * 10;
            records.push_back(r);
        }
        char name[64];
        std::snprintf(name, sizeof name, "%s", before);
        get_interface_range_prompt_string(name, static_cast<int>(records.size()), records.data());
        EXPECT_STREQ(name, prompt) << text;
        for (std::size_t i = 0; i < records.size(); ++i) {
            EXPECT_EQ(records[i].data[0], records[i].port * 10) << text;
            EXPECT_TRUE(i == 0 || records[i - 1].slot * 100 + records[i - 1].port <
                                      records[i].slot * 100 + records[i].port)
                << text;
        }
    }
}

} // namespace
