// Lengths, headers and octet strings: the short form's edge at 127/128, the
// counts one short of a TLV beside the exact ones, and null arguments.
#include "gvutil/ber.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes with_content(Bytes head, std::size_t length, std::uint8_t fill = 'x') {
    head.insert(head.end(), length, fill);
    return head;
}

// The first octet is a plain count whatever its top bit says.
TEST(ParseLength, EveryOctetIsACount) {
    for (const std::uint8_t octet : {0x00, 0x01, 0x7f, 0x80, 0x81, 0xff}) {
        const Bytes in{octet, 0x01};
        std::uint32_t length = 12345;
        EXPECT_EQ(snmp_parse_length(in.data(), &length), in.data() + 1);
        EXPECT_EQ(length, octet);
    }
}

TEST(BuildLength, ShortFormOrNothing) {
    struct Case {
        std::int32_t len, room;
        int written; // -1: refused
        std::int32_t remaining;
    };
    for (const Case c :
         {Case{0, 1, 1, 0}, Case{127, 1, 1, 0}, Case{127, 0, -1, 0}, Case{128, 5, 0, 5},
          Case{128, 0, 0, 0}, Case{255, -3, 0, -3}, Case{INT32_MAX, 1, 0, 1}, Case{-1, 5, -1, 5}}) {
        Bytes out{0xee, 0xee};
        std::int32_t remaining = c.room;
        const std::uint8_t *end = snmp_build_length(out.data(), &remaining, c.len);
        EXPECT_EQ(end, c.written < 0 ? nullptr : out.data() + c.written) << c.len << " " << c.room;
        EXPECT_EQ(remaining, c.remaining) << c.len << " " << c.room;
        EXPECT_EQ(out[0], c.written == 1 ? c.len : 0xee) << c.len << " " << c.room;
    }
}

TEST(ParseHeader, TheContentMustFitAndBecomesTheCount) {
    struct Case {
        Bytes in;
        std::int32_t room;
        bool accepted;
        std::int32_t remaining;
        std::uint8_t type;
    };
    const Case cases[] = {
        {{0x30, 0x00}, 2, true, 0, 0x30},
        {{0x30, 0x00}, 1, false, 1, 0x30},
        {{0x30, 0x00}, 0, false, 0, 0x00},
        {with_content({0x04, 0x03}, 3), 5, true, 3, 0x04},
        {with_content({0x04, 0x03}, 3), 9, true, 3, 0x04},
        {with_content({0x04, 0x03}, 3), 4, false, 4, 0x04},
        {with_content({0x04, 0x7f}, 127), 129, true, 127, 0x04},
        {with_content({0x04, 0x7f}, 127), 128, false, 128, 0x04},
        // 0x80 is not the long form: 128 content octets follow at once.
        {with_content({0x04, 0x80}, 128), 130, true, 128, 0x04},
        {with_content({0x04, 0x80}, 128), 129, false, 129, 0x04},
    };
    for (const Case &c : cases) {
        std::int32_t remaining = c.room;
        std::uint8_t type = 0;
        EXPECT_EQ(snmp_parse_header(c.in.data(), &remaining, &type),
                  c.accepted ? c.in.data() + 2 : nullptr)
            << c.in.size() << " in " << c.room;
        EXPECT_EQ(remaining, c.remaining) << c.in.size() << " in " << c.room;
        EXPECT_EQ(type, c.type) << c.in.size() << " in " << c.room;
    }
}

TEST(BuildHeader, TypeThenShortLength) {
    struct Case {
        std::int32_t len, room;
        Bytes written;
        bool accepted;
        std::int32_t remaining;
    };
    const Case cases[] = {
        {5, 2, {0x30, 0x05}, true, 0},   {5, 1, {0x30, 0xee}, false, 0},
        {5, 0, {0xee, 0xee}, false, 0},  {127, 3, {0x30, 0x7f}, true, 1},
        {128, 3, {0x30, 0xee}, true, 2}, {128, 1, {0x30, 0xee}, true, 0},
    };
    for (const Case &c : cases) {
        Bytes out{0xee, 0xee};
        std::int32_t remaining = c.room;
        const std::uint8_t *end = snmp_build_header(out.data(), &remaining, 0x30, c.len);
        const std::uint8_t *expected_end = out.data() + (c.len > 127 ? 1 : 2);
        EXPECT_EQ(end, c.accepted ? expected_end : nullptr) << c.len << " in " << c.room;
        EXPECT_EQ(out, c.written) << c.len << " in " << c.room;
        EXPECT_EQ(remaining, c.remaining) << c.len << " in " << c.room;
    }
}

// From 128 octets the header goes out without a length octet and the
// content follows the type at once.
TEST(BuildString, HeaderAndContentInTheRoomGiven) {
    struct Case {
        std::size_t length;
        std::int32_t room;
        bool accepted;
    };
    for (const Case c : {Case{0, 2, true}, Case{0, 1, false}, Case{3, 5, true}, Case{3, 4, false},
                         Case{127, 129, true}, Case{127, 128, false}, Case{128, 129, true},
                         Case{128, 128, false}, Case{200, 201, true}}) {
        const Bytes src(c.length, 'a');
        Bytes out(c.length + 3, 0xee);
        std::int32_t remaining = c.room;
        const std::uint8_t *end = snmp_build_string(out.data(), &remaining, 0x04, src.data(),
                                                    static_cast<std::int32_t>(c.length));
        if (!c.accepted) {
            EXPECT_EQ(end, nullptr) << c.length << " in " << c.room;
            continue;
        }
        Bytes expected{0x04};
        if (c.length < 128) {
            expected.push_back(static_cast<std::uint8_t>(c.length));
        }
        expected = with_content(expected, c.length, 'a');
        EXPECT_EQ(end, out.data() + expected.size()) << c.length;
        EXPECT_EQ(remaining, 0) << c.length;
        EXPECT_EQ(Bytes(out.begin(), out.begin() + static_cast<long>(expected.size() + 1)),
                  with_content(expected, 1, 0xee))
            << c.length;
    }
}

