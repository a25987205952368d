// Slot/port items and lists typed by the operator.
#include "gvutil/cli.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using gvtest::ChassisRoot;
using gvtest::CliCapture;
using Triple = std::tuple<int, int, int>;

struct Parsed {
    std::vector<Triple> ranges;
    uint32_t errs = 0;
    std::string printed;
};

template <typename Parser> Parsed parse(Parser parser, const char *text, bool quiet = false) {
    CliCapture capture;
    slot_port_range out[64] = {};
    Parsed got;
    const int count = parser(text, out, quiet ? nullptr : capture.ctx(), &got.errs);
    for (int i = 0; i < count; ++i) {
        got.ranges.emplace_back(out[i].slot, out[i].first_port, out[i].last_port);
    }
    got.printed = capture.text();
    return got;
}

// One item in real slot numbers; the pair starts as given.
TEST(SlotPortItem, ChecksAndFillsThePair) {
    ChassisRoot root{"test3"};
    struct Case {
        const char *item;
        slot_port_pair before;
        int good;
        slot_port_pair after;
        const char *printed;
    };
    const Case cases[] = {
        {"1/3", {0, 0}, 1, {1, 3}, ""},
        {"GPON1/3", {0, 0}, 1, {1, 3}, ""},
        {"t/2", {0, 0}, 1, {4, 2}, ""},
        {"CG8", {0, 0}, 1, {4, 8}, ""},
        {"5", {1, 3}, 1, {1, 3}, ""}, // a bare number keeps the previous pair
        {"5", {0, 0}, 0, {0, 0}, "%Invalid input parameter: 5\n"},
        {"1/0", {0, 0}, 0, {1, 0}, "%Invalid input parameter: 1/0\n"},
        {"0/1", {0, 0}, 0, {0, 1}, "%Invalid input parameter: 0/1\n"},
        {"1-3", {1, 3}, 0, {1, 3}, "%Invalid input parameter: 1-3\n"},
        {"4/1", {0, 0}, 0, {4, 1}, "%Invalid slot id range: 4/1\n"},
        {"x/1", {0, 0}, 0, {255, 1}, "%Invalid slot id range: x/1\n"},
        {"1/99", {0, 0}, 0, {1, 8}, "%range error: 1/99 [1/1-8]\n"},
        {"3/20", {0, 0}, 0, {3, 16}, "%range error: 0/20 [0/1-16]\n"}, // shown as user slot
        {"t/9", {0, 0}, 0, {4, 8}, "%range error: t/9 [t/1-8]\n"},
    };
    for (const Case &c : cases) {
        CliCapture capture;
        slot_port_pair pair = c.before;
        uint32_t errs = 0;
        EXPECT_EQ(build_slot_port_list(c.item, &pair, capture.ctx(), &errs), c.good) << c.item;
        EXPECT_EQ(pair.slot, c.after.slot) << c.item;
        EXPECT_EQ(pair.port, c.after.port) << c.item;
        EXPECT_EQ(errs, c.good != 0 ? 0u : 1u) << c.item;
        EXPECT_EQ(capture.text(), c.printed) << c.item;
    }
    slot_port_pair pair{};
    uint32_t errs = 0;
    EXPECT_EQ(build_slot_port_list("", &pair, nullptr, &errs), 0);
    EXPECT_EQ(errs, 0u); // an empty item is no error
}

TEST(SlotPortItem, SlotWithoutPortsCannotBeAsked) {
    ChassisRoot root{"k7100"}; // slot 9 is empty
    CliCapture capture;
    slot_port_pair pair{};
    uint32_t errs = 0;
    EXPECT_EQ(build_slot_port_list("9/1", &pair, capture.ctx(), &errs), 0);
    EXPECT_EQ(capture.text(), "%Can't get slot info : 9/1\n");
    EXPECT_EQ(errs, 1u);
}

