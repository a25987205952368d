// The zeroed work buffer of the slot and VLAN lists: taken once for a list,
// not at all for the other forms, and a failed allocation gives 0 quietly.
#include "calloc_spy.h"
#include "gvutil/cli.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

constexpr std::size_t kWorkBuffer = 10240;

using ListParser = int (*)(const char *, value_range *, cli_ctx *);

TEST(WorkBuffer, OneForEachListAndNoneForTheOtherForms) {
    gvtest::ChassisRoot root{"test3"};
    const struct {
        ListParser parser;
        const char *text;
        int buffers;
    } cases[] = {
        {get_vid_token, "1-3,10", 1}, {get_vid_token, "1,0,7", 1}, // freed on the error too
        {get_vid_token, "br2", 0},    {get_vid_token, "br1", 0},   {get_vid_token, "default", 0},
        {get_slot_token, "1,2-4", 1}, {get_slot_token, "3", 1},
    };
    for (const auto &c : cases) {
        value_range out[8];
        spy::count_callocs_of(kWorkBuffer);
        c.parser(c.text, out, nullptr);
        EXPECT_EQ(spy::counted_callocs(), c.buffers) << c.text;
    }
    uint16_t ids[8];
    spy::count_callocs_of(kWorkBuffer);
    EXPECT_EQ(get_br_list("2-4", ids, nullptr), 3);
    EXPECT_EQ(spy::counted_callocs(), 1);
}

TEST(WorkBuffer, AFailedAllocationGivesZeroQuietly) {
    gvtest::ChassisRoot root{"test3"};
    gvtest::CliCapture capture;
    value_range out[8];
    uint16_t ids[8];
    const struct {
        const char *what;
        std::function<int(cli_ctx *)> call;
        int answer; // with its buffer
    } calls[] = {
        {"vid 1-3", [&](cli_ctx *ctx) { return get_vid_token("1-3", out, ctx); }, 1},
        {"vid 1,4", [&](cli_ctx *ctx) { return get_vid_token("1,4", out, ctx); }, 2},
        {"br 2-4", [&](cli_ctx *ctx) { return get_br_list("2-4", ids, ctx); }, 3},
        {"slot 1,2", [&](cli_ctx *ctx) { return get_slot_token("1,2", out, ctx); }, 2},
    };
    for (const auto &c : calls) {
        spy::fail_next_calloc_of(kWorkBuffer);
        EXPECT_EQ(c.call(capture.ctx()), 0) << c.what;
        EXPECT_EQ(capture.take(), "") << c.what;
        EXPECT_EQ(c.call(capture.ctx()), c.answer) << c.what; // the next call has its buffer
    }
    // The bridge and default forms need no buffer: they still answer.
    spy::fail_next_calloc_of(kWorkBuffer);
    EXPECT_EQ(get_vid_token("br7", out, capture.ctx()), 1);
    EXPECT_EQ(get_vid_token("default", out, capture.ctx()), 1);
    EXPECT_EQ(get_vid_token("7", out, capture.ctx()), 0);
    EXPECT_EQ(get_vid_token("7", out, capture.ctx()), 1);
}

} // namespace
