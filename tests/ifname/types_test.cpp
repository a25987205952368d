// Interface type codes, prefixes, predicates and the parsing of one name.
#include "gvutil/ifname.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace {

TEST(InterfaceTypes, CodesReadBackFromBothSpellings) {
    struct Case {
        int type;
        const char *prefix, *word;
        int word_reads_as;
    };
    for (const Case c :
         {Case{1, "FE", "fastethernet", 1}, Case{2, "GE", "gigabitethernet", 2},
          Case{3, "XE", "tengigabitethernet", 3}, Case{5, "CE", "hundredgigabitethernet", 5},
          Case{50, "EPON", "epon", 50}, Case{51, "XEPON", "xepon", 51},
          Case{52, "GPON", "gpon", 52}, Case{53, "XGPON", "xgpon", 53},
          Case{54, "XGSPON", "xgspon", 54}, Case{55, "NGPON", "ngpon", 55},
          Case{100, "mgmt", "management", 100}, Case{101, "br", "vlan", 101},
          Case{102, "CG", "channelgroup", 102}, Case{103, "lo", "loopback", 103},
          Case{104, "default", "vlan", 101}, Case{105, "", "tunnel", 105}}) {
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
        EXPECT_EQ(get_interface_type_from_full_prefix(c.word), c.word_reads_as);
    }
}

