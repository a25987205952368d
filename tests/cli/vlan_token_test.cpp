// VLAN lists and the bridge and default forms, and the work buffer the VLAN
// and slot lists are read in.
#include "gvutil/cli.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"
#include "support/heap_watch.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using namespace gvtest;

std::string vid(const char *text, cli_ctx *ctx) {
    value_range out[16] = {};
    return shown(out, get_vid_token(text, out, ctx));
}

TEST(VidToken, FormsAndMessages) {
    expect_rows(vid,
                {{"1-3,10", "1-3 10-10"},
                 {"default", "1-1"},
                 {"br4094", "4094-4094"},
                 {"br1", "", "% There is no such a vlan:'br1'\n"}, // VLAN 1 is never a bridge
                 {"br", "", "%Invalid input parameter: br\n"},
                 {"br0", "", "%Invalid input parameter: br0\n"},
                 {"br5000", "", "%Invalid range: 5000 [1-4094]\n"},
                 {"br2,3", "", "%Invalid input parameter : br2\n"}, // read as a list
                 // An id above 4094 alone is skipped; every other error ends the list.
                 {"1,5000,7", "1-1 7-7", "%Invalid range: 5000 [1-4094]\n"},
                 {"5-5000", "", "%Invalid range: 5-5000 [1-4094]\n"},
                 {"1,0,7", "", "%Invalid input parameter: 0\n"},
                 {"1,a,7", "", "%Invalid input parameter : a\n"},
                 {"x-7", "", "%Invalid input parameter : x\n"},
                 {"3-y", "", "%Invalid input parameter : y\n"},
                 {"0-7", "", "%Invalid input parameter: 0-7\n"},
                 {"7-7", "", "%Invalid sequence order: 7-7\n"},
                 {"-5", "", "%Invalid range: -5 [1-4094]\n"}, // an empty end is no id
                 {"5-", "", "%Invalid range: 5- [1-4094]\n"},
                 {",,", ""}},
                Context::kBoth);
    // br1 is stored before it is refused; callers read no range of a 0.
    value_range out[1] = {};
    EXPECT_EQ(get_vid_token("br1", out, nullptr), 0);
    EXPECT_EQ(out[0].low, 1);
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

std::string br_list(const char *text, cli_ctx *ctx) {
    uint16_t out[64] = {};
    return shown(out, get_br_list(text, out, ctx));
}

TEST(BrList, EveryIdInOrderWithDuplicates) {
    expect_rows(br_list,
                {{"5-7,2,6", "5 6 7 2 6"}, {"1,5000,3", "1 3", "%Invalid range: 5000 [1-4094]\n"}});
    EXPECT_EQ(get_br_list("1", nullptr, nullptr), 0);
}

// One buffer for a list, given back on every return; none for the bridge
// and default forms. Without it a list answers 0 and prints nothing.
TEST(WorkBuffer, OneForEachListAndNoneForTheOtherForms) {
    ChassisRoot root{"test3"};
    value_range out[8];
    uint16_t ids[8];
    const struct {
        const char *what;
        std::function<int(cli_ctx *)> call;
        int answer;
        bool buffer;
    } calls[] = {
        {"vid 1,0", [&](cli_ctx *ctx) { return get_vid_token("1,0", out, ctx); }, 0, true},
        {"br 2-4", [&](cli_ctx *ctx) { return get_br_list("2-4", ids, ctx); }, 3, true},
        {"slot 1,2", [&](cli_ctx *ctx) { return get_slot_token("1,2", out, ctx); }, 2, true},
        {"vid br7", [&](cli_ctx *ctx) { return get_vid_token("br7", out, ctx); }, 1, false},
        {"vid default", [&](cli_ctx *ctx) { return get_vid_token("default", out, ctx); }, 1, false},
    };
    for (const auto &c : calls) {
        HeapWatch heap;
        for (const long successes : {1L, 0L}) { // one block to be had, or none
            CliCapture capture;
            HeapWatch::fail_after(successes);
            const int answer = c.call(capture.ctx());
            HeapWatch::never_fail();
            const bool starved = successes == 0 && c.buffer;
            EXPECT_EQ(answer, starved ? 0 : c.answer) << c.what << " " << successes;
            EXPECT_TRUE(!starved || capture.text().empty()) << c.what;
            EXPECT_EQ(heap.held(), 0) << c.what;
        }
    }
}

} // namespace
