// Redundancy pairing, serial-number display and look-ups by address.
#include "onuopt/store_fixture.h"

#include <array>

namespace onutest {
namespace {

std::array<uint32_t, 5> red_of(int port) {
    pon_red_info_t red{};
    EXPECT_EQ(gv_opt_format_get_pon_red_info(port, &red), 0);
    return {red.mode, red.user_word1, red.master_pon, red.partner_pon, red.user_word2};
}

TEST_F(Store, PairingLeadsBothMembersToTheMaster) {
    using Words = std::array<uint32_t, 5>;
    ASSERT_EQ(gv_opt_format_set_pon_red_info(3, 9, 11, 9, 9, 22), 0);
    ASSERT_EQ(gv_opt_format_set_olt_red(1, 3, 4), 0);
    EXPECT_EQ(red_of(3), (Words{1, 11, 3, 4, 22})) << "the caller's words stay";
    EXPECT_EQ(red_of(4), (Words{1, 0, 3, 4, 0}));
    struct Case {
        int pon, master;
    };
    for (const Case c : {Case{3, 3}, Case{4, 3}, Case{5, 5}}) {
        EXPECT_EQ(gv_opt_format_get_olt_red_master_id(c.pon), c.master) << c.pon;
    }
    ASSERT_EQ(gv_opt_format_set_olt_red(0, 3, 4), 0);
    EXPECT_EQ(red_of(3), Words{}) << "unpairing clears all five words";
    EXPECT_EQ(gv_opt_format_get_olt_red_master_id(3), 3);
    EXPECT_EQ(gv_opt_format_get_olt_red_master_id(4), 4);
}

TEST_F(Store, SerialNumberFollowsTheDisplayMode) {
    const uint8_t sn[8] = {'A', 'B', 'C', 'D', 0x12, 0xab, 0x00, 0xff};
    struct Case {
        uint32_t mode;
        int read_back;
        const char *text;
    };
    for (const Case c : {Case{0, 0, "ABCD12ab00ff"}, Case{1, 1, "ABCD12AB00FF"},
                         Case{0x100, 0, "ABCD12ab00ff"}, Case{0x1ff, 255, "ABCD12AB00FF"}}) {
        ASSERT_EQ(gv_opt_format_set_onu_display_sn(c.mode), 0);
        EXPECT_EQ(gv_opt_format_get_onu_display_sn(), c.read_back) << c.mode;
        char out[32];
        EXPECT_EQ(gv_opt_format_get_onu_display_sn_str(sn, out, sizeof out), 12);
        EXPECT_STREQ(out, c.text);
        EXPECT_EQ(static_cast<uint32_t>(raw32(4)), c.mode) << "stored whole";
    }
    char small[5];
    EXPECT_EQ(gv_opt_format_get_onu_display_sn_str(sn, small, sizeof small), 12);
    EXPECT_STREQ(small, "ABCD");
}

// Look-ups compare the identity address that only whole records carry, PON
// by PON, records 0..128 in order.
TEST_F(Store, LookUpByIdentityAddress) {
    const uint8_t a[6] = {0xa0, 0, 0, 0, 0, 1}, b[6] = {0xb0, 0, 0, 0, 0, 2},
                  c[6] = {0xc0, 0, 0, 0, 0, 3};
    auto put = [](int port, int id, const uint8_t *addr, const char *text, int id_field) {
        opt_format_onu_t info{};
        info.onu_id = id_field;
        std::memcpy(info.ident_addr, addr, 6);
        std::strcpy(info.description, text);
        ASSERT_EQ(gv_opt_format_set_onu_info(port, id, &info), 0);
    };
    put(1, 9, a, "ninth", 9);
    put(1, 3, a, "third", 3);
    put(2, 4, b, "fourth", 55);
    ASSERT_EQ(gv_opt_format_set_onu_mac_address(1, 6, c), 0);

    struct Case {
        int port;
        const uint8_t *addr;
        int result, id;
        const char *text;
    };
    for (const Case k :
         {Case{1, a, 0, 3, "third"}, Case{kFirstTrunk, a, 0, 3, "third"},
          Case{2, b, 0, 55, "fourth"}, Case{1, b, -1, -7, ""}, Case{1, c, -1, -7, ""}}) {
        int id = -7;
        char text[128] = {};
        EXPECT_EQ(gv_opt_format_get_onu_id(k.port, k.addr, &id), k.result);
        EXPECT_EQ(gv_opt_format_get_onu_description_by_mac(k.port, k.addr, text), k.result);
        EXPECT_EQ(id, k.id);
        EXPECT_STREQ(text, k.text);
    }
}

} // namespace
} // namespace onutest
