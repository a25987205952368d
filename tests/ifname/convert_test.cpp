// Internal name lists: building, sorting, slot translation, card names and
// port checks.
#include "gvsim/gvsim.h"
#include "gvutil/ifname.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <regex>
#include <string>
#include <tuple>

namespace {

using gvtest::ChassisRoot;

const char *shown(const char *text) {
    return text != nullptr ? text : "NULL";
}

constexpr const char *kGe = "gigabitethernet";
constexpr const char *kXe = "tengigabitethernet";
constexpr const char *kCg = "channelgroup";

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
};

std::string sorted(std::string names, bool translate = true) {
    char out[4096] = {};
    const int r = translate ? de_convert_inter_name_sort(names.data(), out)
                            : de_convert_user_inter_name_sort(names.data(), out);
    return r == 0 ? out : (std::string("-1 ") + out);
}

std::string built(const char *word, const char *list, bool translate = true) {
    char out[256] = "untouched";
    const int r = translate ? convert_interface_name(word, list, out)
                            : convert_user_interface_name(word, list, out);
    return r == 0 ? out : (std::string("-1 ") + out);
}

// Lists are sorted only for port types; a bare port needs a slot before it;
// "vlan 1" alone is the default bridge; the user form keeps slot 0.
TEST_F(Names, InternalListsFromTheOperatorsWords) {
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {kGe, "1/1,1/1,1/1-4", "GE1/1,GE1/1-4"},
        {"gpon", "1/1-1/4", "GPON1/1-4"},
        {kGe, "3", "GE"},
        {kGe, nullptr, "GE"},
        {"vlan", "1", "default"},
        {"vlan", "5,2", "br5,br2"},
        {"vlan", "1,2", "br1,br2"},
        {kCg, "3,1-2", "CG3,CG1-2"},
        {kCg, "1/1", "-1 untouched"},
        {"Tunnel", "7", "Tunnel7"},
        {"Tunnel", "1024", "-1 untouched"},
        {"TUNNEL", "abc", "-1 untouched"},
        {"tunnel12", nullptr, "tunnel12"},
        {"Tunnel", nullptr, "-1 untouched"},
        {"ethernet", "1/1", "-1 untouched"},
        {nullptr, "1/1", "-1 untouched"}};
    for (const auto &[word, list, real] : cases) {
        EXPECT_EQ(built(word, list), real) << shown(word) << " " << shown(list);
        EXPECT_EQ(built(word, list, false), real) << shown(word) << " " << shown(list);
    }
    EXPECT_EQ(built(kGe, "0/3,1/2-4"), "GE1/2-4,GE3/3");
    EXPECT_EQ(built(kGe, "0/3,1/2-4", false), "GE0/3,GE1/2-4");
    EXPECT_EQ(built(kGe, "1/5,3,,1/1-2,0/2"), "GE1/1-2,GE1/3,GE1/5,GE3/2");
}

TEST_F(Names, ListAndResultBounds) {
    std::string list = "1/1-2" + std::string(94, ',');
    EXPECT_EQ(built(kGe, list.c_str()), "GE1/1-2"); // 99 characters
    list += ",";
    EXPECT_EQ(built(kGe, list.c_str()), "-1 untouched");
    // 35 distinct ports of 99 characters make 370 characters of internal names.
    std::string ports = "1/1";
    for (int port = 2; ports.size() + std::to_string(port).size() + 1 <= 99; ++port) {
        ports += "," + std::to_string(port);
    }
    EXPECT_EQ(built("xgspon", ports.c_str()), "-1 untouched");
    EXPECT_EQ(built(kGe, "1/1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19").size(), 123u);
}

