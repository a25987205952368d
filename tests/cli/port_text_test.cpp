// Text forms of port numbers: interface names, slot/port text, GEM indexes
// and the interface clause of a command.
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using gvtest::ChassisRoot;

std::string s_format(int pnum) {
    char text[64] = "untouched";
    convert_p_format_to_s_format(pnum, text);
    return text;
}

std::string legacy_format(int pnum) {
    char text[64] = "untouched";
    EXPECT_EQ(convert_p_format_to_s_legacy_format(pnum, text), text);
    return text;
}

// test3: slots of 8 GPON, 8 EPON and 16 XE ports (pnums 1-32), interlink
// 33-34, logical slot 4 at 35-48 with channel groups 35-42.
TEST(PortText, NamesAndSlotPortTextOfEachKindOfPnum) {
    ChassisRoot root{"test3"};
    struct Case {
        int pnum;
        const char *name;
        const char *legacy;
    };
    const Case cases[] = {
        {1, "GPON1/1", "1/1"},
        {9, "EPON2/1", "2/1"},
        {32, "XE3/16", "0/16"},         // the switch-fabric unit is user slot 0
        {33, "untouched", "untouched"}, // interlink: no name
        {35, "untouched", "untouched"}, // channel group at or above the capacity
        {49, "", "0/0"},                // beyond the chassis
    };
    for (const Case &c : cases) {
        EXPECT_EQ(s_format(c.pnum), c.name) << c.pnum;
        EXPECT_EQ(legacy_format(c.pnum), c.legacy) << c.pnum;
    }
}

TEST(PortText, TypeBTrunksAreNamedByTheirWorkingPort) {
    ChassisRoot root{"test3"};
    // Trunks 43.. pair the PON ports: the working ports are pnums 1, 3, 5, ...
    EXPECT_EQ(s_format(43), "GPON1/1");
    EXPECT_EQ(s_format(47), "EPON2/1");
    EXPECT_EQ(legacy_format(43), "1/1");
    EXPECT_EQ(legacy_format(48), "2/3");
}

TEST(PortText, ChannelGroupTestsDifferAtTheCapacity) {
    ChassisRoot root{gvtest::two_port_chassis(14)};
    ASSERT_EQ(get_port_num(2), 14);
    EXPECT_EQ(s_format(3), "CG1");
    EXPECT_EQ(legacy_format(3), "CG1");
    EXPECT_EQ(s_format(13), "CG11");
    // pnum 14 equals the capacity: "<" refuses it, "<=" accepts it.
    EXPECT_EQ(s_format(14), "untouched");
    EXPECT_EQ(legacy_format(14), "CG12");
}

TEST(PortText, SlotPortToPnum) {
    ChassisRoot root{"test3"};
    struct Case {
        int slot, port, pnum;
    };
    for (const Case c : {Case{0, 5, 5}, Case{1, 1, 1}, Case{3, 16, 32}, Case{2, 3, 11},
                         Case{4, 2, 34}, Case{5, 1, 0}}) {
        EXPECT_EQ(convert_s_format_to_p_format(c.slot, c.port), c.pnum) << c.slot << "/" << c.port;
    }
}

TEST(PortText, ShortPortStrings) {
    ChassisRoot root{"test3"};
    char text[64];
    std::memset(text, 'x', sizeof text);
    EXPECT_EQ(sputil_mk_string_from_int_port(17, text, sizeof text), text);
    EXPECT_STREQ(text, "XE3/1");
    EXPECT_EQ(text[sizeof text - 1], '\0'); // cleared for its whole size
    const char *number = "9";
    EXPECT_STREQ(sputil_mk_string_from_str_port(number, text), "EPON2/1");
}

TEST(PortText, ShortPortStringsWithoutSlots) {
    ChassisRoot root{"k3100x"};
    char text[4];
    EXPECT_STREQ(sputil_mk_string_from_int_port(17, text, sizeof text), "17");
    EXPECT_STREQ(sputil_mk_string_from_int_port(12345, text, sizeof text), "123");
    const char *number = "17";
    EXPECT_EQ(sputil_mk_string_from_str_port(number, text), number);
}

