// One typed CLI argument checked: integers, IPv4 addresses and prefixes, MAC
// addresses, and what the operator is told.
#include "gvutil/settext.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

namespace {

using gvtest::CliCapture;

struct Checked {
    int result;
    std::string printed;
};

Checked check(int kind, const char *text, const void *min, const void *max, void *out,
              const char *message = nullptr) {
    CliCapture capture;
    const int result = GVH_CHECK_ARG(capture.ctx(), kind, text, min, max, out, message);
    return {result, capture.text()};
}

TEST(CheckArg, IntegersAgainstTheirBounds) {
    const int32_t low = 1;
    const int32_t high = 100;
    struct Case {
        const char *text;
        int result;
        int32_t value;
    };
    const Case cases[] = {{"12", 0, 12},  {"1", 0, 1},   {"100", 0, 100}, {"101", -1, 0},
                          {"0", -1, 0},   {"1x", -1, 0}, {"x", -1, 0},    {"", -1, 0},
                          {"--1", -1, 0}, {"-5", -1, 0}, {"+5", -1, 0}};
    for (const Case &c : cases) {
        int32_t value = 0;
        const Checked got = check(GVH_ARG_INT, c.text, &low, &high, &value);
        EXPECT_EQ(got.result, c.result) << c.text;
        EXPECT_EQ(value, c.value) << c.text;
        EXPECT_EQ(got.printed, c.result == 0 ? "" : "% Invalid value, valid range is <1-100>\n")
            << c.text;
    }
}

TEST(CheckArg, BoundsCompareUnsigned) {
    // A negative value passes only an upper bound read as a large unsigned one.
    const int32_t zero = 0;
    const int32_t all_ones = -1;
    int32_t value = 0;
    EXPECT_EQ(check(GVH_ARG_INT, "-5", &zero, &all_ones, &value).result, 0);
    EXPECT_EQ(value, -5);
    EXPECT_EQ(check(GVH_ARG_INT, "", &zero, &all_ones, &value).result, 0); // reads as 0
    const uint32_t top = 4294967295u;
    const Checked got = check(GVH_ARG_UINT, "-1", &zero, &top, &value);
    EXPECT_EQ(got.result, -1);
    EXPECT_EQ(got.printed, "% Invalid value, valid range is <0--1>\n"); // "%d" of the bound
    char text[16];
    EXPECT_EQ(uint2str(&top, text), 2);
    EXPECT_EQ(check(GVH_ARG_UINT, "99999999999", &zero, &top, &value).result, 0);
    EXPECT_EQ(value, 2147483647); // read as the chassis' C library reads it
}

TEST(CheckArg, MessagesAndQuietChecks) {
    const int32_t low = 1;
    const int32_t high = 10;
    EXPECT_EQ(check(GVH_ARG_IP_ADDR, "1.2.3", nullptr, nullptr, nullptr).printed,
              "% Invalid IP address\n");
    EXPECT_EQ(check(GVH_ARG_IP_PREFIX, "1.2.3.4/0", nullptr, nullptr, nullptr).printed,
              "% Invalid IP prefix\n");
    EXPECT_EQ(check(GVH_ARG_MAC_ADDR, "zz", nullptr, nullptr, nullptr).printed,
              "% Invalid MAC address\n");
    EXPECT_EQ(check(GVH_ARG_INT, "11", &low, &high, nullptr, "Bad timer").printed,
              "% Bad timer, valid range is <1-10>\n");
    EXPECT_EQ(check(GVH_ARG_IP_ADDR, "x", nullptr, nullptr, nullptr, "Bad gateway").printed,
              "% Bad gateway\n");
    // Without bounds an integer check fails, and no range can be shown.
    EXPECT_EQ(check(GVH_ARG_INT, "5", nullptr, &high, nullptr).printed, "% Invalid value\n");
    const Checked unknown = check(5, "5", &low, &high, nullptr);
    EXPECT_EQ(unknown.result, -1);
    EXPECT_EQ(unknown.printed, "");
    EXPECT_EQ(GVH_CHECK_ARG(nullptr, GVH_ARG_INT, "11", &low, &high, nullptr, nullptr), -1);
    EXPECT_EQ(check(-1, "5", &low, &high, nullptr).result, -1);
}

TEST(CheckArg, Ipv4Addresses) {
    struct Case {
        const char *text;
        int result;
        uint32_t address;
    };
    const Case cases[] = {
        {"10.1.2.3", 0, 0x0A010203u},
        {"255.255.255.255", 0, 0xFFFFFFFFu},
        {"10.1.2.3junk", 0, 0x0A010203u}, // text after four octets is not read
        {"10.1.2", -1, 0},
        {"10.1.2.256", -1, 0},
        {"-1.0.0.0", -1, 0},
        {"10..2.3", -1, 0},
    };
    for (const Case &c : cases) {
        uint32_t address = 0;
        EXPECT_EQ(check(GVH_ARG_IP_ADDR, c.text, nullptr, nullptr, &address).result, c.result)
            << c.text;
        EXPECT_EQ(address, c.address) << c.text;
    }
}

TEST(CheckArg, Ipv4Prefixes) {
    struct Case {
        const char *text;
        int result;
        gvh_ip_prefix prefix;
    };
    const Case cases[] = {
        {"10.1.1.0/24", 0, {0x0A010100u, 0xFFFFFF00u}},
        {"10.1.1.1/24", -1, {0x0A010100u, 0xFFFFFF00u}}, // host bits: refused, still written
        {"10.1.1.0", 0, {0x0A010100u, 0xFFFFFFFFu}},     // an address alone is /32
        {"10.1.1.0/", 0, {0x0A010100u, 0xFFFFFFFFu}},
        {"10.1.1.0/99999999999", 0, {0x0A010100u, 0xFFFFFFFFu}}, // length not read
        {"128.0.0.0/1", 0, {0x80000000u, 0x80000000u}},
        {"10.1.1.0/0", -1, {0, 0}},
        {"10.1.1.0/33", -1, {0, 0}},
        {"300.1.1.0/8", -1, {0, 0}},
        {"10.1/8", -1, {0, 0}},
    };
    for (const Case &c : cases) {
        gvh_ip_prefix prefix{0, 0};
        EXPECT_EQ(check(GVH_ARG_IP_PREFIX, c.text, nullptr, nullptr, &prefix).result, c.result)
            << c.text;
        EXPECT_EQ(prefix.address, c.prefix.address) << c.text;
        EXPECT_EQ(prefix.netmask, c.prefix.netmask) << c.text;
    }
}

TEST(CheckArg, MacAddresses) {
    using Mac = std::array<uint8_t, 6>;
    struct Case {
        const char *text;
        int result;
        Mac mac;
    };
    const Case cases[] = {
        {"00:11:22:aa:BB:ff", 0, {0x00, 0x11, 0x22, 0xAA, 0xBB, 0xFF}},
        {"01:80:c2:00:00:00", 0, {0x01, 0x80, 0xC2, 0, 0, 0}}, // other group addresses pass
        {"01:00:5e:00:00:01", -1, {0x01, 0x00, 0x5E, 0, 0, 1}},
        {"00:00:00:00:00:00", -1, {}},
        {"ff:ff:ff:ff:ff:ff", -1, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
        {"1:2:3:4:5:6", -1, {}}, // each byte takes two digits
        {"00-11-22-33-44-55", -1, {}},
        {"00:11:22:33:44", -1, {}},
        {"00:11:22:33:44:5", -1, {}},
        {"0011.2233.4455", -1, {}},
    };
    for (const Case &c : cases) {
        Mac mac{};
        EXPECT_EQ(check(GVH_ARG_MAC_ADDR, c.text, nullptr, nullptr, mac.data()).result, c.result)
            << c.text;
        EXPECT_EQ(mac, c.mac) << c.text;
        // Refused addresses are refused without an output too.
        EXPECT_EQ(check(GVH_ARG_MAC_ADDR, c.text, nullptr, nullptr, nullptr).result, c.result)
            << c.text;
    }
}

TEST(NameChecks, CharacterClasses) {
    struct Case {
        const char *text;
        int valid_name;
        int alphanum;
        int numeric;
    };
    const Case cases[] = {
        {"olt-1.a_b", 1, 0, 0}, {"abc123", 1, 1, 0}, {"123", 1, 1, 1},
        {"", 1, 1, 1},          {"a b", 0, 0, 0},    {"a/b", 0, 0, 0},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(check_valid_name(c.text, static_cast<int>(std::string(c.text).size())),
                  c.valid_name)
            << c.text;
        EXPECT_EQ(check_alphanum(c.text), c.alphanum) << c.text;
        EXPECT_EQ(check_numeric(c.text), c.numeric) << c.text;
    }
    EXPECT_EQ(check_valid_name("ab cd", 2), 1); // only the first len characters
    EXPECT_EQ(check_valid_name("a", -3), 1);
    EXPECT_EQ(check_valid_name("a", 5), 0); // the terminator is no name character
}

} // namespace