// A port named twice is listed once; a range with the same start is absorbed
// unless it ends later. Elements without a slot are left out.
TEST_F(Names, SortBySlotAndPortDroppingRepeatedPorts) {
    const std::pair<const char *, const char *> cases[] = {{"GE1/5,GE1/1-3,CG2", "GE1/1-3,GE1/5"},
                                                           {"GE1/1,GE1/1", "GE1/1"},
                                                           {"GE1/1-4,GE1/1-2", "GE1/1-4"},
                                                           {"GE1/1-2,GE1/1-4", "GE1/1-2,GE1/1-4"},
                                                           {"GE1/2-3,GE1/4-1/1", "GE1/1-4,GE1/2-3"},
                                                           {"CG1,br2", ""},
                                                           {"GE1/1,GE1/1-2/3", "-1 "}};
    for (const auto &[names, result] : cases) {
        EXPECT_EQ(sorted(names), result) << names;
        EXPECT_EQ(sorted(names, false), result) << names;
    }
    EXPECT_EQ(sorted("GE0/1,GE2/1"), "GE2/1,GE3/1");
    EXPECT_EQ(sorted("GE0/1,GE2/1", false), "GE0/1,GE2/1");
}

// The sort appends to its output and splits its input in place; it reports
// what it skips, holds at most 512 elements and gives back every record when
// the allocator or the tree fails.
TEST_F(Names, SortEdges) {
    char names[] = "GE1/5,CG2,GE1/1";
    char out[64] = "A:";
    EXPECT_EQ(de_convert_inter_name_sort(names, out), 0);
    EXPECT_STREQ(out, "A:GE1/1,GE1/5");
    EXPECT_STREQ(names, "GE1/5");
    EXPECT_TRUE(std::regex_match(console(), std::regex(R"(\[\d+\] token=CG2\n)"))) << console();
    EXPECT_EQ(de_convert_inter_name_sort(nullptr, out) + de_convert_inter_name_sort(names, nullptr),
              -2);
    std::string many;
    for (int port = 512; port >= 1; --port) {
        many += (many.empty() ? "GE1/" : ",GE1/") + std::to_string(port);
    }
    EXPECT_EQ(sorted(many).substr(0, 18), "GE1/1,GE1/2,GE1/3,");
    EXPECT_EQ(sorted(many + ",GE1/513"), "-1 "); // the output untouched
    gvsim_allocator_fail_after(1);               // only the first record is had
    EXPECT_EQ(sorted("GE1/3,GE1/1,GE1/2"), "GE1/3");
    gvsim_allocator_fail_after(-1);
    root.write_file("dev/console", "");
    gvsim_tree_fail_creates(1);
    std::strcpy(out, "untouched");
    EXPECT_EQ(de_convert_inter_name_sort(names, out), -1);
    EXPECT_STREQ(out, "untouched");
    EXPECT_TRUE(std::regex_match(
        console(), std::regex(R"(\[_de_convert_inter_name_sort:\d+\] Fail AVL Tree Create ! \n)")))
        << console();
    // A failed sort leaves the list built but unsorted.
    gvsim_tree_fail_creates(1);
    EXPECT_EQ(built(kGe, "2/1,1/1"), "GE2/1,GE1/1");
}

TEST(SortOrder, ComparesSlotThenFirstPortThenEndAgainstStart) {
    const std::tuple<ifname_sort_info_t, ifname_sort_info_t, int> cases[] = {
        {{1, 1, 1, {}}, {2, 1, 1, {}}, -1}, {{2, 1, 1, {}}, {1, 9, 9, {}}, 1},
        {{1, 2, 2, {}}, {1, 1, 9, {}}, 1},  {{1, 1, 4, {}}, {1, 1, 2, {}}, 1},
        {{1, 1, 2, {}}, {1, 1, 4, {}}, 0},  {{1, 5, 4, {}}, {1, 5, 6, {}}, -1}};
    for (const auto &[a, b, order] : cases) {
        EXPECT_EQ(compare_ifname_sort_info(&a, &b), order)
            << a.slot << "/" << a.first_port << "-" << a.last_port;
    }
    const ifname_sort_info_t any{1, 1, 1, {}};
    EXPECT_EQ(compare_ifname_sort_info(nullptr, &any), -1);
    EXPECT_EQ(compare_ifname_sort_info(&any, nullptr), 1);
    EXPECT_EQ(remove_ifname_sort_info(nullptr), 0);
}

