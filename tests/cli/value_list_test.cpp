// Lists of plain values: port numbers of one slot, ranges, classes of
// service, VRRP ids and interfaces; their flat expansions; and the pnum list
// of a slot/port list.
#include "gvutil/cli.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace gvtest;

// Lenient: a bad item is told and dropped, the others kept.
TEST(PortToken, BadItemsAreDroppedOthersKept) {
    expect_rows(value_token(get_port_token, 48),
                {{"1-4,48", "1-4 48-48"},
                 {"5-99", "5-48", "%Invalid range: 5-99 [1-48]\n"}, // kept, lowered
                 {"49,3", "3-3", "%Invalid range: 49 [1-48]\n"},    // dropped
                 {"0,2", "2-2", "%Invalid port: 0\n"},
                 {"4-4", "", "%Invalid sequence order: 4-4\n"},
                 {"49-60", "", "%Invalid range: 49-60 [1-48]\n"},
                 {"0-3,1-2-3", "", // an item is cut at its first "-"
                  "%Invalid range: 0-3 [1-48]\n%Invalid range: 1-2-3 [1-48]\n"},
                 {"1,-5,2", "", "%Invalid port: -5\n"}, // ends the call
                 {",,", ""}});
    // Without a context single values and the order are not checked; a
    // leading "-" reads as a range with no start, which is dropped.
    expect_rows(value_token(get_port_token, 48),
                {{"99,0", "99-99 0-0"}, {"5-3,60-99", "5-3 60-48"}, {"1,-5,0-3,2", "1-1 2-2"}},
                Context::kNone);
    // A range lowered to a negative max keeps nothing; to 0 it runs backwards.
    expect_rows(value_token(get_port_token, -1), {{"1-2,5", "5-5"}}, Context::kNone);
    expect_rows(value_token(get_port_token, 0), {{"1-2,5", "1-0 5-5"}}, Context::kNone);
}

// Strict: the first bad item ends the call with 0.
TEST(PonPortToken, FirstErrorEndsTheCall) {
    expect_rows(value_token(get_pon_port_token, 16), {{"1,2-16", "1-1 2-16"},
                                                      {"1,17", "", "%Invalid range: 17 [1-16]\n"},
                                                      {"2-17", "", "%Invalid range: 2-17 [1-16]\n"},
                                                      {"0", "", "%Invalid port: 0\n"},
                                                      {"-2", "", "%Invalid port: -2\n"},
                                                      {"3-3", "", "%Invalid sequence order: 3-3\n"},
                                                      {"0-3", "", "%Invalid range: 0-3 [1-16]\n"}});
    expect_rows(value_token(get_pon_port_token, 16),
                {{"99,5-3", "99-99 5-3"}, {"2-99", "2-16"}, {"1,0-3"}, {"1,-2"}}, Context::kNone);
    expect_rows(value_token(get_pon_port_token, -1), {{"2-9,4", "4-4"}}, Context::kNone);
    expect_rows(value_list(get_pon_port_list_not_cli_input, 0), {{"2-9,4", "4"}}, Context::kNone);
}

// The other value lists read as the port lists do, in their own words.
TEST(ValueTokens, TheirOwnWords) {
    expect_rows(value_token(get_range_token, 16), {{"0,2", "2-2", "%Invalid parameter: 0\n"}});
    expect_rows(value_token(get_cos_token, 7), {{"0-7,0", "0-7 0-0"}, // a class of service may be 0
                                                {"8,1", "1-1", "%Invalid range: 8 [0-7]\n"},
                                                {"2-9", "2-7", "%Invalid range: 2-9 [0-7]\n"},
                                                {"x,1", "1-1", "%Invalid cos: x\n"},
                                                {"1-x,2", "2-2", "%Invalid range: 1-x [-7]\n"}});
    expect_rows(value_token(get_cos_token, 7), {{"9,5-3", "9-9 5-3"}, {"1-x,-1,2", "2-2"}},
                Context::kNone);
    expect_rows(value_token(get_vrid_token, 255), {{"1,0", "", "%Invalid vrid: 0\n"}});
    expect_rows(value_token(get_interface_token, 255), {{"1,0", "", "%Invalid interface: 0\n"}});
    for (const auto parser : {get_vrid_token, get_interface_token}) {
        expect_rows(value_token(parser, 255), {{"1,0-3"}, {"2-300", "2-255"}}, Context::kNone);
    }
}

TEST(PortToken, LongItemsAreCutInMessagesAndNullsGiveZero) {
    const std::string item = "1" + std::string(299, '0');
    expect_rows(value_token(get_port_token, 48),
                {{item.c_str(), "", "%Invalid port: " + item.substr(0, 255) + "\n"}});
    value_range out[1];
    EXPECT_EQ(get_port_token(nullptr, out, 48, nullptr), 0);
    EXPECT_EQ(get_pon_port_token("1", nullptr, 48, nullptr), 0);
    EXPECT_EQ(get_uni_port_list(nullptr, nullptr, 48, nullptr), 0);
}

TEST(ValueLists, ExpandInOrderWithDuplicates) {
    for (const auto parser : {get_uni_port_list, get_port_list_not_cli_input}) {
        expect_rows(value_list(parser, 16),
                    {{"1-3,2,9", "1 2 3 2 9"}, {"1-3,20", "1 2 3", "%Invalid range: 20 [1-16]\n"}});
    }
    expect_rows(value_list(get_pon_port_list_not_cli_input, 16),
                {{"1-3,2,9", "1 2 3 2 9"}, {"1-3,20", "", "%Invalid range: 20 [1-16]\n"}});
    expect_rows(value_list(get_port_list_simple, 16), {{"1-3"}});
}

// The expansions hold 2,048 ranges at once: the first ones are kept.
TEST(ValueLists, ExpansionsHoldAtMost2048Ranges) {
    std::string text = "1";
    for (int i = 2; i <= 2100; ++i) {
        text += "," + std::to_string(i);
    }
    std::vector<uint32_t> pnums(4096);
    ASSERT_EQ(get_uni_port_list(text.c_str(), pnums.data(), 48, nullptr), 2048);
    EXPECT_EQ(pnums[2047], 2048u);
    std::vector<uint16_t> vlans(4096);
    ASSERT_EQ(get_br_list(text.c_str(), vlans.data(), nullptr), 2048);
    EXPECT_EQ(vlans[2047], 2048);
    std::vector<uint8_t> onus(4096);
    EXPECT_EQ(get_onu_list(text.c_str(), onus.data(), 4000, nullptr), 2048);
}

TEST(PortList, SlotPortListsBecomePnumsOnceEach) {
    {
        ChassisRoot root{"test3"};
        expect_rows(value_list(get_port_list, 48),
                    {
                        {"1/1-1/4,1/2", "1 2 3 4"},
                        {"2/1,1/8-2/2", "9 8 10"}, // first-seen order
                        {"2/8-0/2,t/1", "16 17 18 35"},
                        {",", "", "%Invaild parameter ,\n"},
                        {"1/1,9/1", "", "%Invalid slot id range: 9/1\n"}, // nothing else said
                    });
        expect_rows(value_list(get_port_list, 3),
                    {{"1/1-1/4", "", "%check if it is suitable parameter : GPON1/4\n"}});
    }
    ChassisRoot slotless{"k3100x"}; // ports are numbers
    expect_rows(value_list(get_port_list, 28),
                {{"1-3,2", "1 2 3 2"}, {"27-30", "27 28", "%Invalid range: 27-30 [1-28]\n"}});
}

} // namespace
