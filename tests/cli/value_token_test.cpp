// ONU ids without the ONU option store, group ids, MAC addresses, mapper/GEM
// port lists, trunk keywords and ONT number texts.
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace gvtest;

// No ONU option store in this process: the smallest id reads as -1, and a
// text that is no number is still no id.
TEST(OnuToken, WithoutAStoreTextIsStillNoId) {
    expect_rows(value_token(get_onu_token, 8),
                {{"x,0,3", "0-0 3-3", "%Invalid onu token: x\n"},
                 {"x-3,9", "", "%Invalid range: x-3 [-1-8]\n%Invalid range: 9 [-1-8]\n"}});
}

// Every bad item is told and skipped; ids come back sorted, each once.
std::string gids(const char *text, int limit, cli_ctx *ctx) {
    std::vector<char> writable(text, text + std::strlen(text) + 1);
    uint32_t out[300] = {};
    return shown(out, get_gid_list(writable.data(), out, limit, ctx));
}

TEST(GidList, SortedOnceEachAndEveryErrorSkipped) {
    const auto limit8 = [](const char *text, cli_ctx *ctx) { return gids(text, 8, ctx); };
    expect_rows(limit8,
                {{"5,3-4,4", "3 4 5"},
                 {"4-4", "4"}, // an equal pair is one group
                 {"6-2,1", "1", "%Invalid sequence order: 6-2\n"},
                 {"8,1", "1", "%Invalid range: 8 [0-7]\n"},
                 {"5-12", "5 6 7", "%Invalid range: 5-12 [0-7]\n"},
                 {"8-9", "", "%Invalid range: 8-9 [0-7]\n"},
                 {"x,-3,2", "2", "%Invalid input parameter: x\n%Invalid input parameter: -3\n"},
                 {"1-x", "", "%Invalid input parameter: 1-x\n"},
                 {",,", ""}});
    // g_array holds 288 groups: a larger limit is 288, a negative one 0.
    expect_rows([](const char *text, cli_ctx *ctx) { return gids(text, 1000, ctx); },
                {{"286-300", "286 287", "%Invalid range: 286-300 [0-287]\n"}});
    expect_rows([](const char *text, cli_ctx *ctx) { return gids(text, -5, ctx); },
                {{"0", "", "%Invalid range: 0 [0--1]\n"}});
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

// The twelve digits of each address as typed; the first bad one gives 0.
std::string macs(const char *text, cli_ctx *ctx) {
    char out[3 * GV_MAC_TOKEN_SIZE] = {};
    const int count = get_mac_token(text, out, ctx);
    return std::to_string(count) + " " + std::string(out, std::size_t(count) * GV_MAC_TOKEN_SIZE);
}

TEST(MacToken, AddressesAndTheFirstBadOne) {
    expect_rows(macs,
                {{"00:11-22:33:44:55", "1 001122334455"}, // separators may be mixed
                 {"aB:cD:eF:01:23:45,00-00-00-00-00-0f", "2 aBcDeF01234500000000000f"},
                 {"0011.2233.4455", "0 ", "%Invalid mac address: 0011.2233.4455\n"},
                 {"00:11:22:33:44:5g", "0 ", "%Invalid mac address: 00:11:22:33:44:5g\n"},
                 {"00:11:22:33:44:55,001:1:22:33:44:55", "0 ",
                  "%Invalid mac address: 001:1:22:33:44:55\n"}},
                Context::kBoth);
}

constexpr int kPer = 8; // GEM ports per mapper

// The ranges, then the errors counted: each refusal is counted and told.
std::string mapper_gems(const char *text, cli_ctx *ctx) {
    mapper_gem_range out[40] = {};
    uint32_t errs = 0;
    const std::string ranges = shown(out, get_mapper_gemport_token(text, out, &errs, kPer, ctx));
    return with_errors(ranges, errs);
}

TEST(MapperGemToken, ItemsRangesAndMessages) {
    expect_rows(mapper_gems,
                {{"1/3-7,1/3-1/3", "1/3-7 1/3-3 errs=0"}, // a bare end takes the start's mapper
                 {"1/3-3/2,32/8", "1/3-8 2/1-8 3/1-2 32/8-8 errs=0"},
                 {"1/3-1/2,3/1-2/8", "errs=2",
                  "%Invalid sequence order: 1/3-1/2\n%Invalid sequence order: 3/1-2/8\n"},
                 {"5,0/1,1/0,2/2", "2/2-2 errs=3",
                  "%Invalid input parameter: 5\n%Invalid input parameter: 0/1\n"
                  "%Invalid input parameter: 1/0\n"},
                 {"1/256", "errs=1", "%Invalid input parameter: 1/256\n"}, // the port is 8 bits
                 {"33/1,x/1", "errs=2",
                  "%Invalid mapper number range: 33/1\n%Invalid mapper number range: x/1\n"},
                 {"1/9,1/x,1/2-9", "errs=3",
                  "%range error: 1/9 [1/1-8]\n%range error: 1/x [1/1-8]\n"
                  "%range error: 1/9 [1/1-8]\n"}},
                Context::kBoth);
    uint32_t errs = 7;
    mapper_gem_range out[2];
    EXPECT_EQ(get_mapper_gemport_token("33/1,5", out, &errs, kPer, nullptr), 0);
    EXPECT_EQ(errs, 9u); // added to, never reset
    EXPECT_EQ(get_mapper_gemport_token("1/1", out, nullptr, kPer, nullptr), 1);
    EXPECT_EQ(get_mapper_gemport_token(nullptr, out, nullptr, kPer, nullptr), 0);
}

// GEM indexes port + per * (mapper - 1), each once; any error gives none.
template <int Max> std::string indexes(const char *text, cli_ctx *ctx) {
    uint32_t out[300] = {};
    return shown(out, get_mapper_gemport(text, out, Max, kPer, ctx));
}

TEST(MapperGemport, IndexesOnceEachOrNothing) {
    expect_rows(indexes<256>, {{"2/2,1/1-2/3", "10 1 2 3 4 5 6 7 8 9 11"}, // first-seen order
                               {"1/1,1/9", "", "%range error: 1/9 [1/1-8]\n"},
                               {",", "", "%Invaild parameter ,\n"}});
    // The message's mapper counts from 0 and the last port of a mapper is 0.
    expect_rows(indexes<20>, {{"1/1,3/8", "", "%check if it is suitable parameter : 2/0, 24\n"}});
    uint32_t out[1];
    EXPECT_EQ(get_mapper_gemport(nullptr, out, 256, kPer, nullptr), 0);
    // 2,048 ranges are held; the 2,049th item (2/1, index 9) is dropped.
    std::string held;
    for (int item = 0; item < 2048; ++item) {
        held += "1/1,";
    }
    EXPECT_EQ(indexes<256>((held + "2/1").c_str(), nullptr), "1");
}

TEST(TrunkTag, KeywordsOfTheDistributionTable) {
    for (int index : {0, 1, 2, 3, 4, 5, 7}) { // every keyword the table prints reads back
        EXPECT_EQ(trunk_tag_to_index(trunk_index_to_user_tag(index)), index);
    }
    EXPECT_EQ(trunk_tag_to_index("srcdstl4"), 5); // shares the index of srcdstip
    for (const char *unknown : {"SrcMac", "srcma", "", static_cast<const char *>(nullptr)}) {
        EXPECT_EQ(trunk_tag_to_index(unknown), -1);
    }
}

TEST(OntId, TextForm) {
    const std::pair<uint32_t, std::string> cases[] = {
        {1, "1/1/1"},  {65, "1/2/1"},    {256, "1/4/64"},         {257, "2/1/1"},
        {0, "0/4/64"}, {1024, "4/4/64"}, {1025, "Invalid ONTID"},
    };
    for (const auto &[ontid, text] : cases) {
        char dest[32] = {};
        EXPECT_EQ(convert_int_ontid_to_str_ontid(ontid, dest), static_cast<int>(text.size()));
        EXPECT_EQ(dest, text);
    }
    EXPECT_EQ(convert_int_ontid_to_str_ontid(1, nullptr), 0);
}

} // namespace
