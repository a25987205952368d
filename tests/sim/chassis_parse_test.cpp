#include "chassis_desc.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
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

TEST(ParseChassis, ReportsLineAndReason) {
    const struct {
        std::string text;
        const char *error;
    } cases[] = {
        {"# comment\n\n  bogus\n", "line 3: unknown key 'bogus'"},
        {"model_code 12x\n", "line 1: bad number '12x' for model_code"},
        {"slots 34\n", "line 1: slots 34 out of range 0..33"},
        {"slot 2 21\n", "line 1: 'slot' takes 3 values"},
        {"l3 1 2\n", "line 1: 'l3' takes 1 value"},
        {"model_name " + std::string(42, 'M') + "\n",
         "line 1: model_name longer than 41 characters"},
        {"real_model_name K7400 SFU\n", "line 1: 'real_model_name' takes 1 value"},
        {base_plus("model_code 4\n"), "line 8: duplicate key 'model_code'"},
        {base_plus("slot 1 21 8\n"), "line 8: slot 1 given twice"},
        {base_plus("slot 4 21 8\n"), "line 8: slot 4 beyond slots 3"},
        {base_plus("slot 2 0 8\n"), "line 8: empty slot 2 cannot have ports"},
        {base_plus("slot 2 21 0\n"), "line 8: slot 2 with card type 21 needs ports"},
        {base_plus("group 21 8\n"), "line 8: port groups are for chassis without slots"},
        {base_plus("channel_groups 15\n"), "line 8: channel_groups 15 exceeds logical_ports 14"},
        {base_plus("fan 1 broken\n"), "line 8: state 'broken' is not installed, absent or fault"},
        {base_plus("fan 1 installed\nfan 1 absent\n"), "line 9: fan 1 given twice"},
        {base_plus("sfu_mate maybe\n"), "line 8: sfu_mate is present or absent"},
        {base_plus("interlink 1520\n"), "end of description: 1546 ports exceed the 1536-port map"},
        {base_without_name(), "end of description: missing key 'model_name'"}};
    for (const auto &[text, expected] : cases) {
        ChassisDesc desc;
        std::string error;
        EXPECT_FALSE(gvsim::parse_chassis(text, desc, error)) << text;
        EXPECT_EQ(error, expected);
    }
}

// Port counts by kind; a card type the chassis does not know is neither a
// PON nor an Ethernet port.
TEST(ParseChassis, DerivesPortKinds) {
    const struct {
        const char *text;
        std::array<std::int32_t, 10> kinds;
    } cases[] = {{"model_name TEST3\nreal_model_name K7400_SFU\nmodel_code 6\nslots 3\n"
                  "slot 1 32 8\nslot 2 13 8\nslot 3 22 16\ninterlink 2\nlogical_ports 14\n"
                  "channel_groups 8\n",
                  {48, 32, 14, 0, 16, 32, 2, 16, 6, 8}},
                 {"model_name Box\nreal_model_name K3100X\nmodel_code 20\nslots 0\n"
                  "group 21 16\ngroup 1 8\ngroup 99 2\nlogical_ports 5\n",
                  {31, 26, 5, 0, 16, 26, 0, 8, 5, 0}}};
    for (const auto &[text, kinds] : cases) {
        ChassisDesc desc;
        std::string error;
        ASSERT_TRUE(gvsim::parse_chassis(text, desc, error)) << error;
        EXPECT_EQ(desc.kind, kinds) << text;
    }
}

} // namespace
