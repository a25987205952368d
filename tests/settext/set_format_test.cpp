// Port, bridge and VLAN sets printed as range text.
#include "gvutil/settext.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace {

using gvtest::ChassisRoot;
using PortFormatter = int (*)(char *, int, const portset_t *);
using IdFormatter = int (*)(char *, int, const uint32_t *);

std::string format_ports(PortFormatter formatter, std::vector<int> pnums, int max,
                         int *found = nullptr) {
    portset_t set;
    ps_zero(&set);
    for (int pnum : pnums) {
        ps_set(&set, pnum);
    }
    char text[4096];
    std::memset(text, 'x', sizeof text);
    const int members = formatter(text, max, &set);
    if (found != nullptr) {
        *found = members;
    }
    return text;
}

std::string format_ids(IdFormatter formatter, std::vector<int> ids, int max, int *found = nullptr) {
    std::array<uint32_t, GV_ID_SET_WORDS> set{};
    for (int id : ids) {
        ::set(set.data(), id - 1);
    }
    char text[4096];
    const int members = formatter(text, max, set.data());
    if (found != nullptr) {
        *found = members;
    }
    return text;
}

struct PortCase {
    std::vector<int> pnums;
    int max;
    const char *text;
    int found;
};

void expect_ports(PortFormatter formatter, std::initializer_list<PortCase> cases) {
    for (const PortCase &c : cases) {
        int found = -1;
        EXPECT_EQ(format_ports(formatter, c.pnums, c.max, &found), c.text) << c.text;
        EXPECT_EQ(found, c.found) << c.text;
    }
}

// test3: GPON 1-8 in slot 1, EPON 9-16 in slot 2, XE 17-32 in the SFU slot.
TEST(PortSetText, InterfaceNamesPerMember) {
    ChassisRoot root{"test3"};
    expect_ports(portset2str, {
                                  {{1, 2, 3, 5}, 48, "GPON1/1-GPON1/3,GPON1/5", 4},
                                  {{1, 2}, 48, "GPON1/1-GPON1/2", 2},
                                  {{8, 9}, 48, "GPON1/8-EPON2/1", 2}, // runs follow pnums
                                  {{}, 48, "", 0},
                                  {{5, 20}, 10, "GPON1/5", 1}, // members above max unread
                              });
    expect_ports(portset2str2, {{{1, 2, 17}, 48, "GPON1/1-GPON1/2,XE3/1", 3}});
}

TEST(PortSetText, WithoutSlotsMembersAreNumbers) {
    ChassisRoot root{"k3100x"};
    expect_ports(portset2str, {{{1, 2, 3, 5}, 28, "1-3,5", 4}, {{1536}, 5000, "1536", 1}});
    expect_ports(portset2_if_str, {{{1, 2, 3, 17}, 28, "GPON1/1-3,GE1/17", 4}});
}

TEST(PortSetText, InterfaceRunsEndWithThePortNumber) {
    ChassisRoot root{"test3"};
    expect_ports(portset2_if_str, {
                                      {{1, 2, 3, 9}, 48, "GPON1/1-3,EPON2/1", 4},
                                      {{35, 36}, 48, "CG1-2", 2},
                                      {{8, 9}, 48, "GPON1/8-1", 2},
                                  });
}

TEST(PortSetText, SlotPortTextWalksSlotPortsAndGroups) {
    ChassisRoot root{"test3"};
    expect_ports(portset2str_wo_iftype, {
                                            {{1, 2, 3, 5}, 48, "1/1-1/3,1/5", 4},
                                            {{16, 17, 18}, 48, "2/8-0/2", 3},
                                            // walked: 32 slot ports + 8 more
                                            {{40}, 48, "", 1},          // interlink: no text
                                            {{32, 33}, 48, "0/16,", 2}, // split, then empty
                                            {{44}, 48, "1/4", 1},       // the bit 40 above 4
                                            {{81}, 1536, "", 0},
                                        });
    // A port also counts when its bit 40 places higher is set.
    expect_ports(portset2str_wo_iftype,
                 {{{1 + 40, 2 + 40, 4}, 48, "1/1-1/2,1/4", 3}, {{1, 1 + 40}, 48, "1/1", 1}});
}

