// Every port of every shipped chassis: internal name -> operator text ->
// internal name, user names and back, and the port check agrees that it
// exists.
#include "chassis_rules.h"
#include "gvutil/ifname.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class EveryChassis : public ::testing::TestWithParam<std::string> {};

// The internal name of a port as the chassis names it: slotless boxes call
// their front-panel ports slot 1, port = pnum.
std::string internal_name(const gvsim::ChassisDesc &desc, int slot, int pnum, int card_type,
                          int card_port) {
    char name[32] = {};
    convert_interface_name_from_cardtype_slot_port(card_type, slot, card_port, name);
    if (desc.slot_count != 0) {
        return name;
    }
    char prefix[32] = {};
    get_interface_type(name, prefix, sizeof prefix);
    return std::string(prefix) + "1/" + std::to_string(pnum);
}

void round_trip(const std::string &internal, bool port = true) {
    SCOPED_TRACE(internal);
    // "gigabitethernet 0/5": the word and the operator's list.
    const std::string text = get_interface_string_for_run_config_from_ifstr(internal.c_str());
    const std::size_t blank = text.find(' ');
    ASSERT_NE(blank, std::string::npos);
    const std::string word = text.substr(0, blank);
    const std::string list = text.substr(blank + 1);
    char back[256] = {};
    ASSERT_EQ(convert_interface_name(word.c_str(), list.c_str(), back), 0);
    EXPECT_EQ(back, internal);
    std::string copy = internal;
    char user[128] = {};
    convert_user_ifname_from_real_ifname(copy.data(), user);
    char real[128] = {};
    EXPECT_EQ(convert_real_ifname_from_user_ifname(user, real), internal);
    char out[32] = {};
    if (port) {
        EXPECT_EQ(get_port_str_by_interface_name(word.c_str(), list.c_str(), 31, out), 0);
    }
}

TEST_P(EveryChassis, EveryPortRoundTripsAndExists) {
    gvtest::ChassisRoot root{GetParam()};
    const gvsim::ChassisDesc &desc = root.desc();
    int slot = 1;
    int last_pnum_of_slot = desc.slot_count != 0 ? desc.slots[0].ports : 0;
    gvsim::for_each_physical_port(desc, [&](int pnum, int card_type, int card_port) {
        while (desc.slot_count != 0 && pnum > last_pnum_of_slot) {
            last_pnum_of_slot += desc.slots[static_cast<std::size_t>(slot++)].ports;
        }
        round_trip(internal_name(desc, slot, pnum, card_type, card_port));
    });
    for (int group = 1; group <= desc.channel_groups; ++group) {
        round_trip("CG" + std::to_string(group));
    }
    // Interfaces no shipped card carries, and those that are no ports.
    for (const char *name : {"FE1/1", "XGPON2/3", "br10", "default", "Tunnel7"}) {
        round_trip(name, false);
    }
    const std::string beyond = std::to_string(desc.channel_groups + 1);
    char out[32] = {};
    EXPECT_EQ(get_port_str_by_interface_name("channelgroup", beyond.c_str(), 31, out), -3);
}

INSTANTIATE_TEST_SUITE_P(Shipped, EveryChassis,
                         ::testing::ValuesIn(gvtest::shipped_chassis_names()));

} // namespace
