// Interface type codes, prefixes, predicates and the parsing of one name.
#include "gvutil/ifname.h"

#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>

namespace {

const char *shown(const char *text) {
    return text != nullptr ? text : "NULL";
}

// Each code's short prefix, full word and created name (slot 3, port 7). The
// words of port types are read back by the round trip over the chassis.
TEST(InterfaceTypes, CodesReadBackFromBothSpellings) {
    const struct {
        int type;
        const char *prefix, *word, *created;
    } cases[] = {{2, "GE", "gigabitethernet", "GE3/7"},  {53, "XGPON", "xgpon", "XGPON3/7"},
                 {100, "mgmt", "management", "mgmt7"},   {101, "br", "vlan", "br3/7"},
                 {102, "CG", "channelgroup", "CG7"},     {103, "lo", "loopback", "lo3/7"},
                 {104, "default", "vlan", "default3/7"}, {105, "", "tunnel", "3/7"}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.type);
        char prefix[32] = "unchanged";
        EXPECT_EQ(get_interface_prefix_from_type(c.type, prefix), 0);
        EXPECT_STREQ(prefix, *c.prefix != '\0' ? c.prefix : "unchanged");
        if (*c.prefix != '\0') {
            EXPECT_EQ(get_interface_type_from_prefix(c.prefix), c.type);
        }
        char word[32];
        EXPECT_EQ(get_interface_prefix_for_run_config_from_type(c.type, word, sizeof word), 0);
        EXPECT_STREQ(word, c.type == 105 ? "" : c.word);
        // "vlan" reads back as a bridge, never as the default bridge.
        EXPECT_EQ(get_interface_type_from_full_prefix(c.word), c.type == 104 ? 101 : c.type);
        EXPECT_EQ(create_interface_name(3, 7, c.type, word), 0);
        EXPECT_STREQ(word, c.created);
    }
    // Lookups are exact, except that a prefix beginning "tunnel" is a tunnel.
    const std::tuple<const char *, int, int> lookups[] = {
        {"tunnel12", 105, 0},      {"Tunnel", 0, 0}, {"ge", 0, 0},   {"GEX", 0, 0},
        {"Gigabitethernet", 0, 0}, {"", 0, 0},       {nullptr, 0, 0}};
    for (const auto &[text, from_prefix, from_word] : lookups) {
        EXPECT_EQ(get_interface_type_from_prefix(text), from_prefix) << shown(text);
        EXPECT_EQ(get_interface_type_from_full_prefix(text), from_word) << shown(text);
    }
}

TEST(InterfaceTypes, RunConfigWordClearsOnlyTheFirstWordAndFitsTheSize) {
    char word[16];
    std::memset(word, 'x', sizeof word);
    EXPECT_EQ(get_interface_prefix_for_run_config_from_type(4, word, sizeof word), 0);
    EXPECT_EQ(std::string(word, 6), std::string("\0\0\0\0xx", 6));
    EXPECT_EQ(get_interface_prefix_for_run_config_from_type(2, word, 8), 0);
    EXPECT_STREQ(word, "gigabit");
    std::memset(word, 'x', sizeof word);
    EXPECT_EQ(get_interface_prefix_for_run_config_from_type(2, word, 2), 0);
    EXPECT_EQ(std::string(word, 3), std::string("g\0x", 3)); // nothing past the size
    EXPECT_EQ(get_interface_prefix_for_run_config_from_type(2, nullptr, 8), -1);
}

// The prefix is everything before the first digit; a single name has
// nothing but digits after its '/'.
TEST(InterfaceNames, PrefixAndSingleName) {
    const std::tuple<const char *, const char *, int> cases[] = {
        {"GE3/1", "0 GE", 1},       {"br10", "0 br", 1}, {"default", "0 default", 1},
        {"7/1", "0 ", 1},           {"GE1/", "0 GE", 1}, {"GE3/1-4", "0 GE", 0},
        {"GE1/1,GE1/2", "0 GE", 0}, {"", "-1 xxx", 0},   {nullptr, "-1 xxx", 0}};
    for (const auto &[name, prefix, single] : cases) {
        char out[8] = "xxx";
        EXPECT_EQ(std::to_string(get_interface_type(name, out, sizeof out)) + " " + out, prefix);
        EXPECT_EQ(is_interface_string_type(name), single) << shown(name);
    }
    char small[4];
    std::memset(small, 'x', sizeof small);
    EXPECT_EQ(get_interface_type("XGSPON1/1", small, sizeof small), 0);
    EXPECT_STREQ(small, "XGS"); // cut to fit, terminated
    EXPECT_EQ(get_interface_type("GE1/1", nullptr, 8), -1);
    EXPECT_EQ(get_interface_type("GE1/1", small, 0), 0);
    EXPECT_STREQ(small, "XGS"); // no room: nothing written
}