// Only the first slot of each element is translated; results stop at 127
// characters; user names without a buffer go to one static buffer, and the
// caller's list is split in place.
TEST(SlotTranslation, BothWays) {
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"GE0/1-0/4", "GE3/1-0/4", "GE0/1-0/4"},
        {"0/5,XE2/3", "3/5,XE2/3", "0/5,XE2/3"},
        {"CG3,br3,default", "CG3,br3,default", "CG3,br3,default"},
        {"GE3/1", "GE3/1", "GE0/1"},
        {"GE0/1,,GE2/1", "GE3/1,GE2/1", "GE0/1,GE2/1"},
        {"GE99999999999/1", "GE99999999999/1", "GE99999999999/1"}};
    for (const auto &[user, real, back] : cases) {
        char out[128] = "x";
        EXPECT_STREQ(convert_real_ifname_from_user_ifname(user, out), real);
        std::string names = out;
        EXPECT_STREQ(convert_user_ifname_from_real_ifname(names.data(), out), back);
    }
    std::string names;
    std::string user;
    for (int i = 0; i < 40; ++i) {
        names += "GE3/1,";
        user += "GE0/1,";
    }
    char out[200];
    std::memset(out, 'x', sizeof out);
    convert_real_ifname_from_user_ifname(names.c_str(), out);
    EXPECT_EQ(std::string(out, 129), names.substr(0, 127) + '\0' + 'x');
    std::memset(out, 'x', sizeof out);
    EXPECT_EQ(convert_user_ifname_from_real_ifname(names.data(), out), out);
    EXPECT_EQ(std::string(out, 129), user.substr(0, 127) + '\0' + 'x');
    EXPECT_STREQ(names.c_str(), "GE3/1"); // cut at its first comma
    EXPECT_EQ(convert_real_ifname_from_user_ifname(nullptr, out), out);
    EXPECT_STREQ(out, "");
    EXPECT_EQ(convert_real_ifname_from_user_ifname("GE0/1", nullptr), nullptr);
    char list[] = "GE3/1,XE3/2";
    char *result = convert_user_ifname_from_real_ifname(list, nullptr);
    EXPECT_STREQ(result, "GE0/1,XE0/2");
    char again[] = "GPON1/1";
    EXPECT_EQ(convert_user_ifname_from_real_ifname(again, nullptr), result);
    EXPECT_STREQ(result, "GPON1/1");
    char empty[] = "";
    EXPECT_EQ(convert_user_ifname_from_real_ifname(empty, nullptr), empty);
    EXPECT_EQ(convert_user_ifname_from_real_ifname(nullptr, nullptr), nullptr);
}

// The combination card's two ten-gigabit ports, the K7400A SFU's two gigabit
// ports; other card types are read back by the round trip over the chassis.
TEST(CardNames, PrefixByCardTypeAndPort) {
    const std::tuple<const char *, int, int, const char *> cases[] = {
        {"k7400", 5, 3, "GE2/3"},   {"k7400", 5, 2, "XE2/2"},   {"k7400", 22, 1, "XE2/1"},
        {"k7400a", 22, 2, "GE2/2"}, {"k7400a", 22, 3, "XE2/3"}, {"k7400a", 22, 0, "XE2/0"},
        {"k7400", 2, 3, "-1 2/3"},  {"k7400", 34, 3, "-1 2/3"}};
    for (const auto &[chassis, card, port, name] : cases) {
        ChassisRoot root{chassis};
        char out[32] = {};
        const int result = convert_interface_name_from_cardtype_slot_port(card, 2, port, out);
        EXPECT_EQ((result == 0 ? "" : "-1 ") + std::string(out), name) << chassis << " " << card;
    }
}

