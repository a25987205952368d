// Arguments the store refuses, and the bounds it keeps on purpose.
#include "onuopt/harness.h"

#include <cstring>

namespace onutest {
namespace {

// Every refusal answers -1 and leaves every byte of the segment as it was;
// deleting an ONU answers 0 regardless.
TEST_F(Store, RefusedArgumentsChangeNothing) {
    const uint8_t zeros[6] = {}, addr[6] = {1, 2, 3, 4, 5, 6};
    ASSERT_EQ(gv_opt_format_set_onu_description(1, 5, "kept", 4), 0);
    std::memcpy(db().pon[0].onu[5].ident_addr, addr, 6); // found by the look-ups
    ASSERT_EQ(gv_opt_format_set_pon_module_pn(1, "KEPT"), 0);
    const std::vector<unsigned char> before = snapshot();
    char out[128];
    int value = 0;
    opt_format_onu_t info{};
    const std::function<int()> calls[] = {
        // ports that are no PON; ONU ids outside 1..129 with the minimum at 1
        [] { return gv_opt_format_set_onu_description(0, 5, "x", 1); },
        [] { return gv_opt_format_set_pon_module_pn(33, "PN"); },
        [&] { return gv_opt_format_set_onu_mac_address(1, 0, addr); },
        [&] { return gv_opt_format_set_onu_info(1, 130, &info); },
        // UNI index, selector, UNI count
        [] { return gv_opt_format_set_onu_uni_description(1, 5, 0, -1, "x"); },
        [&] { return gv_opt_format_get_onu_uni_description(1, 5, 0, 24, out); },
        [] { return gv_opt_format_set_onu_uni_description(1, 5, 1, 0, nullptr); },
        [] { return gv_opt_format_set_onu_num_of_uni(1, 5, 25); },
        // null pointers
        [] { return gv_opt_format_get_onu_description(1, 5, nullptr); },
        [] { return gv_opt_format_get_onu_mac_address(1, 5, nullptr); },
        [] { return gv_opt_format_get_onu_num_of_uni(1, 5, nullptr); },
        [] { return gv_opt_format_get_onu_learning_method(1, 5, nullptr); },
        [] { return gv_opt_format_get_onu_uni_description(1, 5, 0, 0, nullptr); },
        [] { return gv_opt_format_set_onu_info(1, 5, nullptr); },
        [] { return gv_opt_format_get_onu_info(1, 5, nullptr); },
        [] { return gv_opt_format_set_pon_module_pn(1, nullptr); },
        [] { return gv_opt_format_get_pon_module_pn(1, nullptr); },
        [] { return gv_opt_format_get_pon_red_info(1, nullptr); },
        [] { return gv_opt_format_set_onu_description(1, 5, nullptr, 4); },
        [&] { return gv_opt_format_get_onu_display_sn_str(nullptr, out, 16); },
        [&] { return gv_opt_format_get_onu_display_sn_str(addr, nullptr, 16); },
        // look-ups by address
        [&] { return gv_opt_format_get_onu_id(1, zeros, &value); },
        [&] { return gv_opt_format_get_onu_description_by_mac(1, nullptr, out); },
        [&] { return gv_opt_format_get_onu_id(1, addr, nullptr); },
        [&] { return gv_opt_format_get_onu_description_by_mac(1, addr, nullptr); },
        // PON numbers outside 1..32
        [] { return gv_opt_format_set_olt_red(1, 0, 4); },
        [] { return gv_opt_format_set_olt_red(1, 3, 33); },
        [] { return gv_opt_format_get_olt_red_master_id(33); },
    };
    for (std::size_t i = 0; i < std::size(calls); ++i) {
        EXPECT_EQ(calls[i](), -1) << "call " << i;
        EXPECT_TRUE(snapshot() == before) << "call " << i;
    }
    EXPECT_EQ(gv_opt_format_db_delete_onu(1, 130), 0);
    EXPECT_TRUE(snapshot() == before);
}

// Records start at 0, so a negative minimum does not open ids below 0.
TEST_F(Store, OnuIdRunsFromTheMinimumTo129) {
    struct Case {
        int min, id, result;
    };
    for (const Case c : {Case{1, 129, 0}, Case{0, 0, 0}, Case{5, 4, -1}, Case{5, 5, 0},
                         Case{-3, -1, -1}, Case{-3, 0, 0}}) {
        ASSERT_EQ(gv_opt_format_set_min_onu_id(c.min), 0);
        EXPECT_EQ(gv_opt_format_set_onu_num_of_uni(1, c.id, 2), c.result)
            << "min " << c.min << " id " << c.id;
    }
}

// ONU 129 of the last PON lies past the segment's end. A huge length stops at
// the end of the mapping, and other processes read the text too.
TEST_F(Store, Onu129OfTheLastPonLiesPastTheSegment) {
    const std::string huge(100000, 'h');
    ASSERT_EQ(gv_opt_format_set_onu_description(32, 129, huge.c_str(), 100000), 0);
    const auto *past_end =
        reinterpret_cast<const opt_format_onu_t *>(view + GV_OPT_FORMAT_SHM_SIZE);
    EXPECT_EQ(bytes(past_end->description, 903), huge.substr(0, 903));
    const ChildResult other = in_child([] {
        attach_store();
        char out[128];
        return gv_opt_format_get_onu_description(32, 129, out) == 0 &&
                       bytes(out, 128) == std::string(128, 'h')
                   ? 0
                   : 1;
    });
    EXPECT_EQ(other.status, 0);
}

} // namespace
} // namespace onutest
