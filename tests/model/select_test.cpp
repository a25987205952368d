// Group selection, membership senses and comparators.
#include "gvutil/model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

TEST(SelectBrInfo, TakesOneGroupPerCallInListOrder) {
    std::vector<br_info_t> list = {{10, 1}, {11, 2}, {12, 1}};
    uint16_t out[3] = {};
    br_info_t group{};
    ASSERT_EQ(select_br_info(list.data(), 3, out, &group), 2);
    EXPECT_EQ(out[0], 10);
    EXPECT_EQ(out[1], 12);
    EXPECT_EQ(group.key, 1);
    ASSERT_EQ(select_br_info(list.data(), 3, out, &group), 1);
    EXPECT_EQ(out[0], 11);
    EXPECT_EQ(group.key, 2);
    EXPECT_EQ(select_br_info(list.data(), 3, out, &group), 0);
    for (const auto &r : list) {
        EXPECT_EQ(r.br_id, GV_BR_INFO_TAKEN);
    }
}

TEST(SelectPortInfo, ReportsTheFirstRecordsSecondaryValue) {
    std::vector<port_info_t> list = {{7, -3, 500}, {254, 9, 1}, {2, -3, 600}};
    uint32_t out[3] = {};
    port_info_t group{};
    ASSERT_EQ(select_port_info(list.data(), 3, out, &group), 2);
    EXPECT_EQ(out[0], 7u);
    EXPECT_EQ(out[1], 2u);
    EXPECT_EQ(group.key, -3);
    EXPECT_EQ(group.value, 500); // the secondary value does not take part in the match
    ASSERT_EQ(select_port_info(list.data(), 3, out, &group), 1);
    EXPECT_EQ(out[0], 254u); // below 255 is a live port
    EXPECT_EQ(select_port_info(list.data(), 3, out, &group), 0);
}

TEST(SelectPort, MatchesOnTheKeyOnly) {
    // A taken record whose key matches is handed back again: callers never
    // mix taken and untaken records of one key.
    std::vector<port_info_t> list = {{255, 4, 0}, {1, 4, 0}, {255, 4, 0}};
    uint32_t out[3] = {};
    uint32_t key = 0;
    EXPECT_EQ(select_port(list.data(), 3, out, &key), 2);
    EXPECT_EQ(key, 4u);
    EXPECT_EQ(out[0], 1u);
    EXPECT_EQ(out[1], 255u);
}

TEST(Select, EmptyAndNegativeCountsYieldNothing) {
    port_info_t list[1] = {{1, 1, 1}};
    uint32_t out[1] = {};
    uint32_t key = 99;
    EXPECT_EQ(select_port(list, -1, out, &key), 0);
    EXPECT_EQ(select_port(list, 0, out, &key), 0);
    EXPECT_EQ(select_port(nullptr, 1, out, &key), 0);
    EXPECT_EQ(key, 99u);
    EXPECT_EQ(list[0].port, 1);
}

TEST(Membership, TheTwoTestsAnswerInOppositeSenses) {
    const uint32_t ports[] = {4, 8, 15};
    const int32_t ids[] = {4, 8, 15};
    EXPECT_EQ(is_port_set(ports, 3, 15), 1);
    EXPECT_EQ(is_port_set(ports, 2, 15), 0);
    EXPECT_EQ(id_in_list(ids, 3, 15), 0);
    EXPECT_EQ(id_in_list(ids, 2, 15), 1);
    EXPECT_EQ(id_in_list(nullptr, 5, 7), 1);
    EXPECT_EQ(id_in_list(ids, 0, 4), 1);
}

TEST(Comparators, SortAscendingInEachElementWidth) {
    std::vector<uint16_t> br = {4094, 1, 300};
    std::qsort(br.data(), br.size(), sizeof br[0], compare_br_id);
    EXPECT_EQ(br, (std::vector<uint16_t>{1, 300, 4094}));
    std::vector<uint8_t> onu = {128, 3, 255};
    std::qsort(onu.data(), onu.size(), sizeof onu[0], compare_onuid);
    EXPECT_EQ(onu, (std::vector<uint8_t>{3, 128, 255}));
    std::vector<uint32_t> gem = {0x80000000u, 2, 1};
    std::qsort(gem.data(), gem.size(), sizeof gem[0], compare_gemport);
    EXPECT_EQ(gem, (std::vector<uint32_t>{1, 2, 0x80000000u})); // unsigned, not signed
    std::vector<uint32_t> ports = gem;
    std::qsort(ports.data(), ports.size(), sizeof ports[0], compare_port);
    EXPECT_EQ(ports, gem);
    std::vector<int32_t> ints = {5, -7, 0};
    std::qsort(ints.data(), ints.size(), sizeof ints[0], compare_int);
    EXPECT_EQ(ints, (std::vector<int32_t>{-7, 0, 5}));
    const int32_t a = 3;
    EXPECT_EQ(compare_int(&a, &a), 0);
}

TEST(TrunkModes, IndexFiveIsSharedAndSixIsMissing) {
    struct Case {
        int index;
        const char *tag;
    };
    for (const Case c :
         {Case{0, "srcmac"}, Case{1, "dstmac"}, Case{2, "srcdstmac"}, Case{3, "srcip"},
          Case{4, "dstip"}, Case{5, "srcdstip"}, Case{7, "label"}}) {
        EXPECT_STREQ(trunk_index_to_user_tag(c.index), c.tag) << c.index;
    }
    for (int missing : {6, -1, 8}) {
        EXPECT_EQ(trunk_index_to_user_tag(missing), nullptr) << missing;
    }
}

} // namespace