// The caller's text is never cut, whatever the call appends.
TEST(SlotPortRanges, LettersGoAndOneSlotRangesShorten) {
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"GE1/1-GE1/4,XE2/1", "", "1/1-4,2/1"},
        {"GE1/1-GE2/4", "", "1/1-2/4"},
        {"GE1/1-4", "", "1/1-4"},
        {"br10,default,zone", "", "10,a,z"},
        {"GE1/1", "x,", "x,1/1"},
        {"GE,XE", "x,", "x,"}};
    for (const auto &[names, before, after] : cases) {
        char out[64];
        std::strcpy(out, before);
        EXPECT_EQ(convert_multi_slotport_range_from_multi_ifname(names, out), out);
        EXPECT_STREQ(out, after) << names;
    }
    // Nothing is written past the list's own length, even for a moment.
    for (const char *names : {"1/1", "1/1,2/1-2/4,GE", "9/9-9/9x"}) {
        char room[32];
        std::memset(room, '#', sizeof room);
        room[0] = '\0';
        convert_multi_slotport_range_from_multi_ifname(names, room);
        EXPECT_EQ(room[std::strlen(names) + 1], '#') << names;
    }
    char out[8] = "";
    EXPECT_EQ(convert_multi_slotport_range_from_multi_ifname(nullptr, out), nullptr);
    EXPECT_EQ(convert_multi_slotport_range_from_multi_ifname("GE1/1", nullptr), nullptr);
}

// The count is the most ranges the list may hold: more do not convert.
TEST_F(Names, SfuNamedByItsRealSlot) {
    const std::tuple<const char *, const char *, int, int> cases[] = {
        {kXe, "3/1", 8, 1},       {kXe, "0/1", 8, 0}, {kXe, "1/1,3/2-4", 8, 1},
        {kXe, "1/1,3/2-4", 1, 0}, {kGe, "3/1", 8, 0}, {kXe, nullptr, 8, 0},
        {nullptr, "3/1", 8, 0}};
    for (const auto &[word, list, max, result] : cases) {
        EXPECT_EQ(is_sfu_real_slot(word, list, max), result) << shown(list) << " max " << max;
    }
}

// "1/x" reads as GPON1/0; the list is copied only when it fits the maximum.
TEST_F(Names, PortListsAreCheckedAgainstTheChassis) {
    const std::tuple<const char *, const char *, int, int> cases[] = {
        {"gpon", "1/5-2,1/8", 20, 0}, {"gpon", "1/1-9", 20, -3}, {"gpon", "2/1", 20, -3},
        {kXe, "0/16", 20, 0},         {kXe, "0/17", 20, -3},     {kCg, "1-8", 20, 0},
        {kCg, "9", 20, -3},           {"vlan", "10", 20, -3},    {kCg, "1/1", 20, -2},
        {"gpon", "1/x", 20, -3},      {"gpon", nullptr, 20, -1}, {nullptr, "1/1", 20, -1},
        {"gpon", "1/1-8", 5, 0},      {"gpon", "1/1-8", 4, -1},  {"gpon", "", -1, -1}};
    for (const auto &[word, list, max, result] : cases) {
        char out[32];
        std::memset(out, 'x', sizeof out);
        EXPECT_EQ(get_port_str_by_interface_name(word, list, max, out), result)
            << shown(word) << " " << shown(list);
        // Nothing past the list's terminator; nothing at all on failure.
        const std::string expected = result == 0 ? std::string(list) + '\0' + 'x' : "x";
        EXPECT_EQ(std::string(out, expected.size()), expected);
    }
}

TEST_F(Names, ListCheckCodes) {
    std::string most = "GPON1/1"; // 1,000 elements, the most a list may hold
    for (int i = 1; i < 1000; ++i) {
        most += ",GPON1/1";
    }
    const std::string many = most + ",GPON1/1";
    const std::string huge = "GPON1/1-" + std::string(300, '1');
    const std::tuple<const char *, int, int> cases[] = {{"GPON1/1-8,EPON2/1", 1, 0},
                                                        {nullptr, 0, -1},
                                                        {"br1", 0, -3},
                                                        {"CG1/1", 0, -2},
                                                        {"GPON1/1-x", 0, -2},
                                                        {"GPON1/5-2", 0, -5},
                                                        {"GPON1/1,GPON4/1", 0, -3},
                                                        {"GPON123/4567", 0, -3},
                                                        {most.c_str(), 1, 0},
                                                        {many.c_str(), 0, -4},
                                                        {huge.c_str(), 0, -2}};
    for (const auto &[list, result, code] : cases) {
        int got = 7;
        EXPECT_EQ(check_interface_list(list, &got), result);
        EXPECT_EQ(got, code) << std::string(shown(list)).substr(0, 20);
    }
}

} // namespace
