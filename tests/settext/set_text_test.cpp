// Port, bridge and VLAN sets as text, both ways: bitmaps printed as range
// text, port tokens and range text parsed back. The texts the shell reads back
// are checked on every shipped chassis in roundtrip_test.cpp.
#include "gvutil/settext.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstring>
#include <optional>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace {

using gvtest::ChassisRoot;
using PortFormatter = int (*)(char *, int, const portset_t *);
using IdFormatter = int (*)(char *, int, const uint32_t *);

struct PortCase {
    PortFormatter formatter;
    std::vector<int> pnums;
    int max;
    const char *text;
    int found;
};

void expect_ports(std::initializer_list<PortCase> cases) {
    for (const PortCase &c : cases) {
        portset_t set;
        ps_zero(&set);
        for (int pnum : c.pnums) {
            ps_set(&set, pnum);
        }
        char text[4096];
        std::memset(text, 'x', sizeof text);
        EXPECT_EQ(c.formatter(text, c.max, &set), c.found) << c.text;
        EXPECT_STREQ(text, c.text);
    }
}

// test3: GPON 1-8 in slot 1, EPON 9-16 in slot 2, XE 17-32 in the SFU slot,
// interlinks 33-34, the logical slot 35-48. Runs follow pnums across slots
// and end at max. An interface run ends with the bare port number. The
// slot/port text walks the 32 slot ports and 8 more, a port also counting
// when the bit 40 places above it is set; a member without text leaves an
// empty place.
TEST(PortSetText, EachFormattersMemberText) {
    ChassisRoot root{"test3"};
    expect_ports({
        {portset2str, {1, 2, 3, 5}, 48, "GPON1/1-GPON1/3,GPON1/5", 4},
        {portset2str, {8, 9}, 48, "GPON1/8-EPON2/1", 2},
        {portset2str, {9, 10, 11}, 10, "EPON2/1-EPON2/2", 2},
        {portset2str2, {1, 2, 17}, 48, "GPON1/1-GPON1/2,XE3/1", 3},
        {portset2_if_str, {1, 2, 3, 9}, 48, "GPON1/1-3,EPON2/1", 4},
        {portset2_if_str, {35, 36}, 48, "CG1-2", 2},
        {portset2_if_str, {8, 9}, 48, "GPON1/8-1", 2},
        {portset2str_wo_iftype, {40}, 48, "", 1},
        {portset2str_wo_iftype, {32, 33}, 48, "0/16,", 2},
        {portset2str_wo_iftype, {1 + 40, 2 + 40, 4}, 48, "1/1-1/2,1/4", 3},
        {portset2str_wo_iftype, {1, 1 + 40}, 48, "1/1", 1},
        {portset2str_wo_iftype, {81}, 1536, "", 0},
    });
}

// Channel groups from pnum 3 on, 10 of them walked: a run never spans the
// slot ports and the groups. Without slots members are numbers, up to the
// bitmap's capacity.
TEST(PortSetText, GroupsAfterTheSlotPortsAndNoSlots) {
    std::optional<ChassisRoot> root{gvtest::two_port_chassis(8)};
    expect_ports({
        {portset2str_wo_iftype, {1, 2, 3, 4}, 16, "1/1-1/2,CG1-CG2", 4},
        {portset2str_wo_iftype, {11}, 16, "1/1", 1},
        {portset2str_wo_iftype, {21}, 16, "", 0},
    });
    root.emplace("k3100x");
    expect_ports({{portset2str, {1536, 1537}, 5000, "1536", 1}});
}