TEST(PortSetText, RunsSplitWhereTheSlotPortsEnd) {
    // Channel groups from pnum 3 on, right after the slot ports.
    ChassisRoot root{gvtest::two_port_chassis(8)};
    expect_ports(portset2str_wo_iftype, {
                                            {{1, 2, 3, 4}, 16, "1/1-1/2,CG1-CG2", 4},
                                            {{2, 3}, 16, "1/2,CG1", 2},
                                            {{11}, 16, "1/1", 1}, // 10 above pnum 1
                                            {{21}, 16, "", 0},    // beyond both
                                        });
}

TEST(IdSetText, BridgeAndVlanRuns) {
    struct Case {
        std::vector<int> ids;
        int max;
        const char *bridges;
        const char *vlans;
        const char *named;
    };
    const Case cases[] = {
        {{1, 2, 3, 5}, 4094, "1-3,5", "1-3,5", "default,br2-br3,br5"},
        {{10}, 10, "10,10", "10", "br10"}, // the bridge text repeats a lone last member
        {{10}, 4094, "10", "10", "br10"},
        {{10}, 20, "10", "10", "br10"},
        {{9, 10}, 10, "9-10", "9-10", "br9-br10"},
        {{3, 10}, 10, "3,10,10", "3,10", "br3,br10"},
        {{1}, 1, "1,1", "1", "default"},
        {{1}, 4094, "1", "1", "default"},
        {{2, 3}, 4094, "2-3", "2-3", "br2-br3"},
        {{4094, 4095}, 5000, "4094", "4094", "br4094"}, // 4095 is never read
        {{}, 4094, "", "", ""},
    };
    for (const Case &c : cases) {
        int found = -1;
        EXPECT_EQ(format_ids(brset2str, c.ids, c.max, &found), c.bridges) << c.bridges;
        const int expected = static_cast<int>(c.ids.size()) - (c.max == 5000 ? 1 : 0);
        EXPECT_EQ(found, expected) << c.bridges;
        EXPECT_EQ(format_ids(vlanset2str, c.ids, c.max, &found), c.vlans) << c.vlans;
        EXPECT_EQ(found, expected) << c.vlans;
        EXPECT_EQ(format_ids(vlanset2str2, c.ids, c.max, &found), c.named) << c.named;
        EXPECT_EQ(found, expected) << c.named;
    }
}

TEST(IdSetText, NullBitmapsPrintNothing) {
    char text[8] = "x";
    EXPECT_EQ(brset2str(text, 4094, nullptr), 0);
    EXPECT_STREQ(text, "");
    std::strcpy(text, "x");
    EXPECT_EQ(portset2str(text, 48, nullptr), 0);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(ports_array2str(nullptr, 4, text), 0);
}

TEST(ByteArrayText, NonZeroBytesFromIndexOne) {
    const uint8_t bytes[] = {9, 1, 1, 0, 5, 0, 1};
    char text[64];
    EXPECT_EQ(ports_array2str(bytes, 6, text), 0);
    EXPECT_STREQ(text, "1-2,4,6");
    EXPECT_EQ(ports_array2str(bytes, 0, text), 0);
    EXPECT_STREQ(text, "");
}

TEST(OnePortText, ShortTextAndTrunkSlotPort) {
    ChassisRoot root{"test3"};
    EXPECT_STREQ(_cnvt_port_num_to_str(17), "XE3/1");
    EXPECT_STREQ(_cnvt_port_num_to_str(200), "");
    // One buffer per thread: another thread's call leaves ours alone.
    char *mine = _cnvt_port_num_to_str(1);
    std::thread([] { EXPECT_STREQ(_cnvt_port_num_to_str(9), "EPON2/1"); }).join();
    EXPECT_STREQ(mine, "GPON1/1");
    char out[8];
    EXPECT_STREQ(convert_legarcy_pnum_to_slotport_str(17, out, sizeof out), "0/1");
    EXPECT_STREQ(convert_legarcy_pnum_to_slotport_str(43, out, sizeof out), "1/1"); // trunk
    std::memset(out, 'x', sizeof out);
    convert_legarcy_pnum_to_slotport_str(11, out, 3);
    EXPECT_EQ(std::string(out, 4), "2/3x"); // filled to len: no terminator
}

} // namespace
