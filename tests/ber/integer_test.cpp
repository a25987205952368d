// Integers: the byte form of each octet count at its edges, both ways, and
// the counts and sizes refused.
#include "gvutil/ber.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Form {
    std::int32_t value;
    Bytes content;
};

// Each octet count's last value beside the next count's first, both signs.
const Form kForms[] = {
    {0, {0x00}},
    {1, {0x01}},
    {127, {0x7f}},
    {128, {0x00, 0x80}},
    {-1, {0xff}},
    {-128, {0x80}},
    {-129, {0xff, 0x7f}},
    {255, {0x00, 0xff}},
    {256, {0x01, 0x00}},
    {0x7fff, {0x7f, 0xff}},
    {0x8000, {0x00, 0x80, 0x00}},
    {-0x8000, {0x80, 0x00}},
    {-0x8001, {0xff, 0x7f, 0xff}},
    {0x7fffff, {0x7f, 0xff, 0xff}},
    {0x800000, {0x00, 0x80, 0x00, 0x00}},
    {-0x800000, {0x80, 0x00, 0x00}},
    {-0x800001, {0xff, 0x7f, 0xff, 0xff}},
    {0x12345678, {0x12, 0x34, 0x56, 0x78}},
    {INT32_MAX, {0x7f, 0xff, 0xff, 0xff}},
    {INT32_MIN, {0x80, 0x00, 0x00, 0x00}},
};

Bytes tlv(std::uint8_t type, const Bytes &content) {
    Bytes out(2 + content.size());
    out[0] = type;
    out[1] = static_cast<std::uint8_t>(content.size());
    std::copy(content.begin(), content.end(), out.begin() + 2);
    return out;
}

TEST(BuildInt, FewestOctetsInExactlyTheRoomTheyNeed) {
    for (const Form &form : kForms) {
        const Bytes expected = tlv(0x02, form.content);
        const auto room = static_cast<std::int32_t>(expected.size());
        Bytes out(expected.size() + 1, 0xee);
        std::int32_t remaining = room;
        EXPECT_EQ(snmp_build_int(out.data(), &remaining, 0x02, &form.value, 4), out.data() + room)
            << form.value;
        EXPECT_EQ(remaining, 0) << form.value;
        EXPECT_EQ(Bytes(out.begin(), out.begin() + room), expected) << form.value;
        EXPECT_EQ(out.back(), 0xee) << form.value;

        remaining = room - 1;
        EXPECT_EQ(snmp_build_int(out.data(), &remaining, 0x02, &form.value, 4), nullptr)
            << form.value;
    }
}

TEST(ParseInt, SignExtendsTheContentOctets) {
    for (const Form &form : kForms) {
        // A trailing octet of the other sign shows nothing past the TLV is read.
        Bytes in = tlv(0x02, form.content);
        const auto room = static_cast<std::int32_t>(in.size());
        in.push_back(form.value < 0 ? 0x00 : 0xff);
        std::int32_t remaining = room + 3;
        std::int32_t value = 99;
        std::uint8_t type = 0;
        EXPECT_EQ(snmp_parse_int(in.data(), &remaining, &type, &value, 4), in.data() + room)
            << form.value;
        EXPECT_EQ(value, form.value);
        EXPECT_EQ(type, 0x02);
        EXPECT_EQ(remaining, 3) << form.value;

        remaining = room - 1;
        value = 99;
        EXPECT_EQ(snmp_parse_int(in.data(), &remaining, &type, &value, 4), nullptr) << form.value;
        EXPECT_EQ(remaining, room - 1);
        EXPECT_EQ(value, 99);
    }
}

// Longer forms than needed, the four-octet limit, the type octet taken
// before the count is looked at (nothing remaining included), and an empty
// integer whose sign is the octet after its header (only the header is
// consumed).
TEST(ParseInt, LongFormsLimitsAndOddities) {
    struct Case {
        Bytes in;
        std::int32_t room;
        int consumed; // -1: refused
        std::int32_t value;
    };
    const Case cases[] = {
        {{0x02, 0x04, 0x00, 0x00, 0x00, 0x01}, 6, 6, 1},
        {{0x02, 0x03, 0xff, 0xff, 0xff}, 5, 5, -1},
        {{0x02, 0x05, 0x00, 0x00, 0x00, 0x00, 0x01}, 7, -1, 0},
        {{0x41, 0x02, 0x01, 0x00}, 4, 4, 256},
        {{0x02, 0x01, 0x05}, 0, -1, 0},
        {{0x02, 0x01, 0x05}, 1, -1, 0},
        {{0x02, 0x01, 0x05}, -1, -1, 0},
        {{0x02, 0x00, 0x7f}, 3, 2, 0},
        {{0x02, 0x00, 0x80}, 3, 2, -1},
        {{0x02, 0x00, 0xff}, 2, 2, -1},
    };
    for (const Case &c : cases) {
        std::int32_t remaining = c.room;
        std::int32_t value = 99;
        std::uint8_t type = 0;
        const std::uint8_t *end = snmp_parse_int(c.in.data(), &remaining, &type, &value, 4);
        const bool accepted = c.consumed >= 0;
        EXPECT_EQ(end, accepted ? c.in.data() + c.consumed : nullptr)
            << c.in.size() << " in " << c.room;
        EXPECT_EQ(value, accepted ? c.value : 99) << c.in.size() << " in " << c.room;
        EXPECT_EQ(remaining, c.room - (accepted ? c.consumed : 0))
            << c.in.size() << " in " << c.room;
        EXPECT_EQ(type, c.in[0]);
    }
}

TEST(IntSize, OnlyFourIsAcceptedAndOthersTouchNothing) {
    const Bytes in{0x02, 0x01, 0x05};
    for (const int size : {0, 3, 4, 5, 8, -4}) {
        const bool accepted = size == 4;
        std::int32_t remaining = 3;
        std::int32_t value = 99;
        std::uint8_t type = 0;
        EXPECT_EQ(snmp_parse_int(in.data(), &remaining, &type, &value, size) != nullptr, accepted)
            << size;
        EXPECT_EQ(type, accepted ? 0x02 : 0x00) << size;

        Bytes out(3, 0xee);
        remaining = 3;
        const std::int32_t five = 5;
        EXPECT_EQ(snmp_build_int(out.data(), &remaining, 0x02, &five, size) != nullptr, accepted)
            << size;
        EXPECT_EQ(out, accepted ? in : Bytes(3, 0xee)) << size;
        EXPECT_EQ(remaining, accepted ? 0 : 3) << size;
    }
}

// Each step of the build takes its octets from the count as it goes: a
// refusal for the content leaves the header written and counted.
TEST(BuildInt, RefusalAfterTheHeaderKeepsWhatItWrote) {
    struct Case {
        std::int32_t room;
        Bytes written;
        std::int32_t remaining;
    };
    const std::int32_t value = 0x8000; // three content octets
    for (const Case &c : {Case{0, {0xee, 0xee, 0xee}, 0}, Case{1, {0x02, 0xee, 0xee}, 0},
                          Case{2, {0x02, 0x03, 0xee}, 0}, Case{4, {0x02, 0x03, 0xee}, 2}}) {
        Bytes out(3, 0xee);
        std::int32_t remaining = c.room;
        EXPECT_EQ(snmp_build_int(out.data(), &remaining, 0x02, &value, 4), nullptr) << c.room;
        EXPECT_EQ(Bytes(out.begin(), out.begin() + 3), c.written) << c.room;
        EXPECT_EQ(remaining, c.remaining) << c.room;
    }
}

} // namespace
