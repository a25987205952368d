// What one process sees: which field of the shared segment every option
// lands in and how it reads back.
#include "onuopt/harness.h"

#include <array>
#include <cstring>
#include <memory>

namespace onutest {
namespace {

TEST_F(Store, InitialisationLeavesOnlyTheNumbering) {
    std::memset(view, 0xA5, GV_OPT_FORMAT_SHM_SIZE);
    ASSERT_EQ(gv_opt_format_init_db(), 0);
    const auto want = std::make_unique<opt_format_db_t>();
    want->min_onu_id = 1;
    for (int p = 0; p < GV_OPT_FORMAT_PONS; ++p) {
        want->pon[p].pon = p + 1;
        for (int o = 0; o < GV_OPT_FORMAT_ONU_RECORDS; ++o) {
            want->pon[p].onu[o].pon = p + 1;
            want->pon[p].onu[o].onu_id = o;
        }
    }
    EXPECT_EQ(std::memcmp(view, want.get(), sizeof *want), 0);
}

std::string padded(std::string text, std::size_t size) {
    text.resize(size, '\0');
    return text;
}

// Each setter, on a field first filled with junk, leaves exactly these bytes
// there and changes nothing else in the segment.
TEST_F(Store, SettersWriteExactlyTheirField) {
    opt_format_pon_t &pon = db().pon[2];
    opt_format_onu_t &onu = pon.onu[5];
    opt_format_onu_t info;
    std::memset(&info, 0x33, sizeof info);
    const std::string d128(128, 'd'), e140(140, 'e'), uni = padded("uplink-23", 32);
    const char ab_nul_cd[] = "ab\0cd";
    const uint8_t mac[6] = {0x00, 0x1b, 0x2c, 0x3d, 0x4e, 0x5f};
    const int32_t minus3 = -3;
    const int32_t all_unis = GV_OPT_FORMAT_UNIS;
    const uint32_t red[5] = {1, 0xdead, 5, 6, 0xbeef}, mode = 0x1ff;
    opt_format_onu_t deleted; // the junk record, its texts cleared
    std::memset(&deleted, 0x5a, sizeof deleted);
    std::memset(deleted.description, 0, sizeof deleted.description);
    std::memset(deleted.uni_description, 0, sizeof deleted.uni_description);
    using Set = std::function<int()>;
    auto desc = [](const char *text, int length) -> Set {
        return [=] { return gv_opt_format_set_onu_description(3, 5, text, length); };
    };
    auto part = [](const char *text) -> Set {
        return [=] { return gv_opt_format_set_pon_module_pn(3, text); };
    };
    struct Case {
        Set set;
        void *field;
        std::string stored;
    };
    const Case cases[] = {
        {[&] { return gv_opt_format_set_onu_info(3, 5, &info); }, &onu, bytes(&info, sizeof info)},
        // ONU 129 is the slot just past a PON's records: the head of the next PON.
        {[&] { return gv_opt_format_set_onu_info(1, 129, &info); }, &db().pon[1],
         bytes(&info, sizeof info)},
        {[] { return gv_opt_format_db_delete_onu(3, 5); }, &onu, bytes(&deleted, sizeof deleted)},
        {desc("hello", 3), onu.description, padded("hel", 129)},
        {desc(nullptr, 0), onu.description, padded("", 129)},
        {desc("hello", -2), onu.description, padded("", 129)},
        {desc(ab_nul_cd, 5), onu.description, padded("ab", 129)},
        {desc(d128.c_str(), 128), onu.description, padded(d128, 129)},
        {desc(e140.c_str(), 140), onu.description, e140}, // on into the MAC address and UNI 0
        {[&] { return gv_opt_format_set_onu_mac_address(3, 5, mac); }, onu.mac, bytes(mac, 6)},
        {[] { return gv_opt_format_set_onu_mac_address(3, 5, nullptr); }, onu.mac, padded("", 6)},
        {[] { return gv_opt_format_set_onu_num_of_uni(3, 5, -3); }, &onu.num_of_uni,
         bytes(&minus3, 4)},
        {[] { return gv_opt_format_set_onu_num_of_uni(3, 5, 24); }, &onu.num_of_uni,
         bytes(&all_unis, 4)}, // the most; 25 is refused
        {[&] { return gv_opt_format_set_onu_uni_description(3, 5, 0, 23, uni.c_str()); },
         onu.uni_description[23], uni},
        {[] { return gv_opt_format_set_onu_uni_description(3, 5, 0, 23, nullptr); },
         onu.uni_description[23], padded("", 32)},
        {part("ABC 123"), pon.module_pn, padded("ABC", 16)},
        {part("ABCDEFGHIJKLMNOPQRST"), pon.module_pn, "ABCDEFGHIJKLMNOP"},
        {part("X\x7fY"), pon.module_pn, padded("X", 16)},
        {part("PN\x80Z"), pon.module_pn, padded("PN", 16)},
        {part("~!}"), pon.module_pn, padded("~!}", 16)},
        {[] { return gv_opt_format_set_pon_red_info(3, 1, 0xdead, 5, 6, 0xbeef); }, &pon.red,
         bytes(red, sizeof red)},
        {[] { return gv_opt_format_set_onu_display_sn(0x1ff); }, &db().display_sn, bytes(&mode, 4)},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const Case &c = cases[i];
        std::memset(c.field, 0x5a, c.stored.size());
        std::vector<unsigned char> want = snapshot();
        std::memcpy(&want[static_cast<unsigned char *>(c.field) - view], c.stored.data(),
                    c.stored.size());
        EXPECT_EQ(c.set(), 0) << "case " << i;
        EXPECT_TRUE(snapshot() == want) << "case " << i;
    }
}

// Each getter answers the bytes of its own field (buffers of the exact size
// show a getter writing further under the address sanitizer).
TEST_F(Store, GettersReadTheirField) {
    auto *record = reinterpret_cast<unsigned char *>(&db().pon[2]);
    for (std::size_t i = 0; i < sizeof(opt_format_pon_t); ++i) {
        record[i] = static_cast<unsigned char>(1 + i * 7 % 255); // no zero: part numbers end there
    }
    const opt_format_pon_t &pon = db().pon[2];
    const opt_format_onu_t &onu = pon.onu[5];
    opt_format_onu_t info{};
    char text[128] = {}, uni[32] = {}, pn[16] = {};
    uint8_t mac[6] = {};
    pon_red_info_t red{};
    int count = 0, method = 0;
    EXPECT_EQ(gv_opt_format_get_onu_info(3, 5, &info), 0);
    EXPECT_EQ(gv_opt_format_get_onu_description(3, 5, text), 0);
    EXPECT_EQ(gv_opt_format_get_onu_mac_address(3, 5, mac), 0);
    EXPECT_EQ(gv_opt_format_get_onu_uni_description(3, 5, 0, 23, uni), 0);
    EXPECT_EQ(gv_opt_format_get_onu_num_of_uni(3, 5, &count), 0);
    EXPECT_EQ(gv_opt_format_get_onu_learning_method(3, 5, &method), 0);
    EXPECT_EQ(gv_opt_format_get_pon_module_pn(3, pn), 0);
    EXPECT_EQ(gv_opt_format_get_pon_red_info(3, &red), 0);
    EXPECT_EQ(bytes(&info, sizeof info), bytes(&onu, sizeof onu));
    EXPECT_EQ(bytes(text, 128), bytes(onu.description, 128));
    EXPECT_EQ(bytes(mac, 6), bytes(onu.mac, 6));
    EXPECT_EQ(bytes(uni, 32), bytes(onu.uni_description[23], 32));
    EXPECT_EQ(count, onu.num_of_uni);
    EXPECT_EQ(method, onu.learning_method) << "read unsigned";
    EXPECT_EQ(bytes(pn, 16), bytes(pon.module_pn, 16));
    EXPECT_EQ(bytes(&red, sizeof red), bytes(&pon.red, sizeof red));
}

using Words = std::array<uint32_t, 5>;

Words red_of(int port) {
    pon_red_info_t red{};
    EXPECT_EQ(gv_opt_format_get_pon_red_info(port, &red), 0);
    return {red.mode, red.user_word1, red.master_pon, red.partner_pon, red.user_word2};
}

TEST_F(Store, PairingLeadsBothMembersToTheMaster) {
    ASSERT_EQ(gv_opt_format_set_pon_red_info(3, 9, 11, 9, 9, 22), 0);
    ASSERT_EQ(gv_opt_format_set_olt_red(1, 3, 4), 0);
    EXPECT_EQ(red_of(3), (Words{1, 11, 3, 4, 22})) << "the caller's words stay";
    EXPECT_EQ(red_of(4), (Words{1, 0, 3, 4, 0}));
    EXPECT_EQ(gv_opt_format_get_olt_red_master_id(3), 3);
    EXPECT_EQ(gv_opt_format_get_olt_red_master_id(4), 3);
    EXPECT_EQ(gv_opt_format_get_olt_red_master_id(5), 5);
    ASSERT_EQ(gv_opt_format_set_olt_red(0, 3, 4), 0);
    EXPECT_EQ(red_of(3), Words{}) << "unpairing clears all five words";
    EXPECT_EQ(gv_opt_format_get_olt_red_master_id(4), 4);
}

TEST_F(Store, SerialNumberFollowsTheDisplayMode) {
    const uint8_t sn[8] = {'A', 'B', 'C', 'D', 0x12, 0xab, 0x00, 0xff};
    struct Case {
        uint32_t mode;
        int read_back;
        const char *text;
    };
    for (const Case c : {Case{0x100, 0, "ABCD12ab00ff"}, Case{0x1ff, 255, "ABCD12AB00FF"}}) {
        ASSERT_EQ(gv_opt_format_set_onu_display_sn(c.mode), 0);
        EXPECT_EQ(gv_opt_format_get_onu_display_sn(), c.read_back) << c.mode;
        char out[32];
        EXPECT_EQ(gv_opt_format_get_onu_display_sn_str(sn, out, sizeof out), 12);
        EXPECT_STREQ(out, c.text);
    }
    char small[5];
    EXPECT_EQ(gv_opt_format_get_onu_display_sn_str(sn, small, sizeof small), 12);
    EXPECT_STREQ(small, "ABCD");
}

// Look-ups compare the identity address that only whole records carry, PON
// by PON (a trunk standing for its PON port), records 0..128 in order.
TEST_F(Store, LookUpByIdentityAddress) {
    const uint8_t a[6] = {0xa0, 0, 0, 0, 0, 1}, b[6] = {0xb0, 0, 0, 0, 0, 2},
                  c[6] = {0xc0, 0, 0, 0, 0, 3};
    // The id answered is the record's own field, not its place.
    auto put = [this](int pon, int index, const uint8_t *addr, int id_field, const char *text) {
        opt_format_onu_t &onu = db().pon[pon - 1].onu[index];
        std::memcpy(onu.ident_addr, addr, 6);
        onu.onu_id = id_field;
        std::strcpy(onu.description, text);
    };
    put(1, 9, a, 9, "ninth");
    put(1, 3, a, 3, "third");
    put(2, 4, b, 55, "fourth");
    std::memcpy(db().pon[0].onu[6].mac, c, 6);
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
