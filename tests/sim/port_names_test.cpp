// The host chassis' switch services, port names, pnum places, type-b trunks
// and equipment record, checked against the root they are read from.
#include "chassis_rules.h"
#include "gvsim/gvsim.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <tuple>

namespace {

using gvtest::ChassisRoot;

std::string name_of(int slot, int port) {
    char name[32] = "untouched";
    const int result = get_ifname(slot, port, name);
    return std::to_string(result) + " " + name;
}

std::string place_of(int pnum) {
    int slot = -5;
    int port = -5;
    const int result = get_logical_slot_port_from_virtual_port(pnum, &slot, &port);
    return std::to_string(result) + " " + std::to_string(slot) + "/" + std::to_string(port);
}

// A card type that names no interface still numbers its ports.
gvsim::ChassisDesc unnamed_card_chassis() {
    gvsim::ChassisDesc desc = gvtest::two_port_chassis(0);
    desc.slots[0].card_type = 2;
    gvsim::derive_port_kinds(desc);
    return desc;
}

TEST(HostPortNames, NamesFollowTheCardsOfTheRoot) {
    const std::tuple<const char *, int, int, const char *> cases[] = {
        {"test3", 1, 1, "0 GPON1/1"}, {"test3", 3, 17, "-1 "},       {"test3", 4, 1, "0 CG1"},
        {"test3", 4, 9, "-1 "},       {"k7400a", 3, 1, "0 GE3/1"},   {"k7400a", 3, 3, "0 XE3/3"},
        {"k7100", 9, 1, "-1 "},       {"k3100x", 0, 1, "0 GPON1/1"}, {"k3100x", 0, 29, "-1 "},
        {"k3100x", 1, 2, "0 CG2"}};
    // An empty slot has no ports; a slotless box numbers slot 0 and names slot 1.
    for (const auto &[chassis, slot, port, name] : cases) {
        ChassisRoot root{chassis};
        EXPECT_EQ(name_of(slot, port), name) << chassis << " " << slot << "/" << port;
    }
    ChassisRoot root{unnamed_card_chassis()};
    EXPECT_EQ(name_of(1, 2), "0 1/2");
}

TEST(HostPortNames, NothingWithoutARoot) {
    unsetenv("GVUTIL_ROOT");
    EXPECT_EQ(name_of(1, 1), "-1 ");
    EXPECT_EQ(eqm_get_global_info(), nullptr);
    EXPECT_EQ(place_of(1), "-1 0/0");
    EXPECT_EQ(get_pnum_from_type_b_trunk_pnum(43), 43);
}

// test3: GPON 1-8, EPON 9-16, SFU 17-32, interlink 33-34, CG 35-42, trunks
// 43-48, each standing for the working PON port of its pair (1, 3, ...).
TEST(HostPortNames, PlacesOfPnumsAndTypeBTrunks) {
    ChassisRoot root{"test3"};
    const std::tuple<int, const char *, int> cases[] = {
        {1, "0 1/1", 1},   {33, "-1 0/0", 33}, {42, "0 4/8", 42}, {43, "0 1/1", 1},
        {48, "0 2/3", 11}, {49, "-1 0/0", 49}, {0, "-1 0/0", 0}};
    for (const auto &[pnum, place, trunk] : cases) {
        EXPECT_EQ(place_of(pnum), place) << pnum;
        EXPECT_EQ(get_pnum_from_type_b_trunk_pnum(pnum), trunk) << pnum;
    }
    int slot = 0;
    int port = 0;
    EXPECT_EQ(get_logical_slot_port_from_sfu_port(17, &slot, &port), 0);
    EXPECT_EQ(slot * 100 + port, 301);
    EXPECT_EQ(get_logical_slot_port_from_sfu_port(35, &slot, &port), -1);
}

// The first PON port of the k7100 follows two 10GE cards and the SFU; XGS-PON
// and NG-PON count as PON ports; the slotless k3100x has one trunk after four
// channel groups; the k7200 has no PON port, so its trunk is left as it is.
TEST(HostPortNames, TypeBTrunksOfOtherChassis) {
    const std::tuple<const char *, int, int> cases[] = {
        {"k7100", 73, 19}, {"k7500", 76, 3}, {"k3100x", 33, 1}, {"k7200", 53, 53}};
    for (const auto &[chassis, pnum, answer] : cases) {
        ChassisRoot root{chassis};
        EXPECT_EQ(get_pnum_from_type_b_trunk_pnum(pnum), answer) << chassis << " " << pnum;
    }
}

class EveryChassis : public ::testing::TestWithParam<std::string> {};

// Physical pnums are read back by the library's port-set round trips on every
// chassis; here the switch services and the equipment record.
TEST_P(EveryChassis, ServicesAnswerFromTheDescription) {
    ChassisRoot root{GetParam()};
    const gvsim::ChassisDesc &desc = root.desc();
    EXPECT_EQ(getModel(), desc.model_code);
    EXPECT_EQ(gv_board_is_K7400A_SFU(), GetParam() == "k7400a" ? 1 : 0);
    EXPECT_EQ(redctrl_get_boardid(), desc.sfu_board_id);
    EXPECT_EQ(redctrl_is_mate_detected(), desc.sfu_mate ? 1 : 0);
    const eqm_global_info *info = EqmGlobalInfo;
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->slot_max, desc.slot_count);
    for (int slot = 0; slot <= desc.slot_count + 1; ++slot) {
        const bool real = slot >= 1 && slot <= desc.slot_count;
        const auto &card = desc.slots[static_cast<std::size_t>(real ? slot - 1 : 0)];
        EXPECT_EQ(gv_hal_get_port_number_per_slot(slot), real ? card.ports : 0) << slot;
        EXPECT_EQ(info->card_type[slot], real ? card.card_type : 0) << slot;
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, EveryChassis,
                         ::testing::ValuesIn(gvtest::shipped_chassis_names()),
                         [](const auto &info) { return info.param; });

} // namespace