// The bridge text repeats a lone last member at a max below the capacity;
// ids from 4095 on are never read.
TEST(IdSetText, BridgeAndVlanRuns) {
    const IdFormatter formatters[] = {brset2str, vlanset2str, vlanset2str2};
    struct Case {
        std::vector<int> ids;
        int max;
        std::array<const char *, 3> texts; // of each formatter
    };
    const Case cases[] = {
        {{1, 2, 3, 5}, 4094, {"1-3,5", "1-3,5", "default,br2-br3,br5"}},
        {{3, 10}, 10, {"3,10,10", "3,10", "br3,br10"}},
        {{1}, 1, {"1,1", "1", "default"}},
        {{9, 10}, 10, {"9-10", "9-10", "br9-br10"}},
        {{10}, 20, {"10", "10", "br10"}},
        {{4094, 4095}, 5000, {"4094", "4094", "br4094"}},
    };
    for (const Case &c : cases) {
        std::array<uint32_t, GV_ID_SET_WORDS> set{};
        for (int id : c.ids) {
            ::set(set.data(), id - 1);
        }
        for (std::size_t i = 0; i < c.texts.size(); ++i) {
            char text[256];
            EXPECT_EQ(formatters[i](text, c.max, set.data()),
                      c.max == 5000 ? 1 : static_cast<int>(c.ids.size()));
            EXPECT_STREQ(text, c.texts[i]);
        }
    }
}

// A null bitmap or byte array prints as an empty text; the parsers answer 0
// for a null bitmap and print nothing, even for a bad text.
TEST(SetText, ByteArraysAndNullBitmaps) {
    const uint8_t bytes[] = {9, 1, 1, 0, 5, 0, 1};
    char text[64];
    EXPECT_EQ(ports_array2str(bytes, 6, text), 0);
    EXPECT_STREQ(text, "1-2,4,6");
    char ids[8] = "x";
    char ports[8] = "x";
    EXPECT_EQ(ports_array2str(nullptr, 4, text), 0);
    EXPECT_EQ(brset2str(ids, 4094, nullptr) + portset2str(ports, 48, nullptr), 0);
    EXPECT_EQ(std::string(text) + ids + ports, "");
    testing::internal::CaptureStderr();
    EXPECT_EQ(getportset("1-2", 48, nullptr) + getbrset("x", 4094, nullptr), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(OnePortText, ShortTextAndTrunkSlotPort) {
    ChassisRoot root{"test3"};
    EXPECT_STREQ(_cnvt_port_num_to_str(200), "");
    // One buffer per thread: another thread's call leaves ours alone.
    char *mine = _cnvt_port_num_to_str(1);
    std::thread([] { EXPECT_STREQ(_cnvt_port_num_to_str(17), "XE3/1"); }).join();
    EXPECT_STREQ(mine, "GPON1/1");
    char out[8];
    EXPECT_STREQ(convert_legarcy_pnum_to_slotport_str(17, out, sizeof out), "0/1");
    EXPECT_STREQ(convert_legarcy_pnum_to_slotport_str(43, out, sizeof out), "1/1"); // trunk
    std::memset(out, 'x', sizeof out);
    convert_legarcy_pnum_to_slotport_str(11, out, 3);
    EXPECT_EQ(std::string(out, 4), "2/3x"); // filled to len: no terminator
}

// test3: slots of 8, 8 and 16 ports, interlink 33-34, logical slot 35-48.
TEST(PortNumber, TokensToPnums) {
    ChassisRoot root{"test3"};
    struct Case {
        const char *token;
        int pnum;
    };
    const Case cases[] = {
        {"1/3", 3}, {"0/5", 21}, {"t/2", 36},  {"t/14", 48}, {"trunk/1", 35}, {"t/15", 0},
        {"2", 0},   {"1/9", 0},  {"4/1", 0},   {"x/1", 0},   {"/1", 0},       {"1/", 0},
        {"1/a", 0}, {"1/0", 0},  {"1/2/3", 0}, {"", 0},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(make_port_number(c.token), c.pnum) << c.token;
    }
    for (const auto &[slot, first, last] :
         {std::tuple{"1", 1, 8}, {"2", 9, 16}, {"3", 17, 32}, {"0", 1, 0}}) {
        EXPECT_EQ(make_port_number_from_slot_start(slot), first) << slot;
        EXPECT_EQ(make_port_number_from_slot_end(slot), last) << slot;
    }
    ChassisRoot slotless{"k3100x"}; // tokens are numbers, read as atoi reads them
    EXPECT_EQ(make_port_number("7x"), 7);
    EXPECT_EQ(make_port_number("1/2"), 1);
}

struct SetCase {
    const char *text;
    int max, count;
    std::vector<int> members;
    bool message;
};

// Each case parsed into a bitmap of `capacity` bits whose bit `held` is set
// beforehand: the count, the members afterwards and the standard error text.
template <typename Set>
void expect_parsed(int (*parser)(const char *, int, Set *), Set *set, uint32_t *words, int capacity,
                   int held, const std::string &wrong, std::initializer_list<SetCase> cases) {
    for (const SetCase &c : cases) {
        std::memset(words, 0, static_cast<std::size_t>(capacity / 8));
        ::set(words, held - 1);
        testing::internal::CaptureStderr();
        EXPECT_EQ(parser(c.text, c.max, set), c.count) << c.text;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), c.message ? wrong : "") << c.text;
        std::vector<int> members;
        for (int n = 1; n <= capacity; ++n) {
            if (chk(words, n - 1) != 0) {
                members.push_back(n);
            }
        }
        EXPECT_EQ(members, c.members) << c.text;
    }
}

