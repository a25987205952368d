// The model's value helpers: port bitmaps and bit arrays, group selection,
// membership tests, comparators, trunk mode tags and host address checks.
#include "gvutil/model.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

TEST(Portset, PortsMapToWordAndBitFromTheLeastSignificantEnd) {
    struct Case {
        int port, word;
        uint32_t mask;
    };
    for (const Case c : {Case{1, 0, 1u}, Case{2, 0, 2u}, Case{32, 0, 0x80000000u}, Case{33, 1, 1u},
                         Case{64, 1, 0x80000000u}, Case{1536, 47, 0x80000000u}}) {
        portset_t ps;
        std::memset(&ps, 0xAB, sizeof ps);
        ASSERT_EQ(ps_zero(&ps), &ps);
        ps_set(&ps, c.port);
        for (int w = 0; w < GV_PORTSET_WORDS; ++w) {
            EXPECT_EQ(ps.bits[w], w == c.word ? c.mask : 0u) << "port " << c.port << " word " << w;
        }
        const int neighbour = c.port % 32 == 0 ? c.port - 1 : c.port + 1; // in the same word
        EXPECT_EQ(ps_isset(&ps, c.port), 1);
        EXPECT_EQ(ps_isset(&ps, neighbour), 0);
        ps_set(&ps, neighbour);
        ps_clear(&ps, c.port);
        EXPECT_EQ(ps_isset(&ps, c.port), 0);
        EXPECT_EQ(ps_isset(&ps, neighbour), 1);
    }
}

TEST(Portset, OrAddsEveryWord) {
    portset_t a;
    portset_t b;
    ps_set(ps_zero(&a), 3);
    ps_set(ps_zero(&b), 1500);
    ps_or(&a, &b);
    EXPECT_EQ(ps_isset(&a, 3) + ps_isset(&a, 1500), 2);
}

TEST(Portset, PortsOutsideTheBitmapAreIgnored) {
    std::array<portset_t, 3> guarded{};
    for (int port : {0, -5, 1537, 100000}) {
        ps_set(&guarded[1], port);
        EXPECT_EQ(ps_isset(&guarded[1], port), 0);
    }
    for (const auto &ps : guarded) {
        EXPECT_TRUE(std::all_of(std::begin(ps.bits), std::end(ps.bits),
                                [](uint32_t word) { return word == 0; }));
    }
}

TEST(BitArray, ChkAnswersTheMaskedBit) {
    std::array<uint32_t, 2> words{};
    set(words.data(), 5);
    set(words.data(), 32);
    EXPECT_EQ(words[0], 0x20u);
    EXPECT_EQ(words[1], 1u);
    EXPECT_EQ(chk(words.data(), 5), 32u); // not 1: callers test for non-zero
    EXPECT_EQ(chk(words.data(), 32), 1u);
    EXPECT_EQ(chk(words.data(), 4), 0u);
    clr(words.data(), 5);
    EXPECT_EQ(words[0], 0u);
    set(words.data(), -1); // negative bits are ignored
    EXPECT_EQ(chk(words.data(), -1), 0u);
    EXPECT_EQ(words[0], 0u);
}

template <typename T> std::vector<T> first(const T *values, int count) {
    return std::vector<T>(values, values + count);
}

// Each call takes the first untaken record's group, in list order, and marks
// what it hands back as taken.
TEST(Select, TakesOneGroupPerCallInListOrder) {
    std::vector<br_info_t> bridges = {{10, 1}, {11, 2}, {12, 1}};
    uint16_t ids[3] = {};
    br_info_t bridge_group{};
    EXPECT_EQ(first(ids, select_br_info(bridges.data(), 3, ids, &bridge_group)),
              (std::vector<uint16_t>{10, 12}));
    EXPECT_EQ(bridge_group.key, 1);
    EXPECT_EQ(first(ids, select_br_info(bridges.data(), 3, ids, &bridge_group)),
              (std::vector<uint16_t>{11}));
    EXPECT_EQ(bridge_group.key, 2);
    EXPECT_EQ(select_br_info(bridges.data(), 3, ids, &bridge_group), 0);
    EXPECT_EQ(bridges[2].br_id, GV_BR_INFO_TAKEN);

    // The secondary value is the first record's; it takes no part in the match.
    std::vector<port_info_t> ports = {{7, -3, 500}, {254, 9, 1}, {2, -3, 600}};
    uint32_t out[3] = {};
    port_info_t group{};
    EXPECT_EQ(first(out, select_port_info(ports.data(), 3, out, &group)),
              (std::vector<uint32_t>{7, 2}));
    EXPECT_EQ(group.key, -3);
    EXPECT_EQ(group.value, 500);
    EXPECT_EQ(first(out, select_port_info(ports.data(), 3, out, &group)),
              (std::vector<uint32_t>{254})); // below 255 is a live port
    EXPECT_EQ(select_port_info(ports.data(), 3, out, &group), 0);

    // select_port matches on the key only: a taken record of the group's key
    // is handed back again (callers never mix the two within one key).
    ports = {{255, 4, 0}, {1, 4, 0}, {255, 4, 0}};
    uint32_t key = 0;
    EXPECT_EQ(first(out, select_port(ports.data(), 3, out, &key)), (std::vector<uint32_t>{1, 255}));
    EXPECT_EQ(key, 4u);
}

