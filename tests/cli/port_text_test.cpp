// Text forms of port numbers: interface names, slot/port text, GEM indexes
// and the interface clause of a command.
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace {

using gvtest::ChassisRoot;

// The interface name and the legacy slot/port text, as "name|legacy".
std::string forms(int pnum) {
    char name[64] = "untouched";
    char legacy[64] = "untouched";
    convert_p_format_to_s_format(pnum, name);
    EXPECT_EQ(convert_p_format_to_s_legacy_format(pnum, legacy), legacy);
    return std::string(name) + "|" + legacy;
}

// test3: slots of 8 GPON, 8 EPON and 16 XE ports (pnums 1-32), interlink
// 33-34, logical slot 4 at 35-48 with channel groups 35-42.
TEST(PortText, NamesAndSlotPortTextOfEachKindOfPnum) {
    ChassisRoot root{"test3"};
    for (const auto &[pnum, text] : std::vector<std::pair<int, std::string>>{
             {1, "GPON1/1|1/1"},
             {9, "EPON2/1|2/1"},
             {32, "XE3/16|0/16"},         // the switch-fabric unit is user slot 0
             {33, "untouched|untouched"}, // interlink: no name
             {35, "untouched|untouched"}, // channel group at or above the capacity
             {43, "GPON1/1|1/1"},         // trunks pairing PON ports: their working port
             {48, "EPON2/3|2/3"},
             {49, "|0/0"}}) { // beyond the chassis
        EXPECT_EQ(forms(pnum), text) << pnum;
    }
}

TEST(PortText, ChannelGroupTestsDifferAtTheCapacity) {
    ChassisRoot root{gvtest::two_port_chassis(14)};
    ASSERT_EQ(get_port_num(2), 14);
    EXPECT_EQ(forms(3), "CG1|CG1");
    EXPECT_EQ(forms(13), "CG11|CG11");
    // pnum 14 equals the capacity: "<" refuses it, "<=" accepts it.
    EXPECT_EQ(forms(14), "untouched|CG12");
}

TEST(PortText, SlotPortAndPnum) {
    ChassisRoot root{"test3"};
    for (const auto &[slot, port, pnum] : std::vector<std::array<int, 3>>{
             {0, 5, 5}, {1, 1, 1}, {3, 16, 32}, {2, 3, 11}, {4, 2, 34}, {5, 1, 0}}) {
        EXPECT_EQ(convert_s_format_to_p_format(slot, port), pnum) << slot << "/" << port;
    }
    for (const auto &[pnum, slot, port] : std::vector<std::array<int, 3>>{
             {9, 2, 1}, {32, 3, 16}, {35, 4, 1}, {48, 4, 14}, {33, 4, -1}, {49, 0, 0}}) {
        EXPECT_EQ(gv_get_slot_number_from_log_pnum(pnum), slot) << pnum;
        EXPECT_EQ(gv_get_slotport_number_from_log_pnum(pnum), port) << pnum;
    }
    char type[32] = "untouched";
    EXPECT_EQ(gv_get_if_type(49, 0, 0, type, sizeof type), 48); // the total, nothing written
    EXPECT_STREQ(type, "untouched");
    EXPECT_EQ(gv_get_if_type(36, 4, 2, type, sizeof type), 0);
    EXPECT_STREQ(type, "CG");
}

TEST(PortText, ShortPortStrings) {
    char text[64];
    {
        ChassisRoot root{"test3"};
        std::memset(text, 'x', sizeof text);
        EXPECT_EQ(sputil_mk_string_from_int_port(17, text, sizeof text), text);
        EXPECT_STREQ(text, "XE3/1");
        EXPECT_EQ(text[sizeof text - 1], '\0'); // cleared for its whole size
        EXPECT_STREQ(sputil_mk_string_from_str_port("9", text), "EPON2/1");
    }
    ChassisRoot slotless{"k3100x"};
    EXPECT_STREQ(sputil_mk_string_from_int_port(12345, text, 4), "123");
    const char *number = "17";
    EXPECT_EQ(sputil_mk_string_from_str_port(number, text), number);
    // GEM indexes: the exact inverse is read back by the GEM port tests.
    EXPECT_STREQ(sputil_mk_string_from_int_gemport(0, text, sizeof text, 8), "0/8");
    EXPECT_STREQ(sputil_mk_string_from_int_gemport(5, text, sizeof text, 0), "");
}

std::string clause(std::vector<uint32_t> list, const char *before = "") {
    char text[256];
    std::strcpy(text, before);
    EXPECT_EQ(gv_get_cli_format_string_from_plist(list.data(), static_cast<int>(list.size()), text),
              0);
    EXPECT_TRUE(std::is_sorted(list.begin(), list.end())); // sorted in place
    return text;
}

TEST(PortText, CommandClauseOfAPnumList) {
    ChassisRoot root{"test3"};
    for (const auto &[pnums, text] : std::vector<std::pair<std::vector<uint32_t>, const char *>>{
             {{11, 4, 1, 3, 2}, " gpon 1/1-4,2/3"},
             {{7, 8, 9, 10}, " gpon 1/7-8,2/1-2"}, // a run never crosses a slot
             {{17, 18, 20}, " tengigabitethernet 0/1-2,0/4"},
             {{35, 36, 37, 40}, " channelgroup 1-3,6"}}) {
        EXPECT_EQ(clause(pnums), text);
    }
    // No type word: what the destination held stays, the runs follow it.
    EXPECT_EQ(clause({49}, "keep"), "keep0/0");
    // 300 separate runs: the first 256 are held and the text stops at 127
    // characters ("0/0," 31 times, then "0/0") instead of overrunning.
    std::vector<uint32_t> apart;
    for (uint32_t pnum = 49; apart.size() < 300; pnum += 2) {
        apart.push_back(pnum);
    }
    std::string cut;
    for (int run = 0; run < 31; ++run) {
        cut += "0/0,";
    }
    EXPECT_EQ(clause(apart, "keep"), "keep" + cut + "0/0");
    uint32_t one = 1;
    char text[8] = "x";
    EXPECT_EQ(gv_get_cli_format_string_from_plist(nullptr, 1, text), -1);
    EXPECT_EQ(gv_get_cli_format_string_from_plist(&one, 0, text), -1);
    EXPECT_EQ(gv_get_cli_format_string_from_plist(&one, 1, nullptr), -1);
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
