// What one process sees: where every option lands in the shared layout and
// how it reads back.
#include "onuopt/ipc_spy.h"
#include "onuopt/store_fixture.h"

#include <array>
#include <functional>

namespace onutest {
namespace {

TEST_F(Store, InitialisationLeavesOnlyTheNumbering) {
    gv_opt_format_set_min_onu_id(0);
    std::memset(view, 0xA5, GV_OPT_FORMAT_SHM_SIZE);
    ASSERT_EQ(gv_opt_format_init_db(), 0);

    std::vector<unsigned char> expected(GV_OPT_FORMAT_SHM_SIZE, 0);
    auto put32 = [&](std::size_t at, int32_t v) { std::memcpy(&expected[at], &v, 4); };
    put32(0, 1); // minimum ONU id
    for (int p = 0; p < 32; ++p) {
        put32(pon_offset(p), p + 1);
        for (int o = 0; o < 129; ++o) {
            put32(onu_offset(p, o), p + 1);
            put32(onu_offset(p, o) + 4, o);
        }
    }
    EXPECT_EQ(std::memcmp(view, expected.data(), expected.size()), 0);
    EXPECT_EQ(gv_opt_format_get_min_onu_id(), 1);
    EXPECT_EQ(gv_opt_format_get_onu_display_sn(), 0);
}

// Each option is written through the library, found at its offset by a
// plain look at the segment, and read back through the library.
TEST_F(Store, OptionsLandAtTheirOffsetsAndReadBack) {
    const std::array<uint8_t, 6> mac{0x00, 0x1b, 0x2c, 0x3d, 0x4e, 0x5f};
    opt_format_onu_t info{};
    info.pon = 5;
    info.onu_id = 7;
    std::memcpy(info.ident_addr, "\x02\x00\x00\x00\x00\x09", 6);
    info.learning_method = 3;
    std::strcpy(info.uni_description[1], "from the record");
    const std::string uni23 = std::string("uplink-23") + std::string(23, '\0');
    const int32_t twelve = 12;
    const std::size_t onu = onu_offset(4, 7), pon = pon_offset(4);

    struct Case {
        const char *what;
        std::function<int()> set;
        std::size_t offset;
        std::string stored;
        std::function<int(void *)> get; // reads the stored bytes back into a buffer
    };
    const Case cases[] = {
        {"record", [&] { return gv_opt_format_set_onu_info(5, 7, &info); }, onu,
         bytes(&info, sizeof info),
         [](void *out) {
             return gv_opt_format_get_onu_info(5, 7, static_cast<opt_format_onu_t *>(out));
         }},
        {"description", [] { return gv_opt_format_set_onu_description(5, 7, "ONU at lobby", 12); },
         onu + 21, std::string("ONU at lobby") + '\0',
         [](void *out) {
             return gv_opt_format_get_onu_description(5, 7, static_cast<char *>(out));
         }},
        {"MAC", [&] { return gv_opt_format_set_onu_mac_address(5, 7, mac.data()); }, onu + 150,
         bytes(mac.data(), 6),
         [](void *out) {
             return gv_opt_format_get_onu_mac_address(5, 7, static_cast<uint8_t *>(out));
         }},
        {"UNI count", [] { return gv_opt_format_set_onu_num_of_uni(5, 7, 12); }, onu + 16,
         bytes(&twelve, 4),
         [](void *out) { return gv_opt_format_get_onu_num_of_uni(5, 7, static_cast<int *>(out)); }},
        {"UNI 23", [&] { return gv_opt_format_set_onu_uni_description(5, 7, 0, 23, uni23.data()); },
         onu + 156 + std::size_t{23} * 32, uni23,
         [](void *out) {
             return gv_opt_format_get_onu_uni_description(5, 7, 0, 23, static_cast<char *>(out));
         }},
        {"part number", [] { return gv_opt_format_set_pon_module_pn(5, "GP-SFP2-C+"); }, pon + 24,
         std::string("GP-SFP2-C+") + std::string(6, '\0'),
         [](void *out) { return gv_opt_format_get_pon_module_pn(5, static_cast<char *>(out)); }},
        {"redundancy", [] { return gv_opt_format_set_pon_red_info(5, 1, 0xdead, 5, 6, 0xbeef); },
         pon + 4, bytes(std::array<uint32_t, 5>{1, 0xdead, 5, 6, 0xbeef}.data(), 20),
         [](void *out) {
             return gv_opt_format_get_pon_red_info(5, static_cast<pon_red_info_t *>(out));
         }},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        alignas(8) char out[sizeof(opt_format_onu_t)] = {};
        ASSERT_EQ(c.set(), 0);
        EXPECT_EQ(raw(c.offset, c.stored.size()), c.stored);
        EXPECT_EQ(c.get(out), 0);
        EXPECT_EQ(bytes(out, c.stored.size()), c.stored);
    }
    int method = 0;
    EXPECT_EQ(raw(onu + 20, 1), "\x03");
    EXPECT_EQ(gv_opt_format_get_onu_learning_method(5, 7, &method), 0);
    EXPECT_EQ(method, 3);
    EXPECT_EQ(raw(onu + 156 + 32, 32), bytes(info.uni_description[1], 32)) << "record kept";
    EXPECT_EQ(spy::lock_log().deepest, 1);
    EXPECT_EQ(spy::lock_log().without_undo, 0);
    EXPECT_EQ(spy::lock_log().takes, spy::lock_log().releases);
}

// A type-b trunk addresses the records of its working PON port.
TEST_F(Store, TrunkPortsAddressTheirWorkingPon) {
    struct Case {
        int trunk, pnum;
    };
    for (const Case c :
         {Case{kFirstTrunk, 1}, Case{kFirstTrunk + 2, 5}, Case{kFirstTrunk + 5, 11}}) {
        const std::string text = "via trunk " + std::to_string(c.trunk);
        ASSERT_EQ(gv_opt_format_set_onu_description(c.trunk, 3, text.c_str(), 64), 0);
        ASSERT_EQ(gv_opt_format_set_pon_module_pn(c.trunk, text.c_str()), 0);
        char out[128];
        ASSERT_EQ(gv_opt_format_get_onu_description(c.pnum, 3, out), 0);
        EXPECT_EQ(std::string(out), text);
        EXPECT_EQ(raw(onu_offset(c.pnum - 1, 3) + 21, text.size()), text);
        EXPECT_EQ(raw(pon_offset(c.pnum - 1) + 24, 3), "via");
    }
}

} // namespace
} // namespace onutest
