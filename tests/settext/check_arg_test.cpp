// One typed CLI argument checked: integers, IPv4 addresses and prefixes, MAC
// addresses, and what the operator is told.
#include "gvutil/settext.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

constexpr int kInt = GVH_ARG_INT;
constexpr int kUint = GVH_ARG_UINT;
constexpr int kAddr = GVH_ARG_IP_ADDR;
constexpr int kPrefix = GVH_ARG_IP_PREFIX;
constexpr int kMac = GVH_ARG_MAC_ADDR;
const int32_t kOne = 1;
const int32_t kTen = 10;
const int32_t kZero = 0;
const int32_t kAllOnes = -1; // 4294967295 as an unsigned bound

struct Checked {
    int result;
    std::string printed;
};

Checked check(int kind, const char *text, const void *min, const void *max, void *out,
              const char *message = nullptr) {
    gvtest::CliCapture capture;
    const int result = GVH_CHECK_ARG(capture.ctx(), kind, text, min, max, out, message);
    return {result, capture.text()};
}

// Without both bounds an integer check fails and shows no range; bounds print
// with "%d", as the shell has always shown them.
TEST(CheckArg, WhatTheOperatorIsTold) {
    struct Case {
        int kind;
        const char *text;
        const void *min, *max;
        const char *message, *printed;
    };
    const Case cases[] = {
        {kInt, "11", &kOne, &kTen, nullptr, "% Invalid value, valid range is <1-10>\n"},
        {kInt, "11", &kOne, &kTen, "Bad timer", "% Bad timer, valid range is <1-10>\n"},
        {kInt, "5", nullptr, &kTen, nullptr, "% Invalid value\n"},
        {kUint, "5", &kOne, nullptr, nullptr, "% Invalid value\n"},
        {kUint, "-1", &kZero, &kAllOnes, nullptr, "% Invalid value, valid range is <0--1>\n"},
        {kAddr, "1.2.3", nullptr, nullptr, nullptr, "% Invalid IP address\n"},
        {kAddr, "x", nullptr, nullptr, "Bad gateway", "% Bad gateway\n"},
        {kPrefix, "1.2.3.4/0", nullptr, nullptr, nullptr, "% Invalid IP prefix\n"},
        {kMac, "zz", nullptr, nullptr, nullptr, "% Invalid MAC address\n"},
        {5, "5", &kOne, &kTen, nullptr, ""}, // no such kind
        {-1, "5", &kOne, &kTen, nullptr, ""}};
    for (const Case &c : cases) {
        const Checked got = check(c.kind, c.text, c.min, c.max, nullptr, c.message);
        EXPECT_EQ(got.result, -1) << c.text;
        EXPECT_EQ(got.printed, c.printed) << c.text;
    }
    EXPECT_EQ(GVH_CHECK_ARG(nullptr, kInt, "11", &kOne, &kTen, nullptr, nullptr), -1);
}

// Compared unsigned, a negative value passes only an upper bound that reads as
// a large unsigned one. Beyond 32 bits a number reads as the nearest int, as
// the chassis' C library reads it. Nothing is written for a refused value.
TEST(CheckArg, IntegersReadAsAtoiAndCompareUnsigned) {
    struct Case {
        int kind;
        const char *text;
        const int32_t *min, *max;
        int result;
        int32_t value;
    };
    for (const Case &c :
         {Case{kInt, "1", &kOne, &kTen, 0, 1}, Case{kInt, "10", &kOne, &kTen, 0, 10},
          Case{kInt, "0", &kOne, &kTen, -1, 0}, Case{kInt, "11", &kOne, &kTen, -1, 0},
          Case{kInt, "1x", &kOne, &kTen, -1, 0}, Case{kInt, "--1", &kOne, &kTen, -1, 0},
          Case{kInt, "-5", &kOne, &kTen, -1, 0}, Case{kInt, "-5", &kZero, &kAllOnes, 0, -5},
          Case{kInt, "", &kZero, &kAllOnes, 0, 0}, Case{kUint, "5x", &kZero, &kAllOnes, -1, 0},
          Case{kUint, "99999999999", &kZero, &kAllOnes, 0, INT32_MAX},
          Case{kInt, "-99999999999", &kZero, &kAllOnes, 0, INT32_MIN}}) {
        int32_t value = 0;
        EXPECT_EQ(check(c.kind, c.text, c.min, c.max, &value).result, c.result) << c.text;
        EXPECT_EQ(value, c.value) << c.text;
    }
}