// Counted per token; bits set before a bad token stay set; a range out of
// order fails silently; a bad character leaves the set untouched. Members
// beyond the bitmap are counted, never set.
TEST(PortSetParse, TextToBitmap) {
    const std::string wrong = "%Wrong expression. ex) 'show port 1,3' , 'show port 1-3,10' , "
                              "'show port 1/2-t/4' \n";
    portset_t set;
    std::optional<ChassisRoot> root{"test3"};
    expect_parsed(getportset, &set, set.bits, GV_PORTSET_MAX_PORT, 99, wrong,
                  {SetCase{"1/1-1/3,2/1", 48, 4, {1, 2, 3, 9}, false},
                   SetCase{"t/1,1/2", 48, 2, {2, 35}, false}, SetCase{"1/1,1/1", 48, 2, {1}, false},
                   SetCase{"1/1,9/1", 48, 0, {1}, false}, SetCase{"1/3-1/1", 48, 0, {}, false},
                   SetCase{"1/3-", 48, 0, {}, false}, SetCase{"1/1-3,x", 48, 0, {99}, true},
                   SetCase{"GPON1/1", 48, 0, {99}, true}, SetCase{"", 48, 0, {99}, true}});
    root.emplace("k3100x");
    expect_parsed(
        getportset, &set, set.bits, GV_PORTSET_MAX_PORT, 99, wrong,
        {SetCase{"20-30", 28, 0, {}, false},
         SetCase{"1530-1540", 2000, 11, {1530, 1531, 1532, 1533, 1534, 1535, 1536}, false}});
}

// A token without a leading digit ends the parse; ids above 4094 are never
// set. Id 4096 is set beforehand: it is cleared with the rest of the 512
// bytes. With slots, bridge text is slot/port text.
TEST(BridgeSetParse, TextToIds) {
    const std::string wrong =
        "%Wrong expression. ex) 'show port 1,3' , 'show port 1-3,10' , 'show port 1/2' \n";
    std::array<uint32_t, GV_ID_SET_WORDS> set{};
    std::optional<ChassisRoot> root{"k3100x"};
    expect_parsed(getbrset, set.data(), set.data(), 4096, 4096, wrong,
                  {SetCase{"1-3,10", 4094, 4, {1, 2, 3, 10}, false},
                   SetCase{"1,-3,5", 4094, 1, {1}, false}, SetCase{"5,7-6", 4094, 0, {5}, false},
                   SetCase{"4093-4096", 5000, 4, {4093, 4094}, false},
                   SetCase{"5000", 4094, 0, {}, false}, SetCase{"t/1", 4094, 0, {4096}, true},
                   SetCase{"1,a", 4094, 0, {4096}, true}});
    root.emplace("test3");
    expect_parsed(getbrset, set.data(), set.data(), 4096, 4096, wrong,
                  {SetCase{"10", 4094, 0, {}, false}, SetCase{"1/5,2/1", 4094, 2, {5, 9}, false}});
}

