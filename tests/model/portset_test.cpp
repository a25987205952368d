// Bit positions of port bitmaps and plain bit arrays.
#include "gvutil/model.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace {

TEST(Portset, PortsMapToWordAndBitFromTheLeastSignificantEnd) {
    struct Case {
        int port, word;
        uint32_t mask;
    };
    for (const Case c : {Case{1, 0, 1u}, Case{2, 0, 2u}, Case{32, 0, 0x80000000u}, Case{33, 1, 1u},
                         Case{64, 1, 0x80000000u}, Case{1536, 47, 0x80000000u}}) {
        portset_t ps;
        ps_zero(&ps);
        ps_set(&ps, c.port);
        for (int w = 0; w < GV_PORTSET_WORDS; ++w) {
            EXPECT_EQ(ps.bits[w], w == c.word ? c.mask : 0u) << "port " << c.port << " word " << w;
        }
        EXPECT_EQ(ps_isset(&ps, c.port), 1);
        EXPECT_EQ(ps_isset(&ps, c.port == 1 ? 2 : c.port - 1), 0);
        ps_clear(&ps, c.port);
        EXPECT_EQ(ps.bits[c.word], 0u);
    }
}

TEST(Portset, ZeroOrAndClearKeepOtherPorts) {
    portset_t a;
    portset_t b;
    std::memset(&a, 0xAB, sizeof a);
    EXPECT_EQ(ps_zero(&a), &a);
    EXPECT_EQ(a.bits[47], 0u);
    ps_zero(&b);
    ps_set(&a, 3);
    ps_set(&b, 40);
    ps_set(&b, 3);
    ps_or(&a, &b);
    EXPECT_EQ(ps_isset(&a, 3) + ps_isset(&a, 40), 2);
    ps_clear(&a, 3);
    EXPECT_EQ(ps_isset(&a, 40), 1);
    EXPECT_EQ(ps_isset(&a, 3), 0);
}

TEST(Portset, PortsOutsideTheBitmapAreIgnored) {
    std::array<portset_t, 3> guarded{};
    for (int port : {0, -5, 1537, 100000}) {
        ps_set(&guarded[1], port);
        EXPECT_EQ(ps_isset(&guarded[1], port), 0);
    }
    for (const auto &ps : guarded) {
        for (uint32_t word : ps.bits) {
            EXPECT_EQ(word, 0u);
        }
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
    set(words.data(), -1);
    EXPECT_EQ(chk(words.data(), -1), 0u);
    EXPECT_EQ(words[0], 0u);
}

} // namespace
