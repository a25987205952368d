// Octet strings, port bitmaps and words; decimal and reversed text; bridge
// names and VLAN ranges; minute arithmetic.
#include "gvutil/sys.h"
#include "gvutil/sysport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

using Octets = std::vector<unsigned char>;

std::string hex(const unsigned char *octets, int count) {
    std::string text;
    char two[3];
    for (int i = 0; i < count; ++i) {
        std::snprintf(two, sizeof two, "%02x", octets[i]);
        text += two;
    }
    return text;
}

TEST(OctetInt, BigEndianUpToFourOctets) {
    const Octets octets = {0x01, 0x02, 0x03, 0x04, 0x05};
    struct Case {
        int count;
        uint32_t value;
    };
    for (const Case c :
         {Case{0, 0}, Case{1, 0x01}, Case{2, 0x0102}, Case{4, 0x01020304}, Case{5, 0x01020304}}) {
        uint32_t value = 0xdeadbeef;
        EXPECT_EQ(convert_octet2int(octets.data(), c.count, &value), 0);
        EXPECT_EQ(value, c.value) << c.count;
        Octets back(6, 0xee);
        EXPECT_EQ(convert_int2octet(back.data(), c.count, c.value | 0xAB000000U * (c.count < 4)),
                  0);
        EXPECT_EQ(hex(back.data(), 6), hex(octets.data(), std::min(c.count, 4)) +
                                           std::string(2 * (6 - std::min(c.count, 4)), 'e'))
            << c.count;
    }
    uint32_t value = 7;
    EXPECT_EQ(convert_octet2int(octets.data(), -1, &value), 0);
    EXPECT_EQ(value, 7U);
    EXPECT_EQ(convert_octet2int(nullptr, 2, &value), 0);
    EXPECT_EQ(convert_int2octet(nullptr, 2, 1), 0);
}

TEST(OctetInt, ExtendedWordsAreBitReversedFromTheLastWord) {
    const Octets octets = {0x01, 0x02, 0x03, 0x04, 0x80, 0x40};
    std::vector<uint32_t> words(3, 0xffffffff);
    EXPECT_EQ(convert_octet2int_ext(octets.data(), 6, words.data(), 3), 0);
    // Group 0 fills the last word, octet 0 reversed in its low byte.
    EXPECT_EQ(words[2], 0x20C04080U);
    EXPECT_EQ(words[1], 0x00000201U); // a short group: the missing octets are zero
    EXPECT_EQ(words[0], 0xffffffffU); // no group left for it

    Octets out(12, 0xee);
    // From the last word back, the low byte first: the octets come back,
    // and the text length stops at the first zero octet.
    EXPECT_EQ(convert_int2octet_ext(words.data() + 1, 2, out.data(), 9), 6);
    EXPECT_EQ(hex(out.data(), 10), "010203048040000000ee");

    // Room for size-1 octets only, then the terminator.
    Octets small(5, 0xee);
    EXPECT_EQ(convert_int2octet_ext(words.data() + 1, 2, small.data(), 4), 3);
    EXPECT_EQ(hex(small.data(), 5), "01020300ee");
    EXPECT_EQ(convert_int2octet_ext(words.data(), 3, small.data(), 0), 0);
    EXPECT_EQ(convert_octet2int_ext(nullptr, 4, words.data(), 3), 0);
}

TEST(ReverseBit, EachOctetOnItsOwn) {
    Octets octets = {0x01, 0xA0, 0xFF, 0x00, 0x12};
    reverse_bit(octets.data(), 4);
    EXPECT_EQ(hex(octets.data(), 5), "8005ff0012");
    reverse_bit(nullptr, 3);
}

