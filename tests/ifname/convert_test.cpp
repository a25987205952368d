// Internal name lists: building, sorting, slot translation, card names and
// port checks.
#include "gvsim/gvsim.h"
#include "gvutil/ifname.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

using gvtest::ChassisRoot;

class Names : public ::testing::Test {
  protected:
    // Slots 1 GPON8, 2 EPON8, 3 SFU with 16 ten-gigabit ports; 8 channel groups.
    ChassisRoot root{"test3"};

    void SetUp() override { root.write_file("dev/console", ""); }
    void TearDown() override {
        // No sort ever leaves a record or a tree behind.
        EXPECT_EQ(gvsim_live_allocations_from("parse_interface"), 0);
        EXPECT_EQ(gvsim_live_trees(), 0);
        gvsim_allocator_fail_after(-1);
    }
    std::string console() const {
        std::ifstream file(root.path() + "/dev/console");
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::string sorted(std::string names, bool translate = true, int *result = nullptr) {
        char out[4096] = {};
        const int r = translate ? de_convert_inter_name_sort(names.data(), out)
                                : de_convert_user_inter_name_sort(names.data(), out);
        if (result != nullptr) {
            *result = r;
        }
        return r == 0 ? out : "-1";
    }
};

std::string built(const char *word, const char *list, bool translate) {
    char out[256] = "untouched";
    const int r = translate ? convert_interface_name(word, list, out)
                            : convert_user_interface_name(word, list, out);
    return r == 0 ? out : (std::string("-1 ") + out);
}

TEST_F(Names, InternalListsFromTheOperatorsWords) {
    struct Case {
        const char *word, *list, *real, *user;
    };
    for (const Case c :
         {Case{"gigabitethernet", "0/3,1/2-4", "GE1/2-4,GE3/3", "GE0/3,GE1/2-4"},
          Case{"gigabitethernet", "1/1,3", "GE1/1,GE1/3", "GE1/1,GE1/3"},
          Case{"gigabitethernet", "1/5,3,,1/1-2,0/2", "GE1/1-2,GE1/3,GE1/5,GE3/2",
               "GE0/2,GE1/1-2,GE1/3,GE1/5"},
          Case{"gigabitethernet", "1/1,1/1,1/1-4", "GE1/1,GE1/1-4", "GE1/1,GE1/1-4"},
          Case{"gpon", "1/1-1/4", "GPON1/1-4", "GPON1/1-4"},
          Case{"gigabitethernet", "3", "GE", "GE"}, // a bare port needs a slot first
          Case{"gigabitethernet", nullptr, "GE", "GE"}, Case{"vlan", "1", "default", "default"},
          Case{"vlan", "5,2", "br5,br2", "br5,br2"}, Case{"vlan", "1,2", "br1,br2", "br1,br2"},
          Case{"vlan", nullptr, "br", "br"},
          Case{"channelgroup", "3,1-2", "CG3,CG1-2", "CG3,CG1-2"},
          Case{"channelgroup", "1/1", "-1 untouched", "-1 untouched"},
          Case{"Tunnel", "7", "Tunnel7", "Tunnel7"},
          Case{"Tunnel", "1024", "-1 untouched", "-1 untouched"},
          Case{"TUNNEL", "abc", "-1 untouched", "-1 untouched"},
          Case{"Tunnel12", nullptr, "Tunnel12", "Tunnel12"},
          Case{"ethernet", "1/1", "-1 untouched", "-1 untouched"},
          Case{nullptr, "1/1", "-1 untouched", "-1 untouched"}}) {
        SCOPED_TRACE(std::string(c.word != nullptr ? c.word : "NULL") + " " +
                     (c.list != nullptr ? c.list : "NULL"));
        EXPECT_EQ(built(c.word, c.list, true), c.real);
        EXPECT_EQ(built(c.word, c.list, false), c.user);
    }
}

TEST_F(Names, ListAndResultBounds) {
    std::string list = "1/1-2";
    list += std::string(94, ',');
    EXPECT_EQ(built("gigabitethernet", list.c_str(), true), "GE1/1-2"); // 99 characters
    list += ",";
    EXPECT_EQ(built("gigabitethernet", list.c_str(), true), "-1 untouched");
    // 35 distinct ports of 99 characters make 370 characters of internal names.
    std::string ports = "1/1";
    for (int port = 2; ports.size() + std::to_string(port).size() + 1 <= 99; ++port) {
        ports += "," + std::to_string(port);
    }
    EXPECT_EQ(built("xgspon", ports.c_str(), true), "-1 untouched");
    EXPECT_EQ(
        built("gigabitethernet", "1/1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19", true).size(),
        123u);
}

TEST_F(Names, SortBySlotAndPortDroppingRepeatedPorts) {
    struct Case {
        const char *names, *real, *user;
    };
    for (const Case c :
         {Case{"GE1/5,GE1/1-3,CG2", "GE1/1-3,GE1/5", "GE1/1-3,GE1/5"},
          Case{"GE0/1,GE2/1", "GE2/1,GE3/1", "GE0/1,GE2/1"}, Case{"GE1/1,GE1/1", "GE1/1", "GE1/1"},
          Case{"GE1/1-4,GE1/1-2", "GE1/1-4", "GE1/1-4"}, // covered by the earlier range
          Case{"GE1/1-2,GE1/1-4", "GE1/1-2,GE1/1-4", "GE1/1-2,GE1/1-4"},
          Case{"GE1/2-3,GE1/4-1/1", "GE1/1-4,GE1/2-3", "GE1/1-4,GE1/2-3"}, Case{"CG1,br2", "", ""},
          Case{"", "", ""}, Case{"GE1/1,GE1/1-2/3", "-1", "-1"}, Case{"GE1/1-2/3/4", "-1", "-1"}}) {
        EXPECT_EQ(sorted(c.names, true), c.real) << c.names;
        EXPECT_EQ(sorted(c.names, false), c.user) << c.names;
    }
}

TEST_F(Names, SortAppendsSplitsInPlaceAndReportsSkippedElements) {
    char names[] = "GE1/5,CG2,GE1/1";
    char out[64] = "A:";
    EXPECT_EQ(de_convert_inter_name_sort(names, out), 0);
    EXPECT_STREQ(out, "A:GE1/1,GE1/5");
    EXPECT_STREQ(names, "GE1/5");
    EXPECT_TRUE(std::regex_match(console(), std::regex(R"(\[\d+\] token=CG2\n)"))) << console();
    EXPECT_EQ(de_convert_inter_name_sort(nullptr, out), -1);
    EXPECT_EQ(de_convert_inter_name_sort(names, nullptr), -1);
}

TEST_F(Names, SortHoldsAtMost512Elements) {
    std::string names;
    for (int port = 512; port >= 1; --port) {
        names += (names.empty() ? "GE1/" : ",GE1/") + std::to_string(port);
    }
    std::vector<char> out(8192);
    std::string copy = names;
    EXPECT_EQ(de_convert_inter_name_sort(copy.data(), out.data()), 0);
    EXPECT_EQ(std::string(out.data()).substr(0, 18), "GE1/1,GE1/2,GE1/3,");
    names += ",GE1/513";
    out[0] = '\0';
    EXPECT_EQ(de_convert_inter_name_sort(names.data(), out.data()), -1);
    EXPECT_STREQ(out.data(), "");
}

TEST_F(Names, AllocatorAndTreeFailures) {
    gvsim_allocator_fail_after(1); // only the first record is had
    EXPECT_EQ(sorted("GE1/3,GE1/1,GE1/2"), "GE1/3");
    gvsim_allocator_fail_after(-1);
    gvsim_tree_fail_creates(1);
    char names[] = "GE1/3";
    char out[16] = "untouched";
    EXPECT_EQ(de_convert_inter_name_sort(names, out), -1);
    EXPECT_STREQ(out, "untouched");
    EXPECT_TRUE(std::regex_match(
        console(), std::regex(R"(\[_de_convert_inter_name_sort:\d+\] Fail AVL Tree Create ! \n)")))
        << console();
    // A failed sort leaves the list built but unsorted.
    gvsim_tree_fail_creates(1);
    EXPECT_EQ(built("gigabitethernet", "2/1,1/1", true), "GE2/1,GE1/1");
}

TEST(SortOrder, ComparesSlotThenFirstPortThenEndAgainstStart) {
    struct Case {
        ifname_sort_info_t a, b;
        int order;
    };
    for (const Case &c :
         {Case{{1, 1, 1, {}}, {2, 1, 1, {}}, -1}, Case{{2, 1, 1, {}}, {1, 9, 9, {}}, 1},
          Case{{1, 2, 2, {}}, {1, 1, 9, {}}, 1}, Case{{1, 1, 4, {}}, {1, 1, 2, {}}, 1},
          Case{{1, 1, 2, {}}, {1, 1, 4, {}}, 0}, Case{{1, 5, 4, {}}, {1, 5, 6, {}}, -1},
          Case{{-1, 1, 1, {}}, {1, 1, 1, {}}, -1}}) {
        EXPECT_EQ(compare_ifname_sort_info(&c.a, &c.b), c.order)
            << c.a.slot << "/" << c.a.first_port << "-" << c.a.last_port;
    }
    const ifname_sort_info_t any{1, 1, 1, {}};
    EXPECT_EQ(compare_ifname_sort_info(nullptr, &any), -1);
    EXPECT_EQ(compare_ifname_sort_info(&any, nullptr), 1);
    EXPECT_EQ(remove_ifname_sort_info(nullptr), 0);
}

TEST(SlotTranslation, OnlyTheFirstSlotOfEachElement) {
    struct Case {
        const char *user, *real, *back;
    };
    for (const Case c :
         {Case{"GE0/1,XE2/3", "GE3/1,XE2/3", "GE0/1,XE2/3"},
          Case{"GE0/1-0/4", "GE3/1-0/4", "GE0/1-0/4"}, Case{"0/5", "3/5", "0/5"},
          Case{"CG3,br3,default", "CG3,br3,default", "CG3,br3,default"},
          Case{"GE3/1", "GE3/1", "GE0/1"}, Case{"GE0/1,,GE2/1", "GE3/1,GE2/1", "GE0/1,GE2/1"},
          Case{"GE99999999999/1", "GE99999999999/1", "GE99999999999/1"}, Case{"", "", ""}}) {
        char real[128] = "x";
        EXPECT_STREQ(convert_real_ifname_from_user_ifname(c.user, real), c.real);
        std::string names = real;
        char user[128] = "x";
        EXPECT_STREQ(convert_user_ifname_from_real_ifname(names.data(), user), c.back);
    }
    char out[8] = "x";
    EXPECT_EQ(convert_real_ifname_from_user_ifname(nullptr, out), out);
    EXPECT_STREQ(out, "");
    EXPECT_EQ(convert_real_ifname_from_user_ifname("GE0/1", nullptr), nullptr);
}

TEST(SlotTranslation, UserNamesUseTheStaticBufferAndSplitTheList) {
    char names[] = "GE3/1,XE3/2";
    char *result = convert_user_ifname_from_real_ifname(names, nullptr);
    EXPECT_STREQ(result, "GE0/1,XE0/2");
    EXPECT_STREQ(names, "GE3/1"); // cut at its first comma
    char again[] = "GPON1/1";
    EXPECT_EQ(convert_user_ifname_from_real_ifname(again, nullptr), result);
    EXPECT_STREQ(result, "GPON1/1");
    char empty[] = "";
    EXPECT_EQ(convert_user_ifname_from_real_ifname(empty, nullptr), empty);
    EXPECT_EQ(convert_user_ifname_from_real_ifname(nullptr, nullptr), nullptr);
}

TEST(SlotTranslation, ResultsStopAt127Characters) {
    std::string names;
    for (int i = 0; i < 40; ++i) {
        names += "GE3/1,";
    }
    char out[200];
    std::memset(out, 'x', sizeof out);
    convert_real_ifname_from_user_ifname(names.c_str(), out);
    EXPECT_EQ(std::strlen(out), 127u);
    EXPECT_EQ(out[128], 'x');
    std::memset(out, 'x', sizeof out);
    convert_user_ifname_from_real_ifname(names.data(), out);
    std::string user;
    while (user.size() < 127) {
        user += "GE0/1,";
    }
    EXPECT_EQ(std::string(out), user.substr(0, 127));
    EXPECT_EQ(out[128], 'x');
}

TEST(CardNames, PrefixByCardTypeAndPort) {
    struct Case {
        const char *chassis;
        int card, port;
        const char *name;
        int result;
    };
    for (const Case c : {Case{"k7400", 1, 3, "GE2/3", 0}, Case{"k7400", 5, 3, "GE2/3", 0},
                         Case{"k7400", 5, 1, "XE2/1", 0}, Case{"k7400", 9, 4, "XE2/4", 0},
                         Case{"k7400", 13, 1, "EPON2/1", 0}, Case{"k7400", 19, 1, "XEPON2/1", 0},
                         Case{"k7400", 32, 1, "GPON2/1", 0}, Case{"k7400", 29, 1, "NGPON2/1", 0},
                         Case{"k7400", 30, 1, "XGSPON2/1", 0}, Case{"k7400", 31, 1, "CE2/1", 0},
                         Case{"k7400", 22, 1, "XE2/1", 0}, Case{"k7400a", 22, 1, "GE2/1", 0},
                         Case{"k7400a", 22, 2, "GE2/2", 0}, Case{"k7400a", 22, 3, "XE2/3", 0},
                         Case{"k7400a", 22, 0, "XE2/0", 0}, Case{"k7400", 2, 3, "2/3", -1},
                         Case{"k7400", 0, 3, "2/3", -1}, Case{"k7400", 34, 3, "2/3", -1}}) {
        ChassisRoot root{c.chassis};
        char name[32] = {};
        EXPECT_EQ(convert_interface_name_from_cardtype_slot_port(c.card, 2, c.port, name),
                  c.result);
        EXPECT_STREQ(name, c.name) << c.chassis << " card " << c.card;
    }
}

TEST(SlotPortRanges, LettersGoAndOneSlotRangesShorten) {
    struct Case {
        const char *names, *before, *after;
    };
    for (const Case c :
         {Case{"GE1/1-GE1/4,XE2/1", "", "1/1-4,2/1"}, Case{"GE1/1-GE2/4", "", "1/1-2/4"},
          Case{"GE1/1-4", "", "1/1-4"}, Case{"br10,default,zone", "", "10,a,z"},
          Case{"GE1/1", "x,", "x,1/1"}, Case{"GE,XE", "x,", "x,"}}) {
        char out[64];
        std::strcpy(out, c.before);
        EXPECT_EQ(convert_multi_slotport_range_from_multi_ifname(c.names, out), out);
        EXPECT_STREQ(out, c.after) << c.names;
    }
    char out[8] = "";
    EXPECT_EQ(convert_multi_slotport_range_from_multi_ifname(nullptr, out), nullptr);
    EXPECT_EQ(convert_multi_slotport_range_from_multi_ifname("GE1/1", nullptr), nullptr);
}

TEST_F(Names, SfuNamedByItsRealSlot) {
    struct Case {
        const char *word, *list;
        int max, result;
    };
    for (const Case c :
         {Case{"tengigabitethernet", "3/1", 8, 1}, Case{"tengigabitethernet", "0/1", 8, 0},
          Case{"tengigabitethernet", "1/1,3/2-4", 8, 1},
          Case{"tengigabitethernet", "1/1,3/2-4", 1, 0}, // more ranges than allowed
          Case{"gigabitethernet", "3/1", 8, 0}, Case{"tengigabitethernet", nullptr, 8, 0},
          Case{nullptr, "3/1", 8, 0}}) {
        EXPECT_EQ(is_sfu_real_slot(c.word, c.list, c.max), c.result)
            << (c.list != nullptr ? c.list : "NULL") << " max " << c.max;
    }
}

TEST_F(Names, PortListsAreCheckedAgainstTheChassis) {
    struct Case {
        const char *word, *list;
        int result;
    };
    for (const Case c :
         {Case{"gpon", "1/1-8", 0}, Case{"gpon", "1/5-2,1/8", 0}, Case{"gpon", "1/1-9", -3},
          Case{"gpon", "2/1", -3}, Case{"epon", "2/8", 0}, Case{"tengigabitethernet", "0/16", 0},
          Case{"tengigabitethernet", "3/16", 0}, Case{"tengigabitethernet", "0/17", -3},
          Case{"channelgroup", "1-8", 0}, Case{"channelgroup", "9", -3}, Case{"vlan", "10", -3},
          Case{"channelgroup", "1/1", -2}, Case{"gpon", "1/x", -3} /* read as GPON1/0 */,
          Case{"gpon", nullptr, -1}, Case{nullptr, "1/1", -1}}) {
        char out[32] = "untouched";
        EXPECT_EQ(get_port_str_by_interface_name(c.word, c.list, 20, out), c.result)
            << (c.word != nullptr ? c.word : "NULL") << " "
            << (c.list != nullptr ? c.list : "NULL");
        EXPECT_STREQ(out, c.result == 0 ? c.list : "untouched");
    }
    char out[8];
    std::memset(out, 'x', sizeof out);
    EXPECT_EQ(get_port_str_by_interface_name("gpon", "1/1-8", 5, out), 0);
    EXPECT_EQ(std::string(out, 7), std::string("1/1-8\0x", 7));
    EXPECT_EQ(get_port_str_by_interface_name("gpon", "1/1-8", 4, out), -1);
    EXPECT_EQ(get_port_str_by_interface_name("gpon", "", -1, out), -1);
}

TEST_F(Names, ListCheckCodes) {
    struct Case {
        const char *list;
        int result, code;
    };
    std::string many = "GPON1/1";
    for (int i = 0; i < 1000; ++i) {
        many += ",GPON1/1";
    }
    const std::string huge = "GPON1/1-" + std::string(300, '1');
    for (const Case c : {Case{"GPON1/1-8,EPON2/1", 1, 0}, Case{nullptr, 0, -1}, Case{"br1", 0, -3},
                         Case{"CG1/1", 0, -2}, Case{"GPON1/1-x", 0, -2}, Case{"GPON1/5-2", 0, -5},
                         Case{"GPON1/1,GPON4/1", 0, -3}, Case{"GPON123/4567", 0, -3},
                         Case{many.c_str(), 0, -4}, Case{huge.c_str(), 0, -2}}) {
        int code = 7;
        EXPECT_EQ(check_interface_list(c.list, &code), c.result);
        EXPECT_EQ(code, c.code) << (c.list != nullptr ? std::string(c.list).substr(0, 20) : "NULL");
    }
}

} // namespace
