// Slot/port arithmetic on the simulated chassis.
#include "gvutil/model.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

using gvtest::ChassisRoot;

// 8, 8 and 16 ports, 2 interlink ports, logical capacity 14.
class ThreeSlot : public ::testing::Test {
  protected:
    ChassisRoot root{"test3"};
};

TEST_F(ThreeSlot, ConvertsBetweenPnumAndSlotPort) {
    struct Case {
        int slot, port, pnum;
    };
    for (const Case c : {Case{1, 1, 1}, Case{1, 8, 8}, Case{2, 1, 9}, Case{2, 8, 16},
                         Case{3, 1, 17}, Case{3, 16, 32}}) {
        SCOPED_TRACE(std::to_string(c.slot) + "/" + std::to_string(c.port));
        EXPECT_EQ(get_port_number_from_slotport(c.slot, c.port), c.pnum);
        EXPECT_EQ(get_port_number_from_real_slotport(c.slot, c.port), c.pnum);
        EXPECT_EQ(get_slot_number_from_pnum(c.pnum), c.slot);
        EXPECT_EQ(get_slotport_number_from_pnum(c.pnum), c.port);
    }
}

TEST_F(ThreeSlot, LogicalSlotComesAfterTheInterlinkPorts) {
    EXPECT_EQ(get_port_number_from_slotport(4, 1), 35); // 32 slot ports + 2 interlink + 1
    EXPECT_EQ(get_port_number_from_slotport(4, 14), 48);
    EXPECT_EQ(get_port_num(0), 48);
    // Slots 0 and 1 both count from the first port.
    EXPECT_EQ(get_port_number_from_slotport(0, 5), 5);
    EXPECT_EQ(get_port_number_from_slotport(-2, 5), 5);
}

TEST_F(ThreeSlot, PnumsPastTheLastSlotHaveNoSlot) {
    for (int pnum : {33, 34, 35, 48, 1000}) {
        EXPECT_EQ(get_slot_number_from_pnum(pnum), -1) << pnum;
        EXPECT_EQ(get_slotport_number_from_pnum(pnum), -1) << pnum;
    }
    // Callers validate pnums first: zero and below land in slot 1 unchanged.
    EXPECT_EQ(get_slot_number_from_pnum(0), 1);
    EXPECT_EQ(get_slotport_number_from_pnum(-4), -4);
}

TEST_F(ThreeSlot, SlotBoundaries) {
    struct Case {
        int slot, start, end;
    };
    for (const Case c :
         {Case{-1, 1, 0}, Case{0, 1, 0}, Case{1, 1, 8}, Case{2, 9, 16}, Case{3, 17, 32}}) {
        EXPECT_EQ(get_start_port_number_from_slot(c.slot), c.start) << c.slot;
        EXPECT_EQ(get_end_port_number_from_slot(c.slot), c.end) << c.slot;
    }
    EXPECT_EQ(get_max_slotport_cnt(), 16);
    EXPECT_EQ(get_port_number_per_slot(2), 16);
}

TEST_F(ThreeSlot, ChecksSlotPortPairs) {
    struct Case {
        int slot, port, result;
    };
    for (const Case c : {Case{1, 1, 0}, Case{3, 16, 0}, Case{3, 17, -1}, Case{0, 1, -1},
                         Case{4, 1, -1}, Case{1, 0, -1}, Case{2, -1, -1}}) {
        EXPECT_EQ(check_slot_port(c.slot, c.port), c.result) << c.slot << "/" << c.port;
    }
}

TEST_F(ThreeSlot, InterlinkRangeIsOpenBelowClosedAbove) {
    EXPECT_EQ(get_port_num(5), 32);
    EXPECT_EQ(is_interlink_port(32), 0);
    EXPECT_EQ(is_interlink_port(33), 1);
    EXPECT_EQ(is_interlink_port(34), 1);
    EXPECT_EQ(is_interlink_port(35), 0);
}

TEST_F(ThreeSlot, LoadSetsTheMirrorsAndTrunkCapacity) {
    EXPECT_EQ(hal_num_logical_ports, 48);
    EXPECT_EQ(hal_num_physical_ports, 32);
    EXPECT_EQ(hal_num_trunk_port, 0); // owned by the trunk manager, never written here
    EXPECT_EQ(trunk_port_max14(), 1);
    EXPECT_EQ(trunk_port_max5(), 0);
    EXPECT_EQ(get_slot_number(), 3);
    EXPECT_EQ(get_start_slot(), 1);
}

TEST(SlotTranslation, OnlyTheFabricSlotDiffers) {
    struct Case {
        int user, real;
    };
    for (const Case c : {Case{0, 3}, Case{1, 1}, Case{2, 2}, Case{4, 4}, Case{-1, -1}}) {
        EXPECT_EQ(get_real_slot_by_user_slot(c.user), c.real) << c.user;
    }
    // User slot 3 also names real slot 3, which shows back as 0.
    EXPECT_EQ(get_real_slot_by_user_slot(3), 3);
    EXPECT_EQ(get_user_slot_by_real_slot(3), 0);
    EXPECT_EQ(get_user_slot_by_real_slot(0), 0);
    EXPECT_EQ(get_user_slot_by_real_slot(-7), -7);
}

TEST(FixedAnswers, DoNotDependOnTheRecord) {
    EXPECT_EQ(get_slot_index_by_pnum(17), 0);
    EXPECT_EQ(get_frame_index_by_pnum(17), 0);
    EXPECT_EQ(is_support_ingress_rate_limit(), 1);
}

// Every shipped chassis: each physical pnum maps to a slot/port that maps back.
class EveryChassis : public ::testing::TestWithParam<std::string> {};

TEST_P(EveryChassis, PnumsRoundTripThroughSlotPort) {
    ChassisRoot root{GetParam()};
    const int slots = get_slot_number();
    if (slots == 0) {
        EXPECT_EQ(get_slot_number_from_pnum(1), -1);
        EXPECT_EQ(check_slot_port(9, 99), 0);
        EXPECT_EQ(get_max_slotport_cnt(), 0);
        return;
    }
    int expected_pnum = 0;
    for (int slot = 1; slot <= slots; ++slot) {
        const int ports = get_port_number_per_slot(slot - 1);
        for (int port = 1; port <= ports; ++port) {
            ++expected_pnum;
            ASSERT_EQ(get_port_number_from_slotport(slot, port), expected_pnum);
            ASSERT_EQ(get_slot_number_from_pnum(expected_pnum), slot);
            ASSERT_EQ(get_slotport_number_from_pnum(expected_pnum), port);
            ASSERT_EQ(check_slot_port(slot, port), 0);
        }
        EXPECT_EQ(check_slot_port(slot, ports + 1), -1);
        EXPECT_EQ(get_end_port_number_from_slot(slot), expected_pnum);
    }
    EXPECT_EQ(expected_pnum, get_port_num(1));
    EXPECT_EQ(get_port_num(0), get_port_num(1) + get_port_num(6) + get_port_num(2));
    EXPECT_EQ(get_port_number_from_slotport(slots + 1, 1), get_port_num(1) + get_port_num(6) + 1);
    EXPECT_EQ(trunk_port_max5() + trunk_port_max14(), 1);
}

INSTANTIATE_TEST_SUITE_P(Shipped, EveryChassis,
                         ::testing::ValuesIn(gvtest::shipped_chassis_names()),
                         [](const auto &info) { return info.param; });

} // namespace
