// VLAN lists, bridge and default forms, and the VLAN texts read back.
#include "gvutil/cli.h"
#include "gvutil/settext.h"
#include "support/cli_capture.h"
#include "value_ranges.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace {

using clitest::Pairs;
using clitest::Parsed;
using gvtest::CliCapture;

Parsed vid(const char *text, bool quiet = false) {
    return clitest::ranges_of(
        [text](value_range *out, cli_ctx *ctx) { return get_vid_token(text, out, ctx); }, quiet);
}

TEST(VidToken, FormsAndMessages) {
    const clitest::Case cases[] = {
        {"1-3,10", {{1, 3}, {10, 10}}, ""},
        {"default", {{1, 1}}, ""},
        {"br2", {{2, 2}}, ""},
        {"br4094", {{4094, 4094}}, ""},
        // VLAN 1 is never a bridge.
        {"br1", {}, "% There is no such a vlan:'br1'\n"},
        {"br", {}, "%Invalid input parameter: br\n"},
        {"br0", {}, "%Invalid input parameter: br0\n"},
        {"br5000", {}, "%Invalid range: 5000 [1-4094]\n"},
        {"brx", {}, "%Invalid input parameter : brx\n"}, // read as a list
        {"br2,3", {}, "%Invalid input parameter : br2\n"},
        // An id above 4094 alone is skipped; every other error ends the list.
        {"1,5000,7", {{1, 1}, {7, 7}}, "%Invalid range: 5000 [1-4094]\n"},
        {"99999999999,7", {{7, 7}}, "%Invalid range: 99999999999 [1-4094]\n"},
        {"5-5000", {}, "%Invalid range: 5-5000 [1-4094]\n"},
        {"1,0,7", {}, "%Invalid input parameter: 0\n"},
        {"1,a,7", {}, "%Invalid input parameter : a\n"},
        {"x-7", {}, "%Invalid input parameter : x\n"},
        {"3-y", {}, "%Invalid input parameter : y\n"},
        {"0-7", {}, "%Invalid input parameter: 0-7\n"},
        {"7-7", {}, "%Invalid sequence order: 7-7\n"},
        {"9-2", {}, "%Invalid sequence order: 9-2\n"},
        {"-5", {}, "%Invalid range: -5 [1-4094]\n"}, // an empty end is no id
        {"5-", {}, "%Invalid range: 5- [1-4094]\n"},
        {",,", {}, ""},
        {"", {}, ""},
    };
    for (const auto &c : cases) {
        const Parsed got = vid(c.text);
        EXPECT_EQ(got.ranges, c.ranges) << c.text;
        EXPECT_EQ(got.printed, c.printed) << c.text;
        const Parsed quiet = vid(c.text, true);
        EXPECT_EQ(quiet.ranges, c.ranges) << c.text; // the same without a context
        EXPECT_EQ(quiet.printed, "") << c.text;
    }
    value_range out[1];
    EXPECT_EQ(get_vid_token(nullptr, out, nullptr), 0);
    EXPECT_EQ(get_vid_token("2", nullptr, nullptr), 0);
}

TEST(VidToken, TheListIsReadUpToItsBufferSize) {
    // 2,559 items of "100," end at character 10,236; what follows character
    // 10,239 is cut off, so "1234" reads as "123".
    std::string text;
    for (int i = 0; i < 2559; ++i) {
        text += "100,";
    }
    text += "1234";
    std::vector<value_range> out(4096);
    ASSERT_EQ(get_vid_token(text.c_str(), out.data(), nullptr), 2560);
    EXPECT_EQ(out[2559].low, 123);
}

std::vector<int> br_list(const char *text, CliCapture &capture) {
    std::vector<uint16_t> out(8192);
    const int count = get_br_list(text, out.data(), capture.ctx());
    return {out.begin(), out.begin() + count};
}

TEST(BrList, EveryIdInOrderWithDuplicates) {
    CliCapture capture;
    EXPECT_EQ(br_list("5-7,2,6", capture), (std::vector<int>{5, 6, 7, 2, 6}));
    EXPECT_EQ(br_list("default", capture), (std::vector<int>{1}));
    EXPECT_EQ(br_list("br9", capture), (std::vector<int>{9}));
    EXPECT_EQ(br_list("1,5000,3", capture), (std::vector<int>{1, 3}));
    EXPECT_EQ(capture.take(), "%Invalid range: 5000 [1-4094]\n");
    EXPECT_EQ(br_list("1,0", capture), std::vector<int>{});
    EXPECT_EQ(br_list("1-4094", capture).size(), 4094u);
    EXPECT_EQ(get_br_list("1", nullptr, nullptr), 0);
}

TEST(BrList, HoldsAtMost2048Ranges) {
    std::string text = "1";
    for (int i = 2; i <= 2100; ++i) {
        text += "," + std::to_string(i);
    }
    std::vector<uint16_t> out(4096);
    ASSERT_EQ(get_br_list(text.c_str(), out.data(), nullptr), 2048);
    EXPECT_EQ(out[2047], 2048);
}

// A VLAN set printed as the shell prints it reads back as the same members.
TEST(VidToken, PrintedVlanSetsReadBack) {
    const std::vector<std::vector<int>> sets = {
        {1}, {1, 2, 3, 5}, {2, 3, 4094}, {7, 9, 11, 12, 13, 100}, {4093, 4094}};
    for (const auto &ids : sets) {
        std::array<uint32_t, GV_ID_SET_WORDS> set{};
        for (int id : ids) {
            ::set(set.data(), id - 1);
        }
        std::vector<char> text(40000);
        vlanset2str(text.data(), 4094, set.data());
        CliCapture capture;
        EXPECT_EQ(br_list(text.data(), capture), ids) << text.data();
        EXPECT_EQ(capture.text(), "");
        if (ids.size() == 1) { // one VLAN prints as "default" or "brN"
            vlanset2str2(text.data(), 4094, set.data());
            const Parsed named = vid(text.data());
            EXPECT_EQ(named.ranges, (Pairs{{ids[0], ids[0]}})) << text.data();
        }
    }
}

} // namespace
