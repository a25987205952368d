// The host chassis' port names, pnum places and equipment record, checked
// against the root they are read from.
#include "gvsim/gvsim.h"
#include "gvutil/ifname.h"
#include "gvutil/model.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

using gvtest::ChassisRoot;

struct Named {
    int result;
    std::string name;
};

Named name_of(int slot, int port) {
    char name[32] = "untouched";
    const int result = get_ifname(slot, port, name);
    return {result, name};
}

TEST(HostPortNames, NamesFollowTheCardsOfTheRoot) {
    struct Case {
        const char *chassis;
        int slot, port;
        int result;
        const char *name;
    };
    const Case cases[] = {
        {"test3", 1, 1, 0, "GPON1/1"},  {"test3", 2, 8, 0, "EPON2/8"},
        {"test3", 3, 16, 0, "XE3/16"},  {"test3", 3, 17, -1, ""},
        {"test3", 4, 1, 0, "CG1"},      {"test3", 4, 9, -1, ""}, // 8 channel groups
        {"test3", 0, 0, -1, ""},        {"k7400a", 3, 1, 0, "GE3/1"},
        {"k7400a", 3, 3, 0, "XE3/3"},   {"k7500", 8, 2, 0, "CE8/2"},
        {"k7100", 9, 1, -1, ""},        // an empty slot
        {"k3100x", 0, 1, 0, "GPON1/1"}, // slotless: slot 0 numbers, slot 1 names
        {"k3100x", 0, 17, 0, "GE1/17"}, {"k3100x", 0, 29, -1, ""},
        {"k3100x", 1, 2, 0, "CG2"},
    };
    for (const Case &c : cases) {
        ChassisRoot root{c.chassis};
        const Named got = name_of(c.slot, c.port);
        EXPECT_EQ(got.result, c.result) << c.chassis << " " << c.slot << "/" << c.port;
        EXPECT_EQ(got.name, c.name) << c.chassis << " " << c.slot << "/" << c.port;
    }
}

TEST(HostPortNames, NothingWithoutARoot) {
    unsetenv("GVUTIL_ROOT");
    EXPECT_EQ(name_of(1, 1).result, -1);
    EXPECT_EQ(name_of(1, 1).name, "");
    EXPECT_EQ(eqm_get_global_info(), nullptr);
    int slot = 9;
    int port = 9;
    EXPECT_EQ(get_logical_slot_port_from_virtual_port(1, &slot, &port), -1);
    EXPECT_EQ(slot + port, 0);
}

TEST(HostPortNames, PlacesOfPnums) {
    ChassisRoot root{"test3"};
    struct Case {
        int pnum;
        int result, slot, port;
    };
    // 43.. are type-b trunks: named by their working PON port (1, 3, ...).
    for (const Case c : {Case{9, 0, 2, 1}, Case{32, 0, 3, 16}, Case{33, -1, 0, 0},
                         Case{35, 0, 4, 1}, Case{42, 0, 4, 8}, Case{43, 0, 1, 1}, Case{48, 0, 2, 3},
                         Case{49, -1, 0, 0}, Case{0, -1, 0, 0}}) {
        int slot = -5;
        int port = -5;
        EXPECT_EQ(get_logical_slot_port_from_virtual_port(c.pnum, &slot, &port), c.result)
            << c.pnum;
        EXPECT_EQ(slot, c.slot) << c.pnum;
        EXPECT_EQ(port, c.port) << c.pnum;
    }
    int slot = 0;
    int port = 0;
    EXPECT_EQ(get_logical_slot_port_from_sfu_port(17, &slot, &port), 0);
    EXPECT_EQ(slot * 100 + port, 301);
    EXPECT_EQ(get_logical_slot_port_from_sfu_port(35, &slot, &port), -1);
}

class HostPortsOnEveryChassis : public ::testing::TestWithParam<std::string> {
  protected:
    ChassisRoot root{GetParam()};
};

// Every physical pnum is placed where the model record numbers it, carries
// a name of the interface type its card has, and the equipment record and
// the hardware port counts describe the same slots.
TEST_P(HostPortsOnEveryChassis, ServicesAgreeWithTheModelRecord) {
    const int slots = get_slot_number();
    for (int pnum = 1; pnum <= get_port_num(1); ++pnum) {
        int slot = -1;
        int port = -1;
        ASSERT_EQ(get_logical_slot_port_from_virtual_port(pnum, &slot, &port), 0) << pnum;
        if (slots != 0) {
            EXPECT_EQ(slot, get_slot_number_from_pnum(pnum)) << pnum;
            EXPECT_EQ(port, get_slotport_number_from_pnum(pnum)) << pnum;
        } else {
            EXPECT_EQ(slot * 10000 + port, pnum) << pnum;
        }
        char name[32];
        ASSERT_EQ(get_ifname(slot, port, name), 0) << pnum;
        EXPECT_EQ(is_ethernet_interface(name), 1) << name;
    }
    for (int group = 1; group <= get_port_num(9); ++group) {
        int slot = 0;
        int port = 0;
        const int pnum = get_port_num(1) + get_port_num(6) + group;
        ASSERT_EQ(get_logical_slot_port_from_virtual_port(pnum, &slot, &port), 0);
        EXPECT_EQ(name_of(slot, port).name, "CG" + std::to_string(group));
    }
    const eqm_global_info *info = EqmGlobalInfo;
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->slot_max, slots);
    for (int slot = 1; slot <= slots; ++slot) {
        EXPECT_EQ(gv_hal_get_port_number_per_slot(slot), get_port_number_per_slot(slot - 1));
        EXPECT_EQ(info->card_type[slot] != 0, get_port_number_per_slot(slot - 1) != 0) << slot;
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, HostPortsOnEveryChassis,
                         ::testing::ValuesIn(gvtest::shipped_chassis_names()),
                         [](const auto &info) { return info.param; });

TEST(HostEquipment, RecordFollowsTheRoot) {
    {
        ChassisRoot root{"k7100"};
        EXPECT_EQ(EqmGlobalInfo->slot_max, 12);
        EXPECT_EQ(EqmGlobalInfo->card_type[3], 22); // the switch-fabric unit
        EXPECT_EQ(EqmGlobalInfo->card_type[9], 0);  // empty
    }
    ChassisRoot root{"k3100x"};
    EXPECT_EQ(EqmGlobalInfo->slot_max, 0);
    EXPECT_EQ(EqmGlobalInfo->card_type[1], 0);
}

} // namespace