// One row per predicate: 'x' under each name it holds for.
TEST(InterfacePredicates, ClassifyByPrefixInAnyCase) {
    const char *const names[] = {"FE1/1",     "ge1/1",    "XE1/1",   "CE8/1",
                                 "EPON2/1",   "XEPON6/1", "gpon1/2", "XGPON1/1",
                                 "XGSPON2/1", "NGPON5/1", "br10",    "default",
                                 "CG2",       "eth0",     "GEX1/1",  "gigabitethernet1/1",
                                 ""};
    const struct {
        int (*predicate)(const char *);
        const char *holds;
    } rows[] = {{is_fast_ethernet_interface, "x................"},
                {is_gigabit_ethernet_interface, ".x..x.........x.."},
                {is_ten_gigabit_ethernet_interface, "..x..x.xxx......."},
                {is_hundred_gigabit_ethernet_interface, "...x............."},
                {is_epon_interface, "....x............"},
                {is_xepon_interface, ".....x..........."},
                {is_gpon_interface, "......x.........."},
                {is_xgpon_interface, ".......x........."},
                {is_xgspon_interface, "........x........"},
                {is_ngpon_interface, ".........x......."},
                {is_pon_interface, "....xxxxxx......."},
                {is_ethernet_interface, "xxxxxxxxxx....x.."},
                {is_vlan_interface, "..........xx....."},
                {is_aggregator_interface, "............x...."},
                {is_cg_interface, "............x...."},
                {is_ethXX_interface, ".............x..."},
                {is_port_interface, "xxxxxxxxxx..x.x.."},
                {is_port_n_vlan_interface, "xxxxxxxxxxxxx.x.."}};
    for (const auto &[predicate, holds] : rows) {
        std::string got;
        for (const char *name : names) {
            got += predicate(name) == 1 ? 'x' : '.';
        }
        EXPECT_EQ(got, holds);
    }
    EXPECT_EQ(is_port_interface(nullptr), 0);
}

// Numbers beyond the int range are not read; prefixes are cut to 31
// characters; NULL outputs are skipped.
TEST(InterfaceNames, SlotAndPortOfOneName) {
    const std::string long_name = std::string(40, 'a') + "1/1";
    const std::string cut = "0 " + std::string(31, 'a') + " 1/1";
    const std::pair<const char *, const char *> cases[] = {
        {"GE3/1", "0 GE 3/1"},           {"CG2", "0 CG 2/0"},
        {"mgmt", "0 mgmt 0/0"},          {"GE3/", "0 GE 3/0"},
        {"GE99999999999/1", "0 GE 0/0"}, {"", "-1 ? 7/7"},
        {nullptr, "-1 ? 7/7"},           {long_name.c_str(), cut.c_str()}};
    for (const auto &[name, expected] : cases) {
        int slot = 7, port = 7, again = 7;
        char prefix[32] = "?";
        const int result = get_type_slot_port_no_from_ifstr(name, prefix, &slot, &port);
        std::ostringstream got;
        got << result << " " << prefix << " " << slot << "/" << port;
        EXPECT_EQ(got.str(), expected);
        EXPECT_EQ(get_slot_port_no_from_ifstr(name, &again, nullptr), result);
        EXPECT_EQ(again, slot) << shown(name);
    }
}

// Ports come out in order and the slot translated; the user form keeps it.
// A range into another slot, or one that does not read whole, separates not.
TEST(InterfaceNames, SeparationOrdersPortsAndNormalises) {
    const std::tuple<const char *, const char *, int> cases[] = {
        {"GE0/5-2", "0 3 2-5 GE3/2-5", 0},
        {"GE1/4-1/4", "0 1 4-4 GE1/4-4", 1},
        {"GE1/3-0", "0 1 3-3 GE1/3", 1},
        {"XE2/9-02/1", "0 2 1-9 XE2/1-9", 2},
        {"CG2", "0 2 0-0 CG2/0", 2},
        {"GE1/1-2/3", "", 0},
        {"GE1/1-2/", "", 0},
        {"GE1/1-3/4/5", "", 0},
        {"GE99999999999/1", "", 0},
        {"default", "", 0},
        {nullptr, "", 0}};
    for (const auto &[name, separated, user_slot] : cases) {
        int slot = -9, first = -9, last = -9;
        char normalised[68] = "untouched";
        const int result =
            get_interface_name_separation_from_ifname(name, &slot, &first, &last, normalised);
        std::ostringstream got;
        got << result << " " << slot << " " << first << "-" << last << " " << normalised;
        EXPECT_EQ(got.str(), *separated != '\0' ? separated : "-1 -9 -9--9 untouched")
            << shown(name);
        slot = 0;
        EXPECT_EQ(
            get_user_interface_name_separation_from_ifname(name, &slot, nullptr, nullptr, nullptr),
            result);
        EXPECT_EQ(slot, user_slot) << shown(name);
    }
}

TEST(InterfaceNames, GroupIdOfChannelGroupNames) {
    const std::pair<const char *, int> cases[] = {{"CG12", 12}, {"CG1-3", 1}, {"GE1/1", -1},
                                                  {"cg2", -1},  {"CG", -1},   {nullptr, -1}};
    for (const auto &[name, id] : cases) {
        EXPECT_EQ(get_group_id_from_ifname(name), id) << shown(name);
    }
}

} // namespace