// Without slots a token is read as atoi reads its first 255 characters;
// a range is cut at its first '-'.
TEST(BridgeSetParse, NumbersAsAtoiReadsThem) {
    ChassisRoot root{"k3100x"};
    const std::string whole = std::string(251, '0') + "4093"; // 255 characters
    const std::string cut = std::string(252, '0') + "4093";   // 256: 409 is read
    const std::string ranges = "1-" + whole + ",2-" + cut;
    std::array<uint32_t, GV_ID_SET_WORDS> set{};
    expect_parsed(getbrset, set.data(), set.data(), 4096, 4096, "",
                  {SetCase{whole.c_str(), 4094, 1, {4093}, false},
                   SetCase{cut.c_str(), 4094, 1, {409}, false},
                   SetCase{"0007,12/5,7/1-9", 4094, 5, {7, 8, 9, 12}, false},
                   SetCase{"3-5-9,5-3-9", 4094, 0, {3, 4, 5}, false},
                   SetCase{"2147483647,99999999999", INT_MAX, 2, {}, false}});
    EXPECT_EQ(getbrset(ranges.c_str(), 4094, set.data()), 4093 + 408);
}

// Ranges filled and found a word at a time read back as they were written:
// across a word boundary, one whole word, four and five whole words between
// the ends, up to the last id.
TEST(IdSetText, RangesAcrossWords) {
    ChassisRoot root{"k3100x"};
    for (const char *text : {"32-33", "33-64", "1-192", "1-224,300", "31-4094", "4064-4094"}) {
        std::array<uint32_t, GV_ID_SET_WORDS> set{};
        const int members = getbrset(text, 4094, set.data());
        char back[64];
        EXPECT_EQ(vlanset2str(back, 4094, set.data()), members) << text;
        EXPECT_STREQ(back, text);
    }
}

// Without slots a token is a plain number, so one range can name every int.
// A count beyond INT_MAX answers INT_MAX, still a success with the members
// set; a later bad token still fails the parse (the bridge parse stops at a
// token without a digit and keeps its count). 1,398,101 ranges of 1536
// members are the most whose count fits.
TEST(SetParse, CountsStopAtTheLargestInt) {
    ChassisRoot root{"k3100x"};
    std::string fits = "1-1536";
    for (int i = 1; i < 1398101; ++i) {
        fits += ",1-1536";
    }
    const std::string beyond = fits + ",1-1536";
    const std::tuple<const char *, int, int, int> cases[] = {
        {"1-2147483646", INT_MAX, INT_MAX - 1, INT_MAX - 1},
        {"1-2147483646,1", INT_MAX, INT_MAX, INT_MAX},
        {"1-2147483646,1,1", INT_MAX, INT_MAX, INT_MAX},
        {"1-2147483647,1-2147483647,7", INT_MAX, INT_MAX, INT_MAX},
        {"1-2147483647,1,9-8", INT_MAX, 0, 0},
        {"1-2147483647,2,-3", INT_MAX, 0, INT_MAX},
        {fits.c_str(), 1536, 2147483136, 2147483136},
        {beyond.c_str(), 1536, INT_MAX, INT_MAX},
    };
    for (const auto &[text, max, ports, bridges] : cases) {
        const std::string shown = std::string(text).substr(0, 28);
        portset_t set;
        std::array<uint32_t, GV_ID_SET_WORDS> ids{};
        EXPECT_EQ(getportset(text, max, &set), ports) << shown;
        EXPECT_EQ(getbrset(text, max, ids.data()), bridges) << shown;
        EXPECT_TRUE(ps_isset(&set, 1536) == 1 && chk(ids.data(), 1535) != 0) << shown;
    }
}

} // namespace