TEST(PortsetOctets, LowestBitIsPnumOne) {
    struct Case {
        Octets octets;
        int words;
        std::vector<int> pnums;
    };
    Octets full(192, 0);
    full[0] = 0x80;
    full[191] = 0x01;
    for (const Case &c : {
             Case{{0x01, 0x02}, 1, {2, 9}},
             Case{{0x01, 0x00, 0x00, 0x00, 0x01}, 2, {1, 33}},
             Case{{0x00, 0x00, 0x80}, 1, {8}},
             Case{full, 48, {1, 1536}},
         }) {
        portset_t set;
        std::memset(&set, 0xff, sizeof set);
        EXPECT_EQ(convert_octet2portset_t(c.octets.data(), static_cast<int>(c.octets.size()), &set),
                  c.words);
        portset_t expected;
        ps_zero(&expected);
        for (int pnum : c.pnums) {
            ps_set(&expected, pnum);
        }
        // Only the words the octets reach are written.
        for (int k = 0; k < GV_PORTSET_WORDS; ++k) {
            EXPECT_EQ(set.bits[k], k < c.words ? expected.bits[k] : 0xffffffffU) << k;
        }
        Octets out(193, 0xee);
        const int written = convert_portset_t2octet(&expected, out.data(), 193);
        std::size_t lead = 0;
        while (lead < c.octets.size() && c.octets[lead] == 0) {
            ++lead;
        }
        const Octets back(c.octets.begin() + static_cast<long>(lead), c.octets.end());
        EXPECT_EQ(hex(out.data(), written), hex(back.data(), static_cast<int>(back.size())));
        EXPECT_EQ(out[static_cast<std::size_t>(written)], 0);
    }
}

TEST(PortsetOctets, Limits) {
    Octets octets(193, 0x01);
    portset_t set;
    ps_zero(&set);
    EXPECT_EQ(convert_octet2portset_t(octets.data(), 193, &set), 0);
    EXPECT_EQ(set.bits[0], 0U);
    EXPECT_EQ(convert_octet2portset_t(octets.data(), 192, &set), 48);
    EXPECT_EQ(convert_octet2portset_t(octets.data(), 0, &set), 0);
    EXPECT_EQ(convert_octet2portset_t(nullptr, 2, &set), 0);

    Octets out(193, 0xee);
    EXPECT_EQ(convert_portset_t2octet(&set, out.data(), 191), 0);
    EXPECT_EQ(out[0], 0xee);
    // All 192 octets in a 192-byte output: no room for the terminator.
    EXPECT_EQ(convert_portset_t2octet(&set, out.data(), 192), 192);
    EXPECT_EQ(out[192], 0xee);
    ps_zero(&set);
    EXPECT_EQ(convert_portset_t2octet(&set, out.data(), 193), 0);
    EXPECT_EQ(out[0], 0x01); // an empty set writes nothing
    EXPECT_EQ(convert_portset_t2octet(nullptr, out.data(), 193), 0);
}

TEST(Itoa, DecimalTextBothSigns) {
    for (const int value : {0, 7, -7, 120, -45, INT_MAX, INT_MIN}) {
        char out[16];
        std::memset(out, 'x', sizeof out);
        itoa(value, out);
        EXPECT_EQ(std::string(out), std::to_string(value));
    }
}

TEST(Reverse, TextInPlaceAndCountedBytes) {
    for (const auto &[text, reversed] :
         {std::pair{"", ""}, {"a", "a"}, {"ab", "ba"}, {"abc", "cba"}, {"GE1/2", "2/1EG"}}) {
        char buffer[16];
        std::strcpy(buffer, text);
        reverse(buffer);
        EXPECT_STREQ(buffer, reversed);
    }
    char bytes[] = {'a', 'b', '\0', 'c', 'd'};
    EXPECT_EQ(m_strrev(bytes, 5), bytes);
    EXPECT_EQ(std::string(bytes, 5), std::string("dc\0ba", 5)); // not stopped by a zero byte
    std::string longest(264, 'a');
    longest.back() = 'z';
    m_strrev(longest.data(), 264);
    EXPECT_EQ(longest.front(), 'z');
    std::string longer(265, 'a');
    longer.back() = 'z';
    m_strrev(longer.data(), 265); // past the work buffer: left alone
    EXPECT_EQ(longer.back(), 'z');
}

TEST(FileFromPath, AfterTheLastSlash) {
    for (const auto &[path, file] :
         {std::pair{"/a/b", "b"}, {"b", "b"}, {"/a/", ""}, {"/", ""}, {"tmp/log.txt", "log.txt"}}) {
        const char *name = get_file_from_path(path);
        EXPECT_STREQ(name, file) << path;
        EXPECT_EQ(name + std::strlen(name), path + std::strlen(path)) << "inside the path";
    }
    EXPECT_EQ(get_file_from_path(nullptr), nullptr);
}

