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
#include <string>
#include <vector>

namespace {

using namespace gvtest;

// The text a builder writes; its answer must be the text's length.
template <typename T, typename Builder> std::string build(Builder builder, std::vector<T> &list) {
    char dest[512] = "junk";
    const int length = builder(list.data(), static_cast<int>(list.size()), dest);
    EXPECT_EQ(length, static_cast<int>(std::strlen(dest)));
    return dest;
}

TEST(RunBuilders, NumbersSortedIntoRuns) {
    std::vector<int> extremes = {INT_MAX, 0, INT_MIN, INT_MAX - 1, -1, 5};
    EXPECT_EQ(build(get_int_list_str, extremes), "-2147483648,-1-0,5,2147483646-2147483647");
    EXPECT_TRUE(std::is_sorted(extremes.begin(), extremes.end()));
    std::vector<uint8_t> onus = {255, 5, 1, 3, 2};
    EXPECT_EQ(build(get_onu_str, onus), "1-3,5,255");
    EXPECT_TRUE(std::is_sorted(onus.begin(), onus.end()));
    for (const auto &[ids, text] : std::vector<std::pair<std::vector<uint16_t>, std::string>>{
             {{1}, "default"}, {{5}, "br5"}, {{1, 2, 3, 7}, "1-3,7"}, {{3, 2, 1}, "3,2,1"}}) {
        std::vector<uint16_t> vlans = ids;
        EXPECT_EQ(build(get_br_str, vlans), text);
    }
    std::vector<int> none;
    EXPECT_EQ(build(get_int_list_str, none), "");
    EXPECT_EQ(get_int_list_str(extremes.data(), 3, nullptr), 0);
}

TEST(RunBuilders, GemPortRunsNeverCrossAMapper) {
    for (const auto &[indexes, per, text] :
         std::vector<std::tuple<std::vector<uint32_t>, int, std::string>>{
             {{10, 7, 9, 8}, 8, "1/7-1/8,2/1-2/2"},
             {{1, 2, 3, 4}, 2, "1/1-1/2,2/1-2/2"},
             {{4, 3}, 0, ""}}) { // no GEM port per mapper: still sorted, nothing named
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
    std::vector<int> ports = {9, 3, 1, 2, 17};
    CliCapture capture;
    pr_cli_str(ports.data(), 5, capture.ctx());
    EXPECT_EQ(capture.text(), "GPON1/1-GPON1/3,EPON2/1,XE3/1");
    std::vector<int> quiet = {9, 3, 1};
    pr_cli_str(quiet.data(), 3, nullptr);
    EXPECT_EQ(quiet, (std::vector<int>{1, 3, 9})); // still sorted
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

// Each builder's text, read back by its parsers, gives its members again
// (in order: the builders sort, or are given sorted lists) and no message.
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
        expect_rows(value_list(get_port_list, get_port_num(0)),
                    {{text.c_str(), shown(list.data(), static_cast<int>(list.size()))}});
    }
}

std::string id_list(id_range *(*parser)(const char *), const std::string &text) {
    const rangetest::RangeList list(parser(text.c_str()));
    uint16_t ids[4096];
    return shown(ids, get_range_to_list(list.get(), ids, 4096));
}

TEST(RoundTrip, IdTextsReadBackAsTheSameIds) {
    const auto vlans = [](const char *text, cli_ctx *ctx) {
        uint16_t out[64];
        return shown(out, get_br_list(text, out, ctx));
    };
    for (std::vector<uint16_t> ids : std::vector<std::vector<uint16_t>>{
             {1, 2, 3, 7}, {5}, {1}, {4092, 4093, 4094}, {10, 12, 14, 15, 16}}) {
        const std::string members = shown(ids.data(), static_cast<int>(ids.size()));
        const std::string vlan_text = build(get_br_str, ids);
        expect_rows(vlans, {{vlan_text.c_str(), members}});
        EXPECT_EQ(id_list(get_br_list_br, vlan_text), members) << vlan_text;
        std::vector<int> ints(ids.begin(), ids.end());
        EXPECT_EQ(id_list(get_id_list, build(get_int_list_str, ints)), members);
    }
}

TEST(RoundTrip, GemPortTextReadsBackAsTheSameIndexes) {
    const auto indexes = [](const char *text, cli_ctx *ctx) {
        uint32_t out[256];
        return shown(out, get_mapper_gemport(text, out, 256, 8, ctx));
    };
    for (std::vector<uint32_t> list : std::vector<std::vector<uint32_t>>{
             {10, 9, 8, 7}, {1}, {8, 16, 24}, {3, 4, 5, 6, 7, 8, 9, 250}}) {
        char text[256];
        get_gemport_str(list.data(), static_cast<int>(list.size()), text, 8);
        expect_rows(indexes, {{text, shown(list.data(), static_cast<int>(list.size()))}});
    }
}

} // namespace
