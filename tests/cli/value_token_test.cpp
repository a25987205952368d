// Range, class-of-service, VRRP-id and interface lists; group ids; MAC
// addresses; trunk keywords and ONT number texts.
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "support/cli_capture.h"
#include "value_ranges.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using clitest::expect_cases;
using gvtest::CliCapture;

TEST(RangeToken, LenientWithItsOwnWords) {
    expect_cases(get_range_token, 16,
                 {
                     {"1-4,7", {{1, 4}, {7, 7}}, ""},
                     {"5-99", {{5, 16}}, "%Invalid range: 5-99 [1-16]\n"}, // kept, lowered
                     {"99,3", {{3, 3}}, "%Invalid range: 99 [1-16]\n"},    // dropped
                     {"0,2", {{2, 2}}, "%Invalid parameter: 0\n"},
                     {"4-4", {}, "%Invalid sequence order: 4-4\n"},
                     {"1,-3", {}, "%Invalid parameter: -3\n"},
                 });
}

TEST(CosToken, ZeroIsAValue) {
    expect_cases(get_cos_token, 7,
                 {
                     {"0-7", {{0, 7}}, ""},
                     {"0", {{0, 0}}, ""},
                     {"8,1", {{1, 1}}, "%Invalid range: 8 [0-7]\n"},
                     {"2-9", {{2, 7}}, "%Invalid range: 2-9 [0-7]\n"},
                     {"3-3", {}, "%Invalid sequence order: 3-3\n"},
                     {"x,1", {{1, 1}}, "%Invalid cos: x\n"},
                     {"1-x,2", {{2, 2}}, "%Invalid range: 1-x [-7]\n"},
                     {"2,-1,3", {}, "%Invalid cos: -1\n"}, // ends the call
                 });
    // Without a context single values are not checked; a range is lowered to
    // max, and a range with an end that is no number is dropped.
    expect_cases(get_cos_token, 7,
                 {
                     {"9", {{9, 9}}, ""},
                     {"5-3", {{5, 3}}, ""},
                     {"1-x,2", {{2, 2}}, ""},
                     {"-1,2", {{2, 2}}, ""},
                 },
                 true);
}

TEST(StrictTokens, FirstErrorEndsTheCall) {
    const struct {
        clitest::TokenParser parser;
        const char *word;
    } kinds[] = {{get_vrid_token, "vrid"}, {get_interface_token, "interface"}};
    for (const auto &kind : kinds) {
        const std::string invalid = std::string("%Invalid ") + kind.word + ": ";
        expect_cases(kind.parser, 255,
                     {
                         {"1,2-4", {{1, 1}, {2, 4}}, ""},
                         {"1,0", {}, invalid + "0\n"},
                         {"-2", {}, invalid + "-2\n"},
                         {"2-300", {}, "%Invalid range: 2-300 [1-255]\n"},
                         {"0-3", {}, "%Invalid range: 0-3 [1-255]\n"},
                         {"3-3", {}, "%Invalid sequence order: 3-3\n"},
                     });
        expect_cases(kind.parser, 255,
                     {
                         {"300,5-3", {{300, 300}, {5, 3}}, ""},
                         {"2-300", {{2, 255}}, ""},
                         {"1,0-3", {}, ""},
                     },
                     true);
    }
}

// No ONU option store in this process: the smallest id reads as -1, and a
// text that is no number is still no id.
TEST(OnuToken, WithoutAStoreTextIsStillNoId) {
    CliCapture capture;
    value_range out[4] = {};
    EXPECT_EQ(get_onu_token("x,0,3", out, 8, capture.ctx()), 2);
    EXPECT_EQ(capture.take(), "%Invalid onu token: x\n");
    EXPECT_EQ(get_onu_token("x-3,9", out, 8, capture.ctx()), 0);
    EXPECT_EQ(capture.take(), "%Invalid range: x-3 [-1-8]\n%Invalid range: 9 [-1-8]\n");
}

std::vector<uint32_t> gids(const char *text, int limit, std::string &printed) {
    CliCapture capture;
    std::vector<char> writable(text, text + std::strlen(text) + 1);
    uint32_t out[300] = {};
    const int count = get_gid_list(writable.data(), out, limit, capture.ctx());
    printed = capture.text();
    return {out, out + count};
}