TEST(SlotPortToken, ListsExpandIntoRangesPerSlot) {
    ChassisRoot root{"test3"};
    struct Case {
        const char *text;
        std::vector<Triple> ranges;
        uint32_t errs;
        const char *printed;
    };
    const Case cases[] = {
        {"1/3-1/3", {{1, 3, 3}}, 0, ""},
        {"1/3-7", {{1, 3, 7}}, 0, ""},
        {"1/3-2/2", {{1, 3, 8}, {2, 1, 2}}, 0, ""},
        {"2/7-0/2", {{2, 7, 8}, {3, 1, 2}}, 0, ""}, // user slot 0 is real slot 3
        {"1/1-4,2/3", {{1, 1, 4}, {2, 3, 3}}, 0, ""},
        {"t/1-t/3", {{4, 1, 3}}, 0, ""},
        {"GPON1/2-GPON1/4", {{1, 2, 4}}, 0, ""},
        {"1/3,5", {{1, 3, 3}, {1, 3, 3}}, 0, ""}, // 5 reuses the pair 1/3 left
        {"5", {}, 1, "%Invalid input parameter: 5\n"},
        {"t/1-3", {}, 1, "%Invalid input parameter: 3\n"},
        {"1/5-1/3", {}, 1, "%Invalid sequence order: 1/5-1/3\n"},
        {"2/1-1/8", {}, 1, "%Invalid sequence order: 2/1-1/8\n"},
        {"1/1-1/99,2/1", {{2, 1, 1}}, 1, "%range error: 1/99 [1/1-8]\n"},
        {"1/3,5-7", {{1, 3, 3}}, 2, "%Invalid input: 5-7\n%Invalid input parameter: 5\n"},
        {"", {}, 0, ""},
    };
    for (const Case &c : cases) {
        const Parsed got = parse(get_slot_port_token, c.text);
        EXPECT_EQ(got.ranges, c.ranges) << c.text;
        EXPECT_EQ(got.errs, c.errs) << c.text;
        EXPECT_EQ(got.printed, c.printed) << c.text;
        const Parsed quiet = parse(get_slot_port_token, c.text, true);
        EXPECT_EQ(quiet.ranges, c.ranges) << c.text;
        EXPECT_EQ(quiet.errs, c.errs) << c.text;
    }
}

class SimpleLimits : public ::testing::Test {
  protected:
    void TearDown() override { simple_slot_port_limits = {}; }
    ChassisRoot root{"test3"};
};

TEST_F(SimpleLimits, RefuseEverythingUntilSet) {
    const Parsed got = parse(get_slot_port_token_simple, "1/1");
    EXPECT_TRUE(got.ranges.empty());
    EXPECT_EQ(got.printed, "%Invalid slot id range: 1/1\n");
}

TEST_F(SimpleLimits, ListsAreCheckedAgainstTheLimits) {
    simple_slot_port_limits = {2, 4};
    struct Case {
        const char *text;
        std::vector<Triple> ranges;
        const char *printed;
    };
    const Case cases[] = {
        {"1/1-2/3", {{1, 1, 4}, {2, 1, 3}}, ""}, // a middle or first slot ends at 4
        {"1/2-3", {{1, 2, 3}}, ""},
        {"0/2", {}, "%Invalid input parameter: 0/2\n"}, // no slot renumbering
        {"1/5", {}, "%range error: 1/5 [1/1-4]\n"},
        {"3/1", {}, "%Invalid slot id range: 3/1\n"},
        {"1", {}, "%Invalid input parameter: 1\n"},
        {"t/1", {}, "%Invalid input parameter: t/1\n"},
        {"1/3-1/2", {}, "%Invalid sequence order: 1/3-1/2\n"},
    };
    for (const Case &c : cases) {
        const Parsed got = parse(get_slot_port_token_simple, c.text);
        EXPECT_EQ(got.ranges, c.ranges) << c.text;
        EXPECT_EQ(got.printed, c.printed) << c.text;
        EXPECT_EQ(got.errs, c.ranges.empty() ? 1u : 0u) << c.text;
    }
}

} // namespace
