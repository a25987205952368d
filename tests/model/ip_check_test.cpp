// Sanity checks of typed host addresses, on addresses in network byte order.
#include "gvutil/model.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(CheckGeneralIp, ClassifiesInTheStatedOrder) {
    struct Case {
        const char *text;
        int result;
    };
    for (const Case c : {Case{"0.0.0.0", -1}, Case{"255.255.255.255", -2}, Case{"224.0.0.1", -3},
                         Case{"239.255.255.255", -3}, Case{"240.0.0.1", -4},
                         Case{"255.255.255.254", -4}, Case{"127.0.0.1", 0}, Case{"10.1.2.3", 0},
                         Case{"223.255.255.255", 0}, Case{"0.0.0.1", 0}}) {
        in_addr addr{};
        ASSERT_EQ(inet_pton(AF_INET, c.text, &addr), 1);
        uint32_t word = 0;
        std::memcpy(&word, &addr, sizeof word);
        EXPECT_EQ(check_general_ip(&word), c.result) << c.text;
    }
}

TEST(CheckGeneralIpv6, RefusesOnlyUnspecifiedAndLoopback) {
    struct Case {
        const char *text;
        int result;
    };
    for (const Case c :
         {Case{"::", -1}, Case{"::1", -2}, Case{"::2", 0}, Case{"::ffff:127.0.0.1", 0},
          Case{"::1:0:0:1", 0}, Case{"1::1", 0}, Case{"fe80::1", 0}, Case{"0:0:0:1::1", 0}}) {
        in6_addr addr{};
        ASSERT_EQ(inet_pton(AF_INET6, c.text, &addr), 1);
        uint32_t words[4];
        std::memcpy(words, &addr, sizeof words);
        EXPECT_EQ(check_general_ipv6(words), c.result) << c.text;
    }
}

} // namespace
