// The codec against net-snmp's own asn1 codec: each decodes what the other
// encodes, over the 32-bit edges, every content length under 128 and a
// seeded random set, and the encodings agree octet for octet. Where the two
// part (long forms, empty and oversized integers) the rows say how.
#include "gvutil/ber.h"

// clang-format off
#include <net-snmp/net-snmp-config.h>
#include <net-snmp/library/asn1.h>
// clang-format on

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <optional>
#include <random>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t kSeed = 0x6776b3e5;
constexpr int kRandomCount = 100000;
constexpr std::size_t kRoom = 160;
constexpr std::uint8_t kCounter = 0x41;

// What a build wrote, from its start to the cursor it answered.
Bytes written(const std::uint8_t *begin, const std::uint8_t *end) {
    return end == nullptr ? Bytes{} : Bytes(begin, end);
}

// ---- gvutil ---------------------------------------------------------------

Bytes gv_build_int(std::int32_t value) {
    std::uint8_t out[kRoom];
    std::int32_t remaining = kRoom;
    const std::uint8_t *end = snmp_build_int(out, &remaining, ASN_INTEGER, &value, 4);
    return written(out, end);
}

std::optional<std::int32_t> gv_parse_int(const Bytes &in) {
    auto remaining = static_cast<std::int32_t>(in.size());
    std::uint8_t type = 0;
    std::int32_t value = 0;
    const std::uint8_t *end = snmp_parse_int(in.data(), &remaining, &type, &value, 4);
    if (end != in.data() + in.size() || remaining != 0 || type != ASN_INTEGER) {
        return std::nullopt;
    }
    return value;
}

Bytes gv_build_string(const Bytes &content) {
    std::uint8_t out[kRoom + 128];
    std::int32_t remaining = sizeof out;
    const std::uint8_t *end = snmp_build_string(out, &remaining, ASN_OCTET_STR, content.data(),
                                                static_cast<std::int32_t>(content.size()));
    return written(out, end);
}

std::optional<Bytes> gv_parse_string(const Bytes &in) {
    auto remaining = static_cast<std::int32_t>(in.size());
    std::uint8_t type = 0;
    std::uint8_t out[kRoom];
    std::int32_t out_size = sizeof out;
    const std::uint8_t *end = snmp_parse_string(in.data(), &remaining, &type, out, &out_size);
    if (end != in.data() + in.size() || remaining != 0 || type != ASN_OCTET_STR) {
        return std::nullopt;
    }
    return Bytes(out, out + out_size);
}

// ---- net-snmp: long integers, size_t counts, non-const cursors -----------

Bytes peer_build_int(std::int32_t value) {
    u_char out[kRoom];
    std::size_t remaining = kRoom;
    const long wide = value;
    const u_char *end = asn_build_int(out, &remaining, ASN_INTEGER, &wide, sizeof wide);
    return written(out, end);
}

std::optional<long> peer_parse_int(Bytes in) {
    std::size_t remaining = in.size();
    u_char type = 0;
    long value = 0;
    const u_char *end = asn_parse_int(in.data(), &remaining, &type, &value, sizeof value);
    if (end != in.data() + in.size() || remaining != 0) {
        return std::nullopt;
    }
    return value;
}

Bytes peer_build_string(Bytes content) {
    u_char out[kRoom + 128];
    std::size_t remaining = sizeof out;
    const u_char *end =
        asn_build_string(out, &remaining, ASN_OCTET_STR, content.data(), content.size());
    return written(out, end);
}

std::optional<Bytes> peer_parse_string(Bytes in) {
    std::size_t remaining = in.size();
    u_char type = 0;
    u_char out[kRoom];
    std::size_t out_size = sizeof out;
    const u_char *end = asn_parse_string(in.data(), &remaining, &type, out, &out_size);
    if (end != in.data() + in.size() || remaining != 0) {
        return std::nullopt;
    }
    return Bytes(out, out + out_size);
}

// Each agrees with the other on value and octets; a message names the value.
void expect_same_int(std::int32_t value) {
    const Bytes ours = gv_build_int(value);
    const Bytes theirs = peer_build_int(value);
    ASSERT_FALSE(ours.empty()) << value;
    EXPECT_EQ(ours, theirs) << value;
    EXPECT_EQ(peer_parse_int(ours), std::optional<long>(value)) << value;
    EXPECT_EQ(gv_parse_int(theirs), std::optional<std::int32_t>(value)) << value;
}

void expect_same_string(const Bytes &content) {
    const Bytes ours = gv_build_string(content);
    const Bytes theirs = peer_build_string(content);
    ASSERT_EQ(ours.size(), content.size() + 2);
    EXPECT_EQ(ours, theirs) << content.size();
    EXPECT_EQ(peer_parse_string(ours), std::optional<Bytes>(content)) << content.size();
    EXPECT_EQ(gv_parse_string(theirs), std::optional<Bytes>(content)) << content.size();
}

