// Arguments the store refuses, and the bounds it keeps on purpose.
#include "onuopt/ipc_spy.h"
#include "onuopt/store_fixture.h"

#include <climits>

namespace onutest {
namespace {

// Every refusal answers -1 (deleting an ONU answers 0 regardless), leaves
// every byte of the segment as it was and gives the lock back.
TEST_F(Store, RefusedArgumentsChangeNothing) {
    const uint8_t zeros[6] = {}, unknown[6] = {1, 2, 3, 4, 5, 6};
    ASSERT_EQ(gv_opt_format_set_onu_description(1, 5, "kept", 4), 0);
    ASSERT_EQ(gv_opt_format_set_onu_mac_address(1, 5, unknown), 0);
    ASSERT_EQ(gv_opt_format_set_pon_module_pn(1, "KEPT"), 0);
    const std::vector<unsigned char> before = snapshot();
    char out[128];
    uint8_t mac[6];
    int value = 0;
    opt_format_onu_t info{};

    struct Case {
        const char *what;
        std::function<int()> call;
        int result = -1;
    };
    const Case cases[] = {
        {"port 0", [] { return gv_opt_format_set_onu_description(0, 5, "x", 1); }},
        {"interlink port 33", [] { return gv_opt_format_set_onu_num_of_uni(33, 5, 1); }},
        {"channel group pnum 35", [] { return gv_opt_format_set_pon_module_pn(35, "PN"); }},
        {"port -1", [&] { return gv_opt_format_get_onu_mac_address(-1, 5, mac); }},
        {"port INT_MIN", [] { return gv_opt_format_set_pon_red_info(INT_MIN, 1, 2, 3, 4, 5); }},
        {"ONU id 0 below minimum 1", [&] { return gv_opt_format_set_onu_mac_address(1, 0, mac); }},
        {"ONU id 130", [] { return gv_opt_format_set_onu_description(1, 130, "x", 1); }},
        {"ONU id INT_MIN", [&] { return gv_opt_format_set_onu_info(1, INT_MIN, &info); }},
        {"UNI index -1", [] { return gv_opt_format_set_onu_uni_description(1, 5, 0, -1, "x"); }},
        {"UNI index 24", [&] { return gv_opt_format_get_onu_uni_description(1, 5, 0, 24, out); }},
        {"selector 1", [] { return gv_opt_format_set_onu_uni_description(1, 5, 1, 0, nullptr); }},
        {"UNI count 25", [] { return gv_opt_format_set_onu_num_of_uni(1, 5, 25); }},
        {"null description", [] { return gv_opt_format_get_onu_description(1, 5, nullptr); }},
        {"null MAC", [] { return gv_opt_format_get_onu_mac_address(1, 5, nullptr); }},
        {"null UNI count", [] { return gv_opt_format_get_onu_num_of_uni(1, 5, nullptr); }},
        {"null learning", [] { return gv_opt_format_get_onu_learning_method(1, 5, nullptr); }},
        {"null UNI text",
         [] { return gv_opt_format_get_onu_uni_description(1, 5, 0, 0, nullptr); }},
        {"null record in", [] { return gv_opt_format_set_onu_info(1, 5, nullptr); }},
        {"null record out", [] { return gv_opt_format_get_onu_info(1, 5, nullptr); }},
        {"null part number in", [] { return gv_opt_format_set_pon_module_pn(1, nullptr); }},
        {"null part number out", [] { return gv_opt_format_get_pon_module_pn(1, nullptr); }},
        {"null redundancy out", [] { return gv_opt_format_get_pon_red_info(1, nullptr); }},
        {"null text with a length",
         [] { return gv_opt_format_set_onu_description(1, 5, nullptr, 4); }},
        {"all-zero address", [&] { return gv_opt_format_get_onu_id(1, zeros, &value); }},
        {"null address", [&] { return gv_opt_format_get_onu_description_by_mac(1, nullptr, out); }},
        {"null id out", [&] { return gv_opt_format_get_onu_id(1, unknown, nullptr); }},
        {"null text out",
         [&] { return gv_opt_format_get_onu_description_by_mac(1, unknown, nullptr); }},
        {"unknown address", [&] { return gv_opt_format_get_onu_id(1, unknown, &value); }},
        {"address on port 0", [&] { return gv_opt_format_get_onu_id(0, unknown, &value); }},
        {"pairing PON 0", [] { return gv_opt_format_set_olt_red(1, 0, 4); }},
        {"pairing PON 33", [] { return gv_opt_format_set_olt_red(1, 3, 33); }},
        {"master of PON 0", [] { return gv_opt_format_get_olt_red_master_id(0); }},
        {"master of PON 33", [] { return gv_opt_format_get_olt_red_master_id(33); }},
        {"null serial number",
         [&] { return gv_opt_format_get_onu_display_sn_str(nullptr, out, 16); }},
        {"null serial text",
         [&] { return gv_opt_format_get_onu_display_sn_str(mac, nullptr, 16); }},
        {"delete on port 0", [] { return gv_opt_format_db_delete_onu(0, 5); }, 0},
        {"delete ONU 130", [] { return gv_opt_format_db_delete_onu(1, 130); }, 0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        spy::lock_log() = {};
        EXPECT_EQ(c.call(), c.result);
        EXPECT_TRUE(snapshot() == before);
        const spy::LockLog log = spy::lock_log();
        EXPECT_EQ(log.takes, log.releases);
        EXPECT_LE(log.deepest, 1);
        EXPECT_EQ(log.without_undo, 0);
        EXPECT_EQ(sem_value(), 1);
    }
}

// ONU ids run from the stored minimum to 129. Records start at 0, so a
// negative minimum does not open ids below 0.
TEST_F(Store, OnuIdRunsFromTheMinimumTo129) {
    struct Case {
        int min, id, result;
    };
    for (const Case c :
         {Case{1, 0, -1}, Case{1, 1, 0}, Case{1, 129, 0}, Case{1, 130, -1}, Case{0, 0, 0},
          Case{5, 4, -1}, Case{5, 5, 0}, Case{-3, -1, -1}, Case{-3, 0, 0}, Case{200, 129, -1}}) {
        ASSERT_EQ(gv_opt_format_set_min_onu_id(c.min), 0);
        EXPECT_EQ(gv_opt_format_set_onu_num_of_uni(1, c.id, 2), c.result)
            << "min " << c.min << " id " << c.id;
    }
}

// ONU 129 is the slot just past a PON's records: the head of the next PON
// record, and past the segment's end for the last PON.
TEST_F(Store, Onu129OverlaysTheNextPonRecord) {
    opt_format_onu_t info{};
    info.pon = 77;
    std::strcpy(info.description, "abcPART-NUMBER-16xyz");
    ASSERT_EQ(gv_opt_format_set_onu_info(1, 129, &info), 0);
    EXPECT_EQ(raw32(pon_offset(1)), 77);
    char pn[16];
    ASSERT_EQ(gv_opt_format_get_pon_module_pn(2, pn), 0);
    EXPECT_EQ(bytes(pn, 16), "PART-NUMBER-16xy");

    const char *last = "ONU 129 of the last PON";
    ASSERT_EQ(gv_opt_format_set_onu_description(32, 129, last, 64), 0);
    EXPECT_EQ(raw(GV_OPT_FORMAT_SHM_SIZE + 21, std::strlen(last)), last);
    const ChildResult other = in_child([last] {
        attach_store();
        char out[128];
        return gv_opt_format_get_onu_description(32, 129, out) == 0 && std::strcmp(out, last) == 0
                   ? 0
                   : 1;
    });
    EXPECT_EQ(other.status, 0) << "another process reads it back";
}

TEST_F(Store, DescriptionCopiesTheCallersLength) {
    struct Case {
        const char *text;
        int length;
        std::string field; // the first bytes of the 129; the rest are zero
    };
    const std::string d128(128, 'd');
    for (const Case &c : {Case{"hello", 5, "hello"}, Case{"hello", 3, "hel"}, Case{"hello", 0, ""},
                          Case{nullptr, 0, ""}, Case{"hello", -2, ""}, Case{"ab\0cd", 5, "ab"},
                          Case{d128.c_str(), 128, d128}}) {
        SCOPED_TRACE(c.field);
        ASSERT_EQ(gv_opt_format_set_onu_description(1, 5, "previous text", 13), 0);
        ASSERT_EQ(gv_opt_format_set_onu_description(1, 5, c.text, c.length), 0);
        std::string expected = c.field;
        expected.resize(129, '\0');
        EXPECT_EQ(raw(onu_offset(0, 5) + 21, 129), expected);
    }
    // A longer text runs on into the MAC address and the first UNI text.
    const std::string e140(140, 'e');
    ASSERT_EQ(gv_opt_format_set_onu_description(1, 5, e140.c_str(), 140), 0);
    EXPECT_EQ(raw(onu_offset(0, 5) + 21, 140), e140);
    EXPECT_EQ(raw(onu_offset(0, 5) + 161, 1), std::string(1, '\0'));
    // ... but never past the end of the mapped store.
    const std::string huge(100000, 'h');
    EXPECT_EQ(gv_opt_format_set_onu_description(32, 129, huge.c_str(), 100000), 0);
    EXPECT_EQ(raw(GV_OPT_FORMAT_SHM_SIZE + 21, 903), huge.substr(0, 903));
}

TEST_F(Store, PartNumberKeepsItsFirstWord) {
    struct Case {
        const char *text;
        std::string stored; // 16 bytes, zero-padded
    };
    for (const Case &c :
         {Case{"ABC 123", "ABC"}, Case{"ABCDEFGHIJKLMNOPQRST", "ABCDEFGHIJKLMNOP"}, Case{"", ""},
          Case{"X\tY", "X"}, Case{"PN\x80Z", "PN"}, Case{"~!}", "~!}"}}) {
        ASSERT_EQ(gv_opt_format_set_pon_module_pn(3, "0123456789abcdef"), 0);
        ASSERT_EQ(gv_opt_format_set_pon_module_pn(3, c.text), 0);
        std::string expected = c.stored;
        expected.resize(16, '\0');
        char out[17];
        std::memset(out, 0x7e, sizeof out);
        ASSERT_EQ(gv_opt_format_get_pon_module_pn(3, out), 0);
        EXPECT_EQ(bytes(out, 17), expected + '\x7e') << c.text;
    }
}

TEST_F(Store, DeletingAnOnuClearsItsTextsOnly) {
    opt_format_onu_t info{};
    info.num_of_uni = 24;
    info.learning_method = 2;
    std::memcpy(info.ident_addr, "\x0a\x0b\x0c\x0d\x0e\x0f", 6);
    std::memcpy(info.mac, "\x01\x02\x03\x04\x05\x06", 6);
    std::strcpy(info.description, "gone");
    for (auto &uni : info.uni_description) {
        std::strcpy(uni, "gone too");
    }
    ASSERT_EQ(gv_opt_format_set_onu_info(1, 5, &info), 0);
    ASSERT_EQ(gv_opt_format_set_onu_info(1, 6, &info), 0);
    ASSERT_EQ(gv_opt_format_db_delete_onu(1, 5), 0);

    opt_format_onu_t expected = info;
    std::memset(expected.description, 0, sizeof expected.description);
    std::memset(expected.uni_description, 0, sizeof expected.uni_description);
    EXPECT_EQ(raw(onu_offset(0, 5), 924), bytes(&expected, 924));
    EXPECT_EQ(raw(onu_offset(0, 6), 924), bytes(&info, 924));
}

} // namespace
} // namespace onutest