TEST(InterfaceTypes, LookupsAreExactExceptTheTunnelPrefix) {
    struct Case {
        const char *text;
        int from_prefix, from_word;
    };
    for (const Case c :
         {Case{"tunnel", 105, 105}, Case{"tunnel12", 105, 0}, Case{"Tunnel", 0, 0},
          Case{"ge", 0, 0}, Case{"GEX", 0, 0}, Case{"Gigabitethernet", 0, 0}, Case{"", 0, 0}}) {
        EXPECT_EQ(get_interface_type_from_prefix(c.text), c.from_prefix) << c.text;
        EXPECT_EQ(get_interface_type_from_full_prefix(c.text), c.from_word) << c.text;
    }
    EXPECT_EQ(get_interface_type_from_prefix(nullptr), 0);
    EXPECT_EQ(get_interface_type_from_full_prefix(nullptr), 0);
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

TEST(InterfaceNames, PrefixIsEverythingBeforeTheFirstDigit) {
    struct Case {
        const char *name;
        int result;
        const char *prefix;
    };
    for (const Case c :
         {Case{"GE3/1", 0, "GE"}, Case{"br10", 0, "br"}, Case{"default", 0, "default"},
          Case{"7/1", 0, ""}, Case{"", -1, "xxx"}, Case{nullptr, -1, "xxx"}}) {
        char prefix[8] = "xxx";
        EXPECT_EQ(get_interface_type(c.name, prefix, sizeof prefix), c.result);
        EXPECT_STREQ(prefix, c.prefix);
    }
    char small[4];
    std::memset(small, 'x', sizeof small);
    EXPECT_EQ(get_interface_type("XGSPON1/1", small, sizeof small), 0);
    EXPECT_STREQ(small, "XGS"); // cut to fit, terminated
    EXPECT_EQ(get_interface_type("GE1/1", nullptr, 8), -1);
    EXPECT_EQ(get_interface_type("GE1/1", small, 0), 0);
    EXPECT_STREQ(small, "XGS"); // no room: nothing written
}

TEST(InterfaceNames, SingleInterfaceTest) {
    for (const char *one : {"GE3/1", "CG1", "br10", "GE1/", "default"}) {
        EXPECT_EQ(is_interface_string_type(one), 1) << one;
    }
    for (const char *many : {"GE3/1-4", "GE1/1,GE1/2", "", static_cast<const char *>(nullptr)}) {
        EXPECT_EQ(is_interface_string_type(many), 0) << (many != nullptr ? many : "NULL");
    }
}

// Predicates in header order; a row lists the ones that hold for its name.
TEST(InterfacePredicates, ClassifyByPrefixInAnyCase) {
    using Predicate = int (*)(const char *);
    constexpr std::array<Predicate, 18> predicates = {is_fast_ethernet_interface,
                                                      is_gigabit_ethernet_interface,
                                                      is_ten_gigabit_ethernet_interface,
                                                      is_hundred_gigabit_ethernet_interface,
                                                      is_epon_interface,
                                                      is_xepon_interface,
                                                      is_gpon_interface,
                                                      is_xgpon_interface,
                                                      is_xgspon_interface,
                                                      is_ngpon_interface,
                                                      is_pon_interface,
                                                      is_ethernet_interface,
                                                      is_vlan_interface,
                                                      is_aggregator_interface,
                                                      is_cg_interface,
                                                      is_ethXX_interface,
                                                      is_port_interface,
                                                      is_port_n_vlan_interface};
    struct Case {
        const char *name;
        const char *holds; // one letter per predicate: 'x' holds, '.' does not
    };
    for (const Case c :
         {Case{"FE1/1", "x..........x....xx"},     Case{"GE1/1", ".x.........x....xx"},
          Case{"ge1/1", ".x.........x....xx"},     Case{"XE1/1", "..x........x....xx"},
          Case{"CE8/1", "...x.......x....xx"},     Case{"EPON2/1", ".x..x.....xx....xx"},
          Case{"XEPON6/1", "..x..x....xx....xx"},  Case{"GPON1/1", "......x...xx....xx"},
          Case{"gpon1/2", "......x...xx....xx"},   Case{"XGPON1/1", "..x....x..xx....xx"},
          Case{"XGSPON2/1", "..x.....x.xx....xx"}, Case{"NGPON5/1", "..x......xxx....xx"},
          Case{"br10", "............x....x"},      Case{"default", "............x....x"},
          Case{"CG2", ".............xx.xx"},       Case{"eth0", "...............x.."},
          Case{"GEX1/1", ".x.........x....xx"},    Case{"gigabitethernet1/1", ".................."},
          Case{"mgmt1", ".................."},     Case{"", ".................."}}) {
        std::string got;
        for (const Predicate p : predicates) {
            got += p(c.name) == 1 ? 'x' : '.';
        }
        EXPECT_EQ(got, c.holds) << c.name;
    }
    EXPECT_EQ(is_port_interface(nullptr), 0);
}

TEST(InterfaceNames, CreatedNames) {
    struct Case {
        int slot, port, type;
        const char *name;
    };
    for (const Case c :
         {Case{3, 7, 2, "GE3/7"}, Case{3, 7, 102, "CG7"}, Case{3, 7, 100, "mgmt7"},
          Case{3, 7, 105, "3/7"}, Case{1, 2, 104, "default1/2"},
          Case{-2147483647 - 1, -2147483647 - 1, 104, "default-2147483648/-2147483648"}}) {
        char name[40] = {};
        EXPECT_EQ(create_interface_name(c.slot, c.port, c.type, name), 0);
        EXPECT_STREQ(name, c.name);
    }
}

TEST(InterfaceNames, SlotAndPortOfOneName) {
    struct Case {
        const char *name;
        int result, slot, port;
        const char *prefix;
    };
    for (const Case c :
         {Case{"GE3/1", 0, 3, 1, "GE"}, Case{"CG2", 0, 2, 0, "CG"}, Case{"mgmt", 0, 0, 0, "mgmt"},
          Case{"GE3/", 0, 3, 0, "GE"}, Case{"GE99999999999/1", 0, 0, 0, "GE"},
          Case{"", -1, 7, 7, "?"}, Case{nullptr, -1, 7, 7, "?"}}) {
        int slot = 7, port = 7;
        char prefix[32] = "?";
        EXPECT_EQ(get_type_slot_port_no_from_ifstr(c.name, prefix, &slot, &port), c.result);
        EXPECT_EQ(slot, c.slot);
        EXPECT_EQ(port, c.port);
        EXPECT_STREQ(prefix, c.prefix);
        slot = port = 7;
        EXPECT_EQ(get_slot_port_no_from_ifstr(c.name, &slot, &port), c.result);
        EXPECT_EQ(slot, c.slot);
    }
    const std::string long_prefix(40, 'a');
    char prefix[32];
    EXPECT_EQ(
        get_type_slot_port_no_from_ifstr((long_prefix + "1/1").c_str(), prefix, nullptr, nullptr),
        0);
    EXPECT_EQ(std::string(prefix), std::string(31, 'a'));
}

TEST(InterfaceNames, SeparationOrdersPortsAndNormalises) {
    struct Case {
        const char *name;
        int result, slot = 0, first = 0, last = 0;
        const char *normalised = "";
        int user_slot = 0;
    };
    for (const Case c :
         {Case{"GE0/5-2", 0, 3, 2, 5, "GE3/2-5", 0}, Case{"GE1/4-1/4", 0, 1, 4, 4, "GE1/4-4", 1},
          Case{"GE0/3", 0, 3, 3, 3, "GE3/3", 0}, Case{"GE1/3-0", 0, 1, 3, 3, "GE1/3", 1},
          Case{"XE2/9-02/1", 0, 2, 1, 9, "XE2/1-9", 2}, Case{"CG2", 0, 2, 0, 0, "CG2/0", 2},
          Case{"GE1/1-2/3", -1}, Case{"GE1/1-2/", -1}, Case{"GE1/1-3/4/5", -1},
          Case{"GE99999999999/1", -1}, Case{"default", -1}, Case{"", -1}, Case{nullptr, -1}}) {
        SCOPED_TRACE(c.name != nullptr ? c.name : "NULL");
        int slot = -9, first = -9, last = -9;
        char normalised[68] = "untouched";
        EXPECT_EQ(
            get_interface_name_separation_from_ifname(c.name, &slot, &first, &last, normalised),
            c.result);
        if (c.result != 0) {
            EXPECT_STREQ(normalised, "untouched");
            EXPECT_EQ(slot, -9);
            continue;
        }
        EXPECT_EQ(slot, c.slot);
        EXPECT_EQ(first, c.first);
        EXPECT_EQ(last, c.last);
        EXPECT_STREQ(normalised, c.normalised);
        EXPECT_EQ(get_user_interface_name_separation_from_ifname(c.name, &slot, &first, &last,
                                                                 normalised),
                  0);
        EXPECT_EQ(slot, c.user_slot);
    }
}

TEST(InterfaceNames, GroupIdOfChannelGroupNames) {
    struct Case {
        const char *name;
        int id;
    };
    for (const Case c : {Case{"CG12", 12}, Case{"CG1-3", 1}, Case{"GE1/1", -1}, Case{"cg2", -1},
                         Case{"CG", -1}, Case{"", -1}, Case{nullptr, -1}}) {
        EXPECT_EQ(get_group_id_from_ifname(c.name), c.id) << (c.name != nullptr ? c.name : "NULL");
    }
}

} // namespace