TEST(Select, NoCountOrNullArgumentsTakeNothing) {
    port_info_t list[1] = {{1, 1, 1}};
    br_info_t bridges[1] = {{1, 1}};
    uint32_t out[1] = {};
    uint32_t key = 99;
    port_info_t group{};
    EXPECT_EQ(select_port(list, -1, out, &key), 0);
    EXPECT_EQ(select_port(nullptr, 1, out, &key), 0);
    EXPECT_EQ(select_port(list, 1, nullptr, &key), 0);
    EXPECT_EQ(select_port_info(list, 1, out, nullptr), 0);
    EXPECT_EQ(select_br_info(bridges, 1, nullptr, nullptr), 0);
    EXPECT_EQ(key, 99u);
    EXPECT_EQ(bridges[0].br_id, 1);
    EXPECT_EQ(select_port_info(list, 1, out, &group), 1); // still untaken
}

TEST(Membership, TheTwoTestsAnswerInOppositeSenses) {
    const uint32_t ports[] = {4, 8, 15};
    const int32_t ids[] = {4, 8, 15};
    EXPECT_EQ(is_port_set(ports, 3, 15), 1);
    EXPECT_EQ(is_port_set(ports, 2, 15), 0);
    EXPECT_EQ(id_in_list(ids, 3, 15), 0);
    EXPECT_EQ(id_in_list(ids, 2, 15), 1);
    EXPECT_EQ(id_in_list(nullptr, 5, 7), 1);
}

template <typename T>
std::vector<T> sorted(std::vector<T> v, int (*compare)(const void *, const void *)) {
    std::qsort(v.data(), v.size(), sizeof(T), compare);
    return v;
}

TEST(Comparators, SortAscendingInEachElementWidthAndSign) {
    EXPECT_EQ(sorted<uint16_t>({512, 3, 255}, compare_br_id), (std::vector<uint16_t>{3, 255, 512}));
    EXPECT_EQ(sorted<uint8_t>({128, 3, 255}, compare_onuid), (std::vector<uint8_t>{3, 128, 255}));
    const std::vector<uint32_t> words = {1, 2, 0x80000000u};
    EXPECT_EQ(sorted<uint32_t>({0x80000000u, 2, 1}, compare_gemport), words);
    EXPECT_EQ(sorted<uint32_t>({0x80000000u, 2, 1}, compare_port), words);
    EXPECT_EQ(sorted<int32_t>({5, -7, 0}, compare_int), (std::vector<int32_t>{-7, 0, 5}));
    const int32_t same = 3;
    EXPECT_EQ(compare_int(&same, &same), 0);
}

// Index 5 is shared (the first row, "srcdstip", answers) and 6 is missing.
TEST(TrunkModes, TagsOfTheIndices) {
    struct Case {
        int index;
        const char *tag;
    };
    for (const Case c : {Case{0, "srcmac"}, Case{2, "srcdstmac"}, Case{5, "srcdstip"},
                         Case{7, "label"}, Case{6, nullptr}, Case{-1, nullptr}, Case{8, nullptr}}) {
        EXPECT_STREQ(trunk_index_to_user_tag(c.index), c.tag) << c.index;
    }
}

// Words in network byte order, as struct in_addr and struct in6_addr hold them.
TEST(CheckGeneralIp, ClassifiesAddressesInNetworkByteOrder) {
    struct Case {
        const char *text;
        int result;
    };
    for (const Case c :
         {Case{"0.0.0.0", -1}, Case{"255.255.255.255", -2}, Case{"224.0.0.1", -3},
          Case{"239.255.255.255", -3}, Case{"240.0.0.1", -4}, Case{"255.255.255.254", -4},
          Case{"223.255.255.255", 0}, Case{"0.0.0.1", 0}, Case{"::", -1}, Case{"::1", -2},
          Case{"::2", 0}, Case{"::1:0:0:1", 0}, Case{"1::1", 0}, Case{"0:0:0:1::1", 0}}) {
        const bool v6 = std::strchr(c.text, ':') != nullptr;
        uint32_t words[4] = {};
        ASSERT_EQ(inet_pton(v6 ? AF_INET6 : AF_INET, c.text, words), 1);
        EXPECT_EQ(v6 ? check_general_ipv6(words) : check_general_ip(words), c.result) << c.text;
    }
}

} // namespace