TEST(GidList, SortedOnceEachAndEveryErrorSkipped) {
    const struct {
        const char *text;
        int limit;
        std::vector<uint32_t> ids;
        const char *printed;
    } cases[] = {
        {"5,3-4,4", 8, {3, 4, 5}, ""},
        {"4-4", 8, {4}, ""}, // an equal pair is one group
        {"6-2,1", 8, {1}, "%Invalid sequence order: 6-2\n"},
        {"8,1", 8, {1}, "%Invalid range: 8 [0-7]\n"},
        {"5-12", 8, {5, 6, 7}, "%Invalid range: 5-12 [0-7]\n"},
        {"x,-3,2", 8, {2}, "%Invalid input parameter: x\n%Invalid input parameter: -3\n"},
        {"1-x", 8, {}, "%Invalid input parameter: 1-x\n"},
        {"286-300", 288, {286, 287}, "%Invalid range: 286-300 [0-287]\n"},
        {"287,288", 1000, {287}, "%Invalid range: 288 [0-287]\n"}, // a limit above 288 is 288
        {",,", 8, {}, ""},
    };
    for (const auto &c : cases) {
        std::string printed;
        EXPECT_EQ(gids(c.text, c.limit, printed), c.ids) << c.text;
        EXPECT_EQ(printed, c.printed) << c.text;
    }
}

TEST(GidList, ModuleBitmapAndTheCallersText) {
    CliCapture capture;
    char text[] = "1,2-9";
    uint32_t out[16] = {};
    ASSERT_EQ(get_gid_list(text, out, 8, capture.ctx()), 7);
    // The bit one past the last group is set, never reported.
    EXPECT_EQ(g_array[0], 0x1FEu);
    EXPECT_STREQ(text, "1"); // cut in place at its commas
    EXPECT_STREQ(text + 2, "2-9");
    char again[] = "3";
    ASSERT_EQ(get_gid_list(again, out, 8, capture.ctx()), 1);
    EXPECT_EQ(g_array[0], 0x8u); // cleared by every call
    EXPECT_EQ(get_gid_list(again, out, 8, nullptr), 0);
    EXPECT_EQ(get_gid_list(nullptr, out, 8, capture.ctx()), 0);
    EXPECT_EQ(get_gid_list(again, nullptr, 8, capture.ctx()), 0);
}

TEST(MacToken, AddressesAndTheFirstBadOne) {
    const struct {
        const char *text;
        std::string digits;
        const char *printed;
    } cases[] = {
        {"00:11:22:33:44:55", "001122334455", ""},
        {"00:11-22:33:44:55", "001122334455", ""}, // separators may be mixed
        {"aB:cD:eF:01:23:45,00-00-00-00-00-0f", "aBcDeF01234500000000000f", ""},
        {"0011.2233.4455", "", "%Invalid mac address: 0011.2233.4455\n"},
        {"00:11:22:33:44:555", "", "%Invalid mac address: 00:11:22:33:44:555\n"},
        {"00:11:22:33:44:5g", "", "%Invalid mac address: 00:11:22:33:44:5g\n"},
        {"00:11:22:33:44:55,001:1:22:33:44:55", "", "%Invalid mac address: 001:1:22:33:44:55\n"},
    };
    for (const auto &c : cases) {
        CliCapture capture;
        char out[3 * GV_MAC_TOKEN_SIZE] = {};
        const int count = get_mac_token(c.text, out, capture.ctx());
        EXPECT_EQ(count, static_cast<int>(c.digits.size()) / GV_MAC_TOKEN_SIZE) << c.text;
        EXPECT_EQ(std::string(out, static_cast<std::size_t>(count) * GV_MAC_TOKEN_SIZE), c.digits)
            << c.text;
        EXPECT_EQ(capture.text(), c.printed) << c.text;
        EXPECT_EQ(get_mac_token(c.text, out, nullptr), count) << c.text;
    }
}

TEST(TrunkTag, KeywordsOfTheDistributionTable) {
    for (int index : {0, 1, 2, 3, 4, 5, 7}) { // every keyword the table prints reads back
        EXPECT_EQ(trunk_tag_to_index(trunk_index_to_user_tag(index)), index);
    }
    EXPECT_EQ(trunk_tag_to_index("srcdstl4"), 5); // shares the index of srcdstip
    for (const char *unknown :
         {"SRC_MAC", "SrcMac", "srcma", "", static_cast<const char *>(nullptr)}) {
        EXPECT_EQ(trunk_tag_to_index(unknown), -1);
    }
}

TEST(OntId, TextForm) {
    const struct {
        uint32_t ontid;
        const char *text;
    } cases[] = {
        {1, "1/1/1"},    {64, "1/1/64"},          {65, "1/2/1"},
        {256, "1/4/64"}, {257, "2/1/1"},          {1024, "4/4/64"},
        {0, "0/4/64"},   {1025, "Invalid ONTID"}, {0xFFFFFFFFu, "Invalid ONTID"},
    };
    for (const auto &c : cases) {
        char text[32] = {};
        EXPECT_EQ(convert_int_ontid_to_str_ontid(c.ontid, text),
                  static_cast<int>(std::strlen(c.text)));
        EXPECT_STREQ(text, c.text);
    }
}

} // namespace
