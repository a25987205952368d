#include "chassis_desc.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using gvsim::ChassisDesc;

// A valid chassis of seven lines; cases append to it or replace it.
constexpr const char *kBase = "model_name T\n"
                              "real_model_name T_SFU\n"
                              "model_code 6\n"
                              "slots 3\n"
                              "slot 1 21 8\n"
                              "slot 3 22 4\n"
                              "logical_ports 14\n";

std::string base_plus(const std::string &lines) {
    return kBase + lines;
}

std::string base_without_name() {
    const std::string base = kBase;
    return base.substr(base.find('\n') + 1);
}

struct BadCase {
    std::string text;
    const char *error;
};

class ParseErrorTest : public testing::TestWithParam<BadCase> {};

TEST_P(ParseErrorTest, ReportsLineAndReason) {
    ChassisDesc desc;
    std::string error;
    EXPECT_FALSE(gvsim::parse_chassis(GetParam().text, desc, error));
    EXPECT_EQ(error, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Descriptions, ParseErrorTest,
    testing::Values(
        BadCase{base_plus("bogus 1\n"), "line 8: unknown key 'bogus'"},
        BadCase{"# comment\n\n  bogus\n", "line 3: unknown key 'bogus'"},
        BadCase{"model_code six\n", "line 1: bad number 'six' for model_code"},
        BadCase{"model_code 12x\n", "line 1: bad number '12x' for model_code"},
        BadCase{"slots 34\n", "line 1: slots 34 out of range 0..33"},
        BadCase{"slot 34 1 8\n", "line 1: slot 34 out of range 1..33"},
        BadCase{"slot 0 1 8\n", "line 1: slot 0 out of range 1..33"},
        BadCase{"slot 2 x 8\n", "line 1: bad number 'x' for card type"},
        BadCase{"slot 2 21\n", "line 1: 'slot' takes 3 values"},
        BadCase{"l3 1 2\n", "line 1: 'l3' takes 1 value"},
        BadCase{"default_os 3\n", "line 1: default_os 3 out of range 1..2"},
        BadCase{"sfu_board_id 0\n", "line 1: sfu_board_id 0 out of range 1..2"},
        BadCase{"vendor_id 4294967296\n",
                "line 1: vendor_id 4294967296 out of range 0..4294967295"},
        BadCase{"model_name " + std::string(42, 'M') + "\n",
                "line 1: model_name longer than 41 characters"},
        BadCase{"real_model_name " + std::string(22, 'R') + "\n",
                "line 1: real_model_name longer than 21 characters"},
        BadCase{"real_model_name K7400 SFU\n", "line 1: 'real_model_name' takes 1 value"},
        BadCase{"serial\n", "line 1: 'serial' takes 1 value"},
        BadCase{base_plus("model_code 4\n"), "line 8: duplicate key 'model_code'"},
        BadCase{base_plus("slot 1 21 8\n"), "line 8: slot 1 given twice"},
        BadCase{base_plus("slot 4 21 8\n"), "line 8: slot 4 beyond slots 3"},
        BadCase{base_plus("slot 2 0 8\n"), "line 8: empty slot 2 cannot have ports"},
        BadCase{base_plus("slot 2 21 0\n"), "line 8: slot 2 with card type 21 needs ports"},
        BadCase{base_plus("group 21 8\n"), "line 8: port groups are for chassis without slots"},
        BadCase{base_plus("channel_groups 15\n"),
                "line 8: channel_groups 15 exceeds logical_ports 14"},
        BadCase{base_plus("fan 1 broken\n"),
                "line 8: state 'broken' is not installed, absent or fault"},
        BadCase{base_plus("fan 9 installed\n"), "line 8: fan 9 out of range 1..8"},
        BadCase{base_plus("power 5 installed\n"), "line 8: power 5 out of range 1..4"},
        BadCase{base_plus("fan 1 installed\nfan 1 absent\n"), "line 9: fan 1 given twice"},
        BadCase{base_plus("sfu_mate maybe\n"), "line 8: sfu_mate is present or absent"},
        BadCase{base_plus("vendor_functions 3 96\n"),
                "line 8: vendor function 96 out of range 0..95"},
        BadCase{base_plus("interlink 1520\n"),
                "end of description: 1546 ports exceed the 1536-port map"},
        BadCase{base_without_name(), "end of description: missing key 'model_name'"},
        BadCase{"model_name T\nreal_model_name T\nmodel_code 6\nslots 0\n",
                "end of description: missing key 'logical_ports'"}));

TEST(ParseChassis, DerivesPortKindsOfThreeSlotChassis) {
    ChassisDesc desc;
    std::string error;
    ASSERT_TRUE(gvsim::parse_chassis("model_name TEST3\nreal_model_name K7400_SFU\n"
                                     "model_code 6\nslots 3\n"
                                     "slot 1 32 8\nslot 2 13 8\nslot 3 22 16\n"
                                     "interlink 2\nlogical_ports 14\nchannel_groups 8\n",
                                     desc, error))
        << error;
    struct {
        int kind;
        int count;
    } const expected[] = {{0, 48}, {1, 32}, {2, 14}, {3, 0}, {4, 16},
                          {5, 32}, {6, 2},  {7, 16}, {8, 6}, {9, 8}};
    for (const auto &[kind, count] : expected)
        EXPECT_EQ(desc.kind[static_cast<std::size_t>(kind)], count) << "kind " << kind;
}

TEST(ParseChassis, CountsPortGroupsOfSlotlessBox) {
    ChassisDesc desc;
    std::string error;
    ASSERT_TRUE(gvsim::parse_chassis("model_name Box\nreal_model_name K3100X\nmodel_code 20\n"
                                     "slots 0\ngroup 21 16\ngroup 1 8\ngroup 99 2\n"
                                     "logical_ports 5\n",
                                     desc, error))
        << error;
    EXPECT_EQ(desc.kind[1], 26);
    EXPECT_EQ(desc.kind[5], 26);
    EXPECT_EQ(desc.kind[0], 31);
    EXPECT_EQ(desc.kind[4], 16); // GPON ports
    EXPECT_EQ(desc.kind[7], 8);  // the unknown card type counts as neither
}

TEST(ParseChassis, FillsDefaultsAndKeepsNamesWithBlanks) {
    ChassisDesc desc;
    std::string error;
    ASSERT_TRUE(gvsim::parse_chassis("model_name  Gavron OLT 7  # trailing comment\r\n" +
                                         base_without_name() + "power 2 fault\npower 1 installed\n",
                                     desc, error))
        << error;
    EXPECT_EQ(desc.model_name, "Gavron OLT 7");
    EXPECT_EQ(desc.system_model, "Gavron OLT 7");
    EXPECT_EQ(desc.chassis_type, 2); // model code 6: the K7400 entity table
    ASSERT_EQ(desc.powers.size(), 2U);
    EXPECT_EQ(desc.powers[0].index, 1);
    EXPECT_EQ(desc.powers[1].state, gvsim::UnitState::fault);
    EXPECT_EQ(desc.slots[1], gvsim::SlotDesc{}); // slot 2 not listed: empty
}

TEST(ParseChassis, ChassisTypeFollowsModelCode) {
    const struct {
        int model_code;
        int chassis_type;
    } cases[] = {{0, 1}, {4, 4}, {6, 2}, {9, 2}, {7, 3}, {8, 3}, {5, -1}, {20, -1}};
    for (const auto &[code, type] : cases) {
        ChassisDesc desc;
        std::string error;
        ASSERT_TRUE(gvsim::parse_chassis("model_name M\nreal_model_name M\nslots 0\n"
                                         "logical_ports 5\nmodel_code " +
                                             std::to_string(code) + "\n",
                                         desc, error));
        EXPECT_EQ(desc.chassis_type, type) << "model code " << code;
    }
}

TEST(ParseChassis, NormalisedTextParsesBackEqual) {
    ChassisDesc desc;
    ChassisDesc again;
    std::string error;
    ASSERT_TRUE(gvsim::parse_chassis(base_plus("fan 2 fault\nfan 1 installed\nsfu_mate absent\n"
                                               "vendor_functions 95 0 31\nserial X1\n"
                                               "chassis_type -1\n"),
                                     desc, error));
    ASSERT_TRUE(gvsim::parse_chassis(gvsim::format_chassis(desc), again, error)) << error;
    EXPECT_EQ(again, desc);
    EXPECT_EQ(again.chassis_type, -1);
    EXPECT_TRUE(again.vendor_functions.test(95));
}

} // namespace