TEST(BridgeNames, VidFromName) {
    for (const auto &[name, vid] : {std::pair{"br1", 1},
                                    {"br4094", 4094},
                                    {"br4095", 0},
                                    {"br0", 0},
                                    {"br0x10", 16},
                                    {"br010", 8},
                                    {"br0xFFE", 4094},
                                    {"br", 0},
                                    {"br-1", 0},
                                    {"br12abc", 12},
                                    {"default", 1},
                                    {"default1", 1},
                                    {"defaul", 0},
                                    {"BR10", 0},
                                    {"vlan10", 0}}) {
        EXPECT_EQ(gv_get_vid_from_br(name), vid) << name;
    }
    EXPECT_EQ(gv_get_vid_from_br(nullptr), 0);
    EXPECT_EQ(gv_get_max_vlan(), 4094);
}

TEST(BridgeNames, ValidName) {
    for (const auto &[name, valid] : {std::pair{"br", 0},
                                      {"br10", 1},
                                      {"br1a", 0},
                                      {"br0", 1},
                                      {"xbr1", 0},
                                      {"br 1", 0},
                                      {"", 0}}) {
        EXPECT_EQ(is_valid_vname(name), valid) << name;
    }
    EXPECT_EQ(is_valid_vname(nullptr), 0);
}

TEST(VlanRange, SingleAndRangeWithinBounds) {
    struct Case {
        std::string text;
        int result, first, last;
    };
    for (const Case &c : {
             Case{"10-20", 1, 10, 20},
             Case{"1-4094", 1, 1, 4094},
             Case{"0-20", 0, 0, 0},
             Case{"10-4095", 0, 0, 0},
             Case{"20-10", 0, 0, 0},
             Case{"5-5", 0, 0, 0}, // a range of one is refused ...
             Case{"5", 1, 5, 5},   // ... while the number alone is taken
             Case{"1", 1, 1, 1},
             Case{"4094", 1, 4094, 4094},
             Case{"0", 0, 0, 0},
             Case{"4095", 0, 0, 0},
             Case{"10-", -1, 0, 0},
             Case{"-10", 0, 0, 0},
             Case{"10-2x", 0, 0, 0},
             Case{"1-3-5", 0, 0, 0},
             Case{"a", 0, 0, 0},
             Case{"", 0, 0, 0},
             Case{"99999999999", 0, 0, 0},
             // The working copy holds 71 characters: the range's end is cut off.
             Case{std::string(67, '0') + "1-20", 1, 1, 20},
             Case{std::string(68, '0') + "1-20", 1, 1, 2},
             Case{std::string(69, '0') + "1-20", -1, 0, 0},
         }) {
        int pair[2] = {0, 0};
        EXPECT_EQ(is_valid_vrange(c.text.c_str(), 1, 4094, pair), c.result) << c.text;
        EXPECT_EQ(pair[0], c.first) << c.text;
        EXPECT_EQ(pair[1], c.last) << c.text;
    }
    EXPECT_EQ(is_valid_vrange("7", 1, 10, nullptr), 1);
    EXPECT_EQ(is_valid_vrange(nullptr, 1, 10, nullptr), 0);
}

TEST(Time, MinutesAndSeconds) {
    struct Case {
        int seconds, minutes, rest;
    };
    for (const Case c : {Case{0, 0, 0}, Case{59, 0, 59}, Case{60, 1, 0}, Case{61, 1, 1},
                         Case{-61, -1, -1}, Case{-59, 0, -59}}) {
        EXPECT_EQ(gv_get_time_min(c.seconds), c.minutes) << c.seconds;
        EXPECT_EQ(gv_get_time_sec(c.seconds), c.rest) << c.seconds;
        EXPECT_EQ(gv_get_time(c.minutes, c.rest), c.seconds) << c.seconds;
    }
    EXPECT_EQ(gv_get_time(INT_MAX / 60 + 1, 0), static_cast<int>((INT_MAX / 60 + 1) * 60LL));
}

} // namespace