TEST(NetSnmpPeer, IntegerEdges) {
    for (const std::int32_t value : {0,         1,         -1,           127,      128,
                                     -128,      -129,      255,          256,      0x7fff,
                                     0x8000,    -0x8000,   -0x8001,      0xffff,   0x7fffff,
                                     0x800000,  -0x800000, -0x800001,    0xffffff, INT32_MAX - 1,
                                     INT32_MAX, INT32_MIN, INT32_MIN + 1}) {
        expect_same_int(value);
    }
}

// Widths drawn evenly, so short and long forms are met alike.
TEST(NetSnmpPeer, RandomIntegers) {
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<int> width(1, 32);
    for (int i = 0; i < kRandomCount && !HasFailure(); ++i) {
        const int bits = width(random);
        const std::uint32_t raw = random() >> (32 - bits);
        const auto value = static_cast<std::int32_t>((raw & 1) != 0 ? ~raw : raw);
        expect_same_int(value);
    }
}

TEST(NetSnmpPeer, EveryStringLengthUnder128) {
    std::mt19937 random(kSeed + 1);
    for (std::size_t length = 0; length < 128; ++length) {
        Bytes content(length);
        for (auto &octet : content) {
            octet = static_cast<std::uint8_t>(random());
        }
        expect_same_string(content);
    }
}

TEST(NetSnmpPeer, RandomStrings) {
    std::mt19937 random(kSeed + 2);
    std::uniform_int_distribution<std::size_t> length(0, 127);
    for (int i = 0; i < kRandomCount && !HasFailure(); ++i) {
        Bytes content(length(random));
        for (auto &octet : content) {
            octet = static_cast<std::uint8_t>(random());
        }
        expect_same_string(content);
    }
}

TEST(NetSnmpPeer, HeadersOfEveryShortLength) {
    for (std::int32_t length = 0; length < 128; ++length) {
        Bytes ours(2 + static_cast<std::size_t>(length), 0x5a);
        std::int32_t remaining = 2;
        ASSERT_EQ(
            snmp_build_header(ours.data(), &remaining, ASN_SEQUENCE | ASN_CONSTRUCTOR, length),
            ours.data() + 2);
        Bytes theirs(ours.size(), 0x5a);
        std::size_t room = 2;
        ASSERT_EQ(asn_build_header(theirs.data(), &room, ASN_SEQUENCE | ASN_CONSTRUCTOR,
                                   static_cast<std::size_t>(length)),
                  theirs.data() + 2);
        EXPECT_EQ(ours, theirs) << length;

        std::size_t peer_remaining = ours.size();
        u_char peer_type = 0;
        EXPECT_EQ(asn_parse_header(ours.data(), &peer_remaining, &peer_type), ours.data() + 2);
        EXPECT_EQ(peer_remaining, static_cast<std::size_t>(length));

        auto gv_remaining = static_cast<std::int32_t>(theirs.size());
        std::uint8_t gv_type = 0;
        EXPECT_EQ(snmp_parse_header(theirs.data(), &gv_remaining, &gv_type), theirs.data() + 2);
        EXPECT_EQ(gv_remaining, length);
        EXPECT_EQ(gv_type, ASN_SEQUENCE | ASN_CONSTRUCTOR);
    }
}

// Where the two codecs part, each row shows both sides.
TEST(NetSnmpPeer, WhereTheCodecsPart) {
    // 128 octets: net-snmp sends the long form 81 80; ours sends no length.
    const Bytes content(128, 'q');
    const Bytes theirs = peer_build_string(content);
    ASSERT_EQ(Bytes(theirs.begin(), theirs.begin() + 3), (Bytes{0x04, 0x81, 0x80}));
    const Bytes ours = gv_build_string(content);
    ASSERT_EQ(ours.size(), 129u);
    EXPECT_EQ(ours[1], 'q');
    EXPECT_EQ(peer_parse_string(ours), std::nullopt);
    // The long form's first octet reads as a count of 0x81 from the 0x80 on.
    auto remaining = static_cast<std::int32_t>(theirs.size());
    std::uint8_t type = 0;
    EXPECT_EQ(snmp_parse_header(theirs.data(), &remaining, &type), theirs.data() + 2);
    EXPECT_EQ(remaining, 0x81);

    // Integers net-snmp refuses and ours reads: empty content, other types.
    EXPECT_EQ(peer_parse_int({0x02, 0x00}), std::nullopt);
    remaining = 3;
    std::int32_t value = 0;
    const Bytes empty{0x02, 0x00, 0x80};
    EXPECT_EQ(snmp_parse_int(empty.data(), &remaining, &type, &value, 4), empty.data() + 2);
    EXPECT_EQ(value, -1);
    EXPECT_EQ(peer_parse_int({kCounter, 0x01, 0x05}), std::nullopt);
    const Bytes counter{kCounter, 0x01, 0x05};
    remaining = 3;
    EXPECT_NE(snmp_parse_int(counter.data(), &remaining, &type, &value, 4), nullptr);
    EXPECT_EQ(value, 5);

    // Five octets fit net-snmp's long; ours stops at four.
    const Bytes five{0x02, 0x05, 0x00, 0x80, 0x00, 0x00, 0x00};
    EXPECT_EQ(peer_parse_int(five), std::optional<long>(0x80000000L));
    EXPECT_EQ(gv_parse_int(five), std::nullopt);
}

} // namespace