TEST(PortText, GemIndexesAreMapperSlashPort) {
    struct Case {
        int index, per;
        const char *text;
    };
    const Case cases[] = {{8, 8, "1/8"},  {9, 8, "2/1"}, {1, 8, "1/1"},
                          {16, 8, "2/8"}, {0, 8, "0/8"}, {5, 0, ""}};
    for (const Case &c : cases) {
        char text[16];
        EXPECT_STREQ(sputil_mk_string_from_int_gemport(c.index, text, sizeof text, c.per), c.text)
            << c.index << " per " << c.per;
    }
    // The exact inverse of index = port + per * (mapper - 1).
    for (int per : {1, 4, 8, 32}) {
        for (int index = 1; index <= 4 * per; ++index) {
            char text[16];
            int mapper = 0;
            int port = 0;
            sputil_mk_string_from_int_gemport(index, text, sizeof text, per);
            ASSERT_EQ(std::sscanf(text, "%d/%d", &mapper, &port), 2);
            EXPECT_EQ(port + per * (mapper - 1), index);
            EXPECT_TRUE(port >= 1 && port <= per) << text;
        }
    }
}

TEST(PortText, SlotAndPortOfLogicalPnums) {
    ChassisRoot root{"test3"};
    struct Case {
        int pnum, slot, port;
    };
    for (const Case c : {Case{9, 2, 1}, Case{32, 3, 16}, Case{35, 4, 1}, Case{48, 4, 14},
                         Case{33, 4, -1}, Case{49, 0, 0}}) {
        EXPECT_EQ(gv_get_slot_number_from_log_pnum(c.pnum), c.slot) << c.pnum;
        EXPECT_EQ(gv_get_slotport_number_from_log_pnum(c.pnum), c.port) << c.pnum;
    }
}

TEST(PortText, InterfaceTypeWords) {
    ChassisRoot root{"test3"};
    char type[32] = "untouched";
    EXPECT_EQ(gv_get_if_type(10, 2, 2, type, sizeof type), 0);
    EXPECT_STREQ(type, "EPON");
    EXPECT_EQ(gv_get_if_type(36, 4, 2, type, sizeof type), 0);
    EXPECT_STREQ(type, "CG");
    std::strcpy(type, "untouched");
    EXPECT_EQ(gv_get_if_type(49, 0, 0, type, sizeof type), 48); // answers the total
    EXPECT_STREQ(type, "untouched");
}

std::string clause(std::vector<uint32_t> &list, const char *before = "") {
    char text[256];
    std::strcpy(text, before);
    EXPECT_EQ(gv_get_cli_format_string_from_plist(list.data(), static_cast<int>(list.size()), text),
              0);
    return text;
}

TEST(PortText, CommandClauseOfAPnumList) {
    ChassisRoot root{"test3"};
    struct Case {
        std::vector<uint32_t> pnums;
        const char *text;
    };
    const Case cases[] = {
        {{11, 4, 1, 3, 2}, " gpon 1/1-4,2/3"},
        {{7, 8, 9, 10}, " gpon 1/7-8,2/1-2"}, // a run never crosses a slot
        {{9}, " epon 2/1"},
        {{17, 18, 20}, " tengigabitethernet 0/1-2,0/4"},
        {{35, 36, 37, 40}, " channelgroup 1-3,6"},
    };
    for (const Case &c : cases) {
        std::vector<uint32_t> list = c.pnums;
        EXPECT_EQ(clause(list), c.text);
        EXPECT_TRUE(std::is_sorted(list.begin(), list.end())); // sorted in place
    }
    // No type word: what the destination held stays, the runs follow it.
    std::vector<uint32_t> beyond = {49};
    EXPECT_EQ(clause(beyond, "keep"), "keep0/0");
    char text[8] = "x";
    EXPECT_EQ(gv_get_cli_format_string_from_plist(nullptr, 1, text), -1);
    EXPECT_EQ(gv_get_cli_format_string_from_plist(beyond.data(), 0, text), -1);
    EXPECT_EQ(gv_get_cli_format_string_from_plist(beyond.data(), 1, nullptr), -1);
}

TEST(PortText, CommandClauseRunListIsCutAt127Characters) {
    ChassisRoot root{"k7100"};
    std::vector<uint32_t> list;
    for (uint32_t pnum = 1; pnum <= 66; pnum += 2) {
        list.push_back(pnum);
    }
    const std::string text = clause(list);
    const std::string prefix = " tengigabitethernet ";
    ASSERT_EQ(text.rfind(prefix, 0), 0u) << text;
    EXPECT_EQ(text.size() - prefix.size(), 127u);
    EXPECT_EQ(text.substr(prefix.size(), 16), "1/1,1/3,1/5,1/7,");
}

} // namespace
