// Lists written back as command text, and read back by the parsers the shell
// uses for the same lists.
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/range.h"
#include "range/range_lists.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace {

using gvtest::ChassisRoot;

// The text a builder writes; its answer must be the text's length.
template <typename T, typename Builder> std::string build(Builder builder, std::vector<T> &list) {
    char dest[512] = "junk";
    const int length = builder(list.data(), static_cast<int>(list.size()), dest);
    EXPECT_EQ(length, static_cast<int>(std::strlen(dest)));
    return dest;
}

TEST(RunBuilders, NumbersSortedIntoRuns) {
    std::vector<int> ints = {5, 1, 2, 3};
    EXPECT_EQ(build(get_int_list_str, ints), "1-3,5");
    EXPECT_EQ(ints, (std::vector<int>{1, 2, 3, 5}));
    std::vector<int> extremes = {INT_MAX, INT_MIN, INT_MAX - 1, -1, 0};
    EXPECT_EQ(build(get_int_list_str, extremes), "-2147483648,-1-0,2147483646-2147483647");
    EXPECT_EQ(get_int_list_str(nullptr, 3, nullptr), 0);
    std::vector<uint8_t> onus = {255, 5, 1, 3, 2};
    EXPECT_EQ(build(get_onu_str, onus), "1-3,5,255");
    EXPECT_EQ(onus, (std::vector<uint8_t>{1, 2, 3, 5, 255}));
    for (const auto &[ids, text] :
         std::vector<std::pair<std::vector<uint16_t>, std::string>>{{{1}, "default"},
                                                                    {{5}, "br5"},
                                                                    {{1, 2, 3, 7}, "1-3,7"},
                                                                    {{3, 2, 1}, "3,2,1"},
                                                                    {{}, ""}}) {
        std::vector<uint16_t> vlans = ids;
        EXPECT_EQ(build(get_br_str, vlans), text);
    }
}

TEST(RunBuilders, GemPortRunsNeverCrossAMapper) {
    for (const auto &[indexes, per, text] :
         std::vector<std::tuple<std::vector<uint32_t>, int, std::string>>{
             {{10, 7, 9, 8}, 8, "1/7-1/8,2/1-2/2"},
             {{1, 2, 3, 4}, 2, "1/1-1/2,2/1-2/2"},
             {{16}, 8, "2/8"},
             {{4, 3}, 0, ""}}) {
        std::vector<uint32_t> list = indexes;
        char dest[128] = "junk";
        get_gemport_str(list.data(), static_cast<int>(list.size()), dest, per);
        EXPECT_EQ(dest, text) << per;
        EXPECT_TRUE(std::is_sorted(list.begin(), list.end()));
    }
}

TEST(RunBuilders, PortRunsFollowPnumOrderAcrossSlots) {
    ChassisRoot root{"test3"}; // GPON 1-8, EPON 9-16, XE 17-32
    std::vector<uint32_t> pnums = {11, 4, 3, 2, 1, 8, 9};
    EXPECT_EQ(build(get_port_str, pnums), "GPON1/1-GPON1/4,GPON1/8-EPON2/1,EPON2/3");
    EXPECT_TRUE(std::is_sorted(pnums.begin(), pnums.end()));
    std::vector<uint32_t> typed = {4, 3, 2, 17, 18};
    EXPECT_EQ(build(get_arragne_str, typed), "GPON1/4,GPON1/3,GPON1/2,XE3/1-XE3/2");
    for (const auto &[list, printed] : std::vector<std::pair<std::vector<int>, std::string>>{
             {{3, 1, 2, 8}, "GPON1/1-GPON1/3,GPON1/8"}, {{9, 1}, "GPON1/1,EPON2/1"}, {{}, ""}}) {
        std::vector<int> ports = list;
        gvtest::CliCapture capture;
        pr_cli_str(ports.data(), static_cast<int>(ports.size()), capture.ctx());
        EXPECT_EQ(capture.text(), printed);
        pr_cli_str(ports.data(), static_cast<int>(ports.size()), nullptr);
    }
}

TEST(RunWriters, WriteOneRunWithItsComma) {
    ChassisRoot root{"test3"};
    char dest[128] = "GE,";
    const uint32_t pnums[] = {1, 4, 9, 16};
    EXPECT_EQ(get_cmd_string(&pnums[0], &pnums[1], dest + 3), 16);
    EXPECT_STREQ(dest, "GE,GPON1/1-GPON1/4,");
    EXPECT_EQ(get_cmd_string(&pnums[1], &pnums[1], dest), 8);
    EXPECT_STREQ(dest, "GPON1/4,");
    EXPECT_EQ(get_cmd_gemport_string(&pnums[2], &pnums[3], dest, 8), 8);
    EXPECT_STREQ(dest, "2/1-2/8,");
    const uint8_t onus[] = {5, 9};
    EXPECT_EQ(get_onu_cmd_string(&onus[0], &onus[1], dest), 4);
    EXPECT_STREQ(dest, "5-9,");
    EXPECT_EQ(get_onu_cmd_string(&onus[0], &onus[0], dest), 2);
    EXPECT_EQ(get_cmd_string(nullptr, &pnums[1], dest), 0);
}

