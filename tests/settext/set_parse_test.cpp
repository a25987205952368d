// Port tokens and set texts parsed back into pnums and bitmaps.
#include "gvutil/settext.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace {

using gvtest::ChassisRoot;

// test3: slots of 8, 8 and 16 ports, interlink 33-34, logical slot 35-48.
TEST(PortNumber, TokensToPnums) {
    ChassisRoot root{"test3"};
    struct Case {
        const char *token;
        int pnum;
    };
    const Case cases[] = {
        {"1/3", 3},   {"2/1", 9},  {"0/5", 21}, // slot 0 is the switch-fabric unit
        {"3/16", 32}, {"t/2", 36}, {"t/14", 48}, {"trunk/1", 35}, {"t/15", 0},
        {"2", 0},     {"1/9", 0},  {"4/1", 0},   {"x/1", 0},      {"1/", 0},
        {"/1", 0},    {"1/a", 0},  {"1/0", 0},   {"1/2/3", 0},    {"", 0},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(make_port_number(c.token), c.pnum) << c.token;
    }
}

TEST(PortNumber, WithoutSlotsTokensAreNumbers) {
    ChassisRoot root{"k3100x"};
    EXPECT_EQ(make_port_number("7"), 7);
    EXPECT_EQ(make_port_number("7x"), 7);
    EXPECT_EQ(make_port_number("1/2"), 1);
}

TEST(PortNumber, FirstAndLastPnumOfASlot) {
    ChassisRoot root{"test3"};
    struct Case {
        const char *slot;
        int first, last;
    };
    for (const Case c : {Case{"1", 1, 8}, Case{"2", 9, 16}, Case{"3", 17, 32}, Case{"0", 1, 0}}) {
        EXPECT_EQ(make_port_number_from_slot_start(c.slot), c.first) << c.slot;
        EXPECT_EQ(make_port_number_from_slot_end(c.slot), c.last) << c.slot;
    }
}

std::vector<int> members(const portset_t &set) {
    std::vector<int> found;
    for (int pnum = 1; pnum <= GV_PORTSET_MAX_PORT; ++pnum) {
        if (ps_isset(&set, pnum) != 0) {
            found.push_back(pnum);
        }
    }
    return found;
}

const char *const kPortMessage =
    "%Wrong expression. ex) 'show port 1,3' , 'show port 1-3,10' , 'show port 1/2-t/4' \n";
const char *const kBridgeMessage =
    "%Wrong expression. ex) 'show port 1,3' , 'show port 1-3,10' , 'show port 1/2' \n";

TEST(PortSetParse, TextToBitmap) {
    ChassisRoot root{"test3"};
    struct Case {
        const char *text;
        int count;
        std::vector<int> set;
        bool message;
    };
    const Case cases[] = {
        {"1/1-1/3,2/1", 4, {1, 2, 3, 9}, false},
        {"2/8-0/1", 2, {16, 17}, false},
        {"t/1,1/2-1/2", 2, {2, 35}, false},
        {"1/1,1/1", 2, {1}, false}, // counted per token
        {"1/1,9/1", 0, {1}, false}, // bits already set stay
        {"1/3-1/1", 0, {}, false},  // out of order: silent
        {"1/3-", 0, {}, false},
        {"1/1-3,x", 0, {99}, true}, // bad character: the set is untouched
        {"GPON1/1", 0, {99}, true},
        {"", 0, {99}, true},
    };
    for (const Case &c : cases) {
        portset_t set;
        ps_zero(&set);
        ps_set(&set, 99);
        testing::internal::CaptureStderr();
        EXPECT_EQ(getportset(c.text, 48, &set), c.count) << c.text;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), c.message ? kPortMessage : "") << c.text;
        EXPECT_EQ(members(set), c.set) << c.text;
    }
}

TEST(PortSetParse, MaxAndCapacity) {
    ChassisRoot root{"k3100x"};
    portset_t set;
    EXPECT_EQ(getportset("20-30", 28, &set), 0);
    EXPECT_EQ(getportset("1530-1540", 2000, &set), 11); // counted, set up to 1536
    EXPECT_EQ(members(set), (std::vector<int>{1530, 1531, 1532, 1533, 1534, 1535, 1536}));
}

std::vector<int> ids_of(const std::array<uint32_t, GV_ID_SET_WORDS> &set) {
    std::vector<int> found;
    for (int id = 1; id <= 4096; ++id) {
        if (chk(set.data(), id - 1) != 0) {
            found.push_back(id);
        }
    }
    return found;
}

TEST(BridgeSetParse, NumbersWithoutSlots) {
    ChassisRoot root{"k3100x"};
    struct Case {
        const char *text;
        int max;
        int count;
        std::vector<int> set;
        bool message;
    };
    const Case cases[] = {
        {"1-3,10", 4094, 4, {1, 2, 3, 10}, false},
        {"1,-3,5", 4094, 1, {1}, false}, // a token without a leading digit ends the parse
        {"1,/3", 4094, 1, {1}, false},
        {"5,7-6", 4094, 0, {5}, false},
        {"4093-4096", 5000, 4, {4093, 4094}, false}, // ids above 4094 never set
        {"5000", 4094, 0, {}, false},
        {"t/1", 4094, 0, {4096}, true},
        {"1,a", 4094, 0, {4096}, true},
    };
    for (const Case &c : cases) {
        std::array<uint32_t, GV_ID_SET_WORDS> set{};
        ::set(set.data(), 4095); // id 4096: cleared with the rest of the 512 bytes
        testing::internal::CaptureStderr();
        EXPECT_EQ(getbrset(c.text, c.max, set.data()), c.count) << c.text;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), c.message ? kBridgeMessage : "")
            << c.text;
        EXPECT_EQ(ids_of(set), c.set) << c.text;
    }
}

TEST(BridgeSetParse, SlottedChassisReadsSlotPortText) {
    ChassisRoot root{"test3"};
    std::array<uint32_t, GV_ID_SET_WORDS> set{};
    EXPECT_EQ(getbrset("10", 4094, set.data()), 0);
    EXPECT_EQ(getbrset("1/5,2/1", 4094, set.data()), 2);
    EXPECT_EQ(ids_of(set), (std::vector<int>{5, 9}));
}

} // namespace