// Text after the fourth octet is not read; an address alone is a /32 prefix;
// a length beyond 32 bits is not read at all; host bits refuse a prefix but
// the masked prefix is still written. An address check writes one word.
TEST(CheckArg, Ipv4AddressesAndPrefixes) {
    struct Case {
        int kind;
        const char *text;
        int result;
        uint32_t address, netmask;
    };
    for (const Case &c :
         {Case{kAddr, "10.1.2.3", 0, 0x0A010203u, 0},
          Case{kAddr, "255.255.255.255", 0, 0xFFFFFFFFu, 0},
          Case{kAddr, "10.1.2.3junk", 0, 0x0A010203u, 0}, Case{kAddr, "10.1.2", -1, 0, 0},
          Case{kAddr, "10.1.2.256", -1, 0, 0}, Case{kAddr, "-1.0.0.0", -1, 0, 0},
          Case{kPrefix, "10.1.1.0/24", 0, 0x0A010100u, 0xFFFFFF00u},
          Case{kPrefix, "10.1.1.1/24", -1, 0x0A010100u, 0xFFFFFF00u},
          Case{kPrefix, "10.1.1.0", 0, 0x0A010100u, 0xFFFFFFFFu},
          Case{kPrefix, "10.1.1.0/99999999999", 0, 0x0A010100u, 0xFFFFFFFFu},
          Case{kPrefix, "128.0.0.0/1", 0, 0x80000000u, 0x80000000u},
          Case{kPrefix, "10.1.1.0/0", -1, 0, 0}, Case{kPrefix, "10.1.1.0/33", -1, 0, 0},
          Case{kPrefix, "300.1.1.0/8", -1, 0, 0}, Case{kPrefix, "10.1/8", -1, 0, 0}}) {
        gvh_ip_prefix written{0, 0};
        EXPECT_EQ(check(c.kind, c.text, nullptr, nullptr, &written).result, c.result) << c.text;
        EXPECT_EQ(written.address, c.address) << c.text;
        EXPECT_EQ(written.netmask, c.netmask) << c.text;
    }
}

// Each byte takes two hex digits. Group addresses other than the IPv4
// multicast block pass; refused addresses are refused without an output too.
TEST(CheckArg, MacAddresses) {
    using Mac = std::array<uint8_t, 6>;
    struct Case {
        const char *text;
        int result;
        Mac mac;
    };
    for (const Case &c : {Case{"00:11:22:aa:BB:ff", 0, {0x00, 0x11, 0x22, 0xAA, 0xBB, 0xFF}},
                          Case{"01:80:c2:00:00:00", 0, {0x01, 0x80, 0xC2, 0, 0, 0}},
                          Case{"01:00:5e:00:00:01", -1, {0x01, 0x00, 0x5E, 0, 0, 1}},
                          Case{"00:00:00:00:00:00", -1, {}},
                          Case{"ff:ff:ff:ff:ff:ff", -1, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
                          Case{"1:2:3:4:5:6", -1, {}}, Case{"00-11-22-33-44-55", -1, {}},
                          Case{"00:11:22:33:44", -1, {}}, Case{"00:11:22:33:44:5", -1, {}}}) {
        Mac mac{};
        EXPECT_EQ(check(kMac, c.text, nullptr, nullptr, mac.data()).result, c.result) << c.text;
        EXPECT_EQ(mac, c.mac) << c.text;
        EXPECT_EQ(check(kMac, c.text, nullptr, nullptr, nullptr).result, c.result) << c.text;
    }
}

TEST(NameChecks, CharacterClasses) {
    struct Case {
        const char *text;
        int valid_name, alphanum, numeric;
    };
    for (const Case c : {Case{"olt-1.a_b", 1, 0, 0}, Case{"abc123", 1, 1, 0}, Case{"123", 1, 1, 1},
                         Case{"", 1, 1, 1}, Case{"a b", 0, 0, 0}, Case{"a/b", 0, 0, 0}}) {
        const int length = static_cast<int>(std::strlen(c.text));
        EXPECT_EQ(check_valid_name(c.text, length), c.valid_name) << c.text;
        EXPECT_EQ(check_alphanum(c.text), c.alphanum) << c.text;
        EXPECT_EQ(check_numeric(c.text), c.numeric) << c.text;
    }
    EXPECT_EQ(check_valid_name("ab cd", 2), 1); // only the first len characters
    EXPECT_EQ(check_valid_name("a", 5), 0);     // the terminator is no name character
}

} // namespace