TEST(ParseString, CopiesWithoutATerminator) {
    struct Case {
        std::size_t length;
        std::int32_t room, out_size;
        bool accepted;
    };
    for (const Case c :
         {Case{3, 5, 3, true}, Case{3, 4, 3, false}, Case{3, 5, 2, false}, Case{3, 9, 64, true},
          Case{0, 2, 0, true}, Case{0, 1, 0, false}, Case{127, 129, 127, true},
          Case{127, 129, 126, false}, Case{127, 128, 127, false}, Case{0, 0, 8, false}}) {
        const Bytes in = with_content({0x04, static_cast<std::uint8_t>(c.length)}, c.length, 'c');
        Bytes out(128, 0xee);
        std::int32_t remaining = c.room;
        std::int32_t out_size = c.out_size;
        std::uint8_t type = 0;
        const std::uint8_t *end =
            snmp_parse_string(in.data(), &remaining, &type, out.data(), &out_size);
        const auto held = static_cast<long>(c.length);
        // The type octet is taken before the count is looked at, as the
        // integer parser does: even with nothing remaining.
        EXPECT_EQ(type, 0x04);
        if (!c.accepted) {
            EXPECT_EQ(end, nullptr) << c.length << " in " << c.room << " to " << c.out_size;
            EXPECT_EQ(remaining, c.room);
            EXPECT_EQ(out_size, c.out_size);
            continue;
        }
        EXPECT_EQ(end, in.data() + 2 + held);
        EXPECT_EQ(remaining, c.room - 2 - held);
        EXPECT_EQ(out_size, held);
        EXPECT_EQ(Bytes(out.begin(), out.begin() + held), Bytes(c.length, 'c'));
        if (c.length < out.size()) {
            EXPECT_EQ(out[c.length], 0xee) << c.length;
        }
    }
}

TEST(NullArguments, AnswerNullAndTouchNothing) {
    std::uint8_t buffer[8] = {0x02, 0x01, 0x05};
    const std::uint8_t in[8] = {0x02, 0x01, 0x05};
    std::int32_t remaining = 8, value = 0, size = 8;
    std::uint32_t length = 0;
    std::uint8_t type = 0;
    EXPECT_EQ(snmp_parse_length(nullptr, &length), nullptr);
    EXPECT_EQ(snmp_parse_length(in, nullptr), nullptr);
    EXPECT_EQ(snmp_build_length(nullptr, &remaining, 1), nullptr);
    EXPECT_EQ(snmp_build_length(buffer, nullptr, 1), nullptr);
    EXPECT_EQ(snmp_parse_header(nullptr, &remaining, &type), nullptr);
    EXPECT_EQ(snmp_parse_header(in, nullptr, &type), nullptr);
    EXPECT_EQ(snmp_parse_header(in, &remaining, nullptr), nullptr);
    EXPECT_EQ(snmp_build_header(nullptr, &remaining, 0x30, 1), nullptr);
    EXPECT_EQ(snmp_build_header(buffer, nullptr, 0x30, 1), nullptr);
    EXPECT_EQ(snmp_parse_int(nullptr, &remaining, &type, &value, 4), nullptr);
    EXPECT_EQ(snmp_parse_int(in, nullptr, &type, &value, 4), nullptr);
    EXPECT_EQ(snmp_parse_int(in, &remaining, nullptr, &value, 4), nullptr);
    EXPECT_EQ(snmp_parse_int(in, &remaining, &type, nullptr, 4), nullptr);
    EXPECT_EQ(snmp_build_int(nullptr, &remaining, 0x02, &value, 4), nullptr);
    EXPECT_EQ(snmp_build_int(buffer, nullptr, 0x02, &value, 4), nullptr);
    EXPECT_EQ(snmp_build_int(buffer, &remaining, 0x02, nullptr, 4), nullptr);
    EXPECT_EQ(snmp_build_string(nullptr, &remaining, 0x04, in, 1), nullptr);
    EXPECT_EQ(snmp_build_string(buffer, nullptr, 0x04, in, 1), nullptr);
    EXPECT_EQ(snmp_build_string(buffer, &remaining, 0x04, nullptr, 1), nullptr);
    EXPECT_EQ(snmp_parse_string(nullptr, &remaining, &type, buffer, &size), nullptr);
    EXPECT_EQ(snmp_parse_string(in, nullptr, &type, buffer, &size), nullptr);
    EXPECT_EQ(snmp_parse_string(in, &remaining, nullptr, buffer, &size), nullptr);
    EXPECT_EQ(snmp_parse_string(in, &remaining, &type, nullptr, &size), nullptr);
    EXPECT_EQ(snmp_parse_string(in, &remaining, &type, buffer, nullptr), nullptr);
    EXPECT_EQ(remaining, 8);
    EXPECT_EQ(type, 0);
    EXPECT_EQ(length, 0u);
    EXPECT_EQ(buffer[0], 0x02);

    // An empty content needs no source.
    std::int32_t room = 2;
    EXPECT_EQ(snmp_build_string(buffer, &room, 0x04, nullptr, 0), buffer + 2);
    EXPECT_EQ(buffer[1], 0x00);
}

} // namespace
