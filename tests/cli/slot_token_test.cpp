// Slot lists, s<N> tokens and the port counts a slot is checked against.
#include "gvutil/cli.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using gvtest::ChassisRoot;
using gvtest::CliCapture;

struct Ranges {
    int count;
    std::vector<std::pair<int, int>> ranges;
};

Ranges slot_token(const char *text, cli_ctx *ctx) {
    value_range out[32] = {};
    Ranges got{get_slot_token(text, out, ctx), {}};
    for (int i = 0; i < got.count; ++i) {
        got.ranges.emplace_back(out[i].low, out[i].high);
    }
    return got;
}

// test3: the equipment manager shows slots up to 3.
TEST(SlotToken, ListsAndTheirMessages) {
    ChassisRoot root{"test3"};
    struct Case {
        const char *text;
        std::vector<std::pair<int, int>> ranges;
        const char *printed;
    };
    const Case cases[] = {
        {"1,2-4", {{1, 1}, {2, 4}}, ""},
        {"2-4,,5,", {{2, 4}, {5, 5}}, ""},
        {"2-2", {}, "% Invalid sequence order: 2-2\n"}, // an equal pair is refused
        {"4-2", {}, "% Invalid sequence order: 4-2\n"},
        {"3", {}, "% Invalid input parameter: 3\n"}, // slot 3 only inside a range
        {"1,3", {}, "% Invalid input parameter: 3\n"},
        {"a", {}, "% Invalid input parameter : a\n"},
        {"1-b", {}, "% Invalid input parameter : b\n"},
        {"-5", {}, "% Invalid input parameter: -5\n"},
        {"99999999999", {}, "% Invalid input parameter: 99999999999\n"},
        {"21", {}, "% Invalid range: 21 [0-3]\n"},
        {"1-21", {}, "% Invalid range: 1-21 [0-3]\n"},
        {"1,21,2", {}, "% Invalid range: 21 [0-3]\n"}, // the first bad item ends it
        {"", {}, ""},
        {",,", {}, ""},
    };
    for (const Case &c : cases) {
        CliCapture capture;
        const Ranges got = slot_token(c.text, capture.ctx());
        EXPECT_EQ(got.count, static_cast<int>(c.ranges.size())) << c.text;
        EXPECT_EQ(got.ranges, c.ranges) << c.text;
        EXPECT_EQ(capture.text(), c.printed) << c.text;
        EXPECT_EQ(slot_token(c.text, nullptr).count, got.count) << c.text; // quiet, same result
    }
}

TEST(SlotToken, RangeMessageShowsTheShownSlotMaximum) {
    ChassisRoot root{"k7100"};
    CliCapture capture;
    EXPECT_EQ(slot_token("30", capture.ctx()).count, 0);
    EXPECT_EQ(capture.text(), "% Invalid range: 30 [0-12]\n");
}

TEST(SlotToken, WithoutAnEquipmentRecordTheMaximumIsZero) {
    gvtest::unload_model(); // no root: no chassis, no record
    CliCapture capture;
    EXPECT_EQ(slot_token("21", capture.ctx()).count, 0);
    EXPECT_EQ(capture.text(), "% Invalid range: 21 [0-0]\n");
    value_range out[1];
    EXPECT_EQ(get_slot_token(nullptr, out, capture.ctx()), 0);
}

TEST(SlotToken, SlotValidity) {
    ChassisRoot root{"test3"};
    struct Case {
        int slot, allow_trunk, valid;
    };
    for (const Case c : {Case{0, 0, 0}, Case{1, 0, 1}, Case{3, 0, 1}, Case{4, 0, 0}, Case{4, 1, 1},
                         Case{5, 1, 0}, Case{-1, 1, 0}}) {
        EXPECT_EQ(is_slot_valid(c.slot, c.allow_trunk), c.valid) << c.slot << " " << c.allow_trunk;
    }
}

TEST(SlotToken, SlotWords) {
    ChassisRoot root{"test3"};
    struct Case {
        const char *token;
        int valid;
        const char *printed;
    };
    const Case cases[] = {
        {"s1", 1, ""},
        {"s5", 1, ""}, // two past the last line slot on purpose
        {"x3", 1, ""}, // the first character is not looked at
        {"s6", 0, "%range error: s6 [s1-s5]\n"},
        {"s0", 0, "%range error: s0 [s1-s5]\n"},
        {"sx", 0, "%Invalid slot number ex) s1 or s1,s2\n"},
        {"s", 0, "%Invalid slot number ex) s1 or s1,s2\n"},
        {"", 0, "%Invalid slot number ex) s1 or s1,s2\n"},
    };
    for (const Case &c : cases) {
        CliCapture capture;
        uint32_t errs = 7;
        EXPECT_EQ(check_input_slot_number(c.token, capture.ctx(), &errs), c.valid) << c.token;
        EXPECT_EQ(errs, c.valid != 0 ? 7u : 8u) << c.token;
        EXPECT_EQ(capture.text(), c.printed) << c.token;
    }
    uint32_t errs = 0;
    EXPECT_EQ(check_input_slot_number("s9", nullptr, &errs), 0);
    EXPECT_EQ(errs, 1u); // counted even when nothing is printed
}

TEST(SlotToken, PortsOfASlot) {
    ChassisRoot root{"test3"};
    struct Case {
        int slot, ports, most;
    };
    for (const Case c :
         {Case{1, 8, 8}, Case{3, 16, 16}, Case{4, 8, 14}, Case{5, 0, 0}, Case{0, 0, 0}}) {
        EXPECT_EQ(get_logical_slot_port_num(c.slot), c.ports) << c.slot;
        EXPECT_EQ(get_logical_slot_port_max_num(c.slot), c.most) << c.slot;
    }
}

} // namespace