std::set<uint32_t> port_list_members(const std::string &text) {
    gvtest::CliCapture capture;
    std::vector<uint32_t> out(4096);
    const int count = get_port_list(text.c_str(), out.data(), get_port_num(0), capture.ctx());
    EXPECT_EQ(capture.text(), "") << text;
    return {out.begin(), out.begin() + count};
}

std::set<uint32_t> id_list_members(id_range *(*parser)(const char *), const std::string &text) {
    const rangetest::RangeList list(parser(text.c_str()));
    std::vector<uint16_t> ids(65536);
    ids.resize(static_cast<std::size_t>(get_range_to_list(list.get(), ids.data(), 65536)));
    return {ids.begin(), ids.end()};
}

TEST(RoundTrip, PortTextReadsBackAsTheSamePorts) {
    for (const auto &[chassis, pnums] : std::vector<std::pair<const char *, std::vector<uint32_t>>>{
             {"test3", {11, 4, 3, 2, 1, 8, 9}},
             {"test3", {17, 18, 19, 32}},
             {"k7400", {1, 2, 3, 16, 17, 25, 28}},
             {"k7200", {5, 6, 7, 45}},
             {"k3100x", {1, 2, 3, 4, 11, 28}}}) {
        ChassisRoot root{chassis};
        std::vector<uint32_t> list = pnums;
        const std::string text = build(get_port_str, list);
        EXPECT_EQ(port_list_members(text), std::set<uint32_t>(pnums.begin(), pnums.end()))
            << chassis << " " << text;
    }
}

std::set<uint32_t> vlan_list_members(const std::string &text) {
    gvtest::CliCapture capture;
    std::vector<uint16_t> out(4096);
    const int count = get_br_list(text.c_str(), out.data(), capture.ctx());
    EXPECT_EQ(capture.text(), "") << text;
    return {out.begin(), out.begin() + count};
}

std::set<uint32_t> range_token_members(const std::string &text) {
    std::vector<value_range> out(64);
    const int count = get_range_token(text.c_str(), out.data(), 4094, nullptr);
    std::set<uint32_t> members;
    for (int i = 0; i < count; ++i) {
        for (uint32_t v = out[static_cast<std::size_t>(i)].low;
             v <= out[static_cast<std::size_t>(i)].high; ++v) {
            members.insert(v);
        }
    }
    return members;
}

TEST(RoundTrip, IdTextsReadBackAsTheSameIds) {
    for (const std::vector<uint16_t> &ids : std::vector<std::vector<uint16_t>>{
             {1, 2, 3, 7}, {5}, {1}, {4092, 4093, 4094}, {10, 12, 14, 15, 16}}) {
        const std::set<uint32_t> members(ids.begin(), ids.end());
        std::vector<uint16_t> vlans = ids;
        const std::string vlan_text = build(get_br_str, vlans);
        EXPECT_EQ(vlan_list_members(vlan_text), members) << vlan_text;
        EXPECT_EQ(id_list_members(get_br_list_br, vlan_text), members) << vlan_text;
        std::vector<int> ints(ids.begin(), ids.end());
        const std::string int_text = build(get_int_list_str, ints);
        EXPECT_EQ(range_token_members(int_text), members) << int_text;
        EXPECT_EQ(id_list_members(get_id_list, int_text), members) << int_text;
        if (ids.back() < 256) {
            std::vector<uint8_t> onus(ids.begin(), ids.end());
            EXPECT_EQ(id_list_members(get_id_list, build(get_onu_str, onus)), members);
        }
    }
}

TEST(RoundTrip, GemPortTextReadsBackAsTheSameIndexes) {
    for (const std::vector<uint32_t> &indexes : std::vector<std::vector<uint32_t>>{
             {7, 8, 9, 10}, {1}, {8, 16, 24}, {3, 4, 5, 6, 7, 8, 9, 250}}) {
        std::vector<uint32_t> list = indexes;
        char text[256];
        get_gemport_str(list.data(), static_cast<int>(list.size()), text, 8);
        gvtest::CliCapture capture;
        std::vector<uint32_t> out(256);
        const int count = get_mapper_gemport(text, out.data(), 256, 8, capture.ctx());
        EXPECT_EQ(std::set<uint32_t>(out.begin(), out.begin() + count),
                  std::set<uint32_t>(indexes.begin(), indexes.end()))
            << text << capture.text();
    }
}

} // namespace
