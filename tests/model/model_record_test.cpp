// The model record: byte order and field offsets of the kernel's reply, the
// load's failure paths, and slot/port arithmetic on every shipped chassis.
#include "gvutil/model.h"
#include "gvutil/settext.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using gvtest::ChassisRoot;

std::string be32(std::uint32_t value) {
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
            static_cast<char>(value >> 8), static_cast<char>(value)};
}

// A reply built by hand, field by field: a model name filling its 42 bytes
// (no terminator), the real name at 42, flags at 64 and 65, port counts from
// 136 (kind k carries 100 + k; kind 3 has no field, kind 7 comes before kind
// 6), the slot count at 172 and 33 slot entries from 176.
std::string hand_built_record() {
    std::string record = std::string(42, 'M') + "K7100_SFU" + std::string(13, '\0');
    record += std::string("\xC8\x01", 2) + std::string(70, '\0');
    for (std::uint32_t value : {100, 101, 102, 104, 105, 107, 106, 108, 109, 2, 0x0102, 3}) {
        record += be32(value);
    }
    record.resize(176 + 32 * 4);
    return record + be32(77); // the last entry, slot 33
}

TEST(ModelRecord, HandBuiltRecordReadsBigEndianAtTheKernelsOffsets) {
    ChassisRoot root{"test3"};
    const std::string record = hand_built_record();
    ASSERT_EQ(record.size(), sizeof(gv_model_info_t));
    root.write_file("proc/shape/ioctrl", record);
    ASSERT_EQ(init_switch_model_info(), 1);
    const std::array<int, 11> kinds = {100, 101, 102, 0, 104, 105, 106, 107, 108, 109, 0};
    for (unsigned kind = 0; kind < kinds.size(); ++kind) {
        EXPECT_EQ(get_port_num(kind), kinds[kind]) << "kind " << kind;
    }
    EXPECT_EQ(get_port_num(0xFFFFFFFFu), 0);
    EXPECT_EQ(hal_num_logical_ports, 100);
    EXPECT_EQ(hal_num_physical_ports, 101);
    EXPECT_EQ(get_slot_number(), 2);
    EXPECT_EQ(get_port_number_per_slot(0), 0x0102);
    EXPECT_EQ(get_port_number_per_slot(1), 3);
    EXPECT_EQ(get_port_number_per_slot(32), 77);
    // Entries outside the record read as empty; slot 40 walks every entry of
    // the record, the interlink ports and no further.
    EXPECT_EQ(get_port_number_per_slot(33), 0);
    EXPECT_EQ(get_port_number_per_slot(-1), 0);
    EXPECT_EQ(get_port_number_from_slotport(40, 1), 0x0102 + 3 + 77 + 106 + 1);
    // Names and flags are the record's own bytes, the copy exact.
    EXPECT_EQ(std::string(get_model_name()), std::string(42, 'M') + "K7100_SFU");
    EXPECT_STREQ(get_real_model_name(), "K7100_SFU");
    EXPECT_EQ(is_enable_l3(), 200);
    EXPECT_EQ(std::memcmp(&g_model, record.data(), record.size()), 0);
}

TEST(ModelRecord, MissingFileKeepsTheRecordAndShortReplyReadsAsZero) {
    ChassisRoot root{"test3"};
    const gv_model_info_t before = g_model;
    setenv("GVUTIL_ROOT", "/nonexistent-gvutil-root", 1);
    EXPECT_EQ(init_switch_model_info(), -1);
    EXPECT_EQ(std::memcmp(&g_model, &before, sizeof before), 0);
    EXPECT_EQ(hal_num_physical_ports, 32);
    setenv("GVUTIL_ROOT", root.path().c_str(), 1);
    root.write_file("proc/shape/ioctrl", std::string("SHORT"));
    ASSERT_EQ(init_switch_model_info(), 1);
    EXPECT_STREQ(get_model_name(), "SHORT");
    EXPECT_EQ(get_slot_number(), 0);
    EXPECT_EQ(get_port_num(0), 0);
}

// A record no kernel sends: counts at the top of the int range. The numbering
// wraps as the chassis' 32-bit arithmetic does, and nothing walks for ever.
TEST(ModelRecord, CountsBeyondTheIntRangeWrap) {
    ChassisRoot root{"test3"};
    constexpr std::uint32_t kTop = 0x7FFFFFFF;
    constexpr int kBottom = INT32_MIN;
    std::string record(136, '\0');
    for (std::uint32_t count : {kTop, kTop, kTop, 0u, kTop, 2u, 0u, 0u, kTop}) {
        record += be32(count); // kinds 0, 1, 2, 4, 5, 7, 6, 8, 9
    }
    record += be32(kTop) + be32(kTop) + be32(1) + be32(kTop); // slot count, slots 1..3
    root.write_file("proc/shape/ioctrl", record);
    ASSERT_EQ(init_switch_model_info(), 1);
    EXPECT_EQ(get_start_port_number_from_slot(2), kBottom);
    EXPECT_EQ(get_end_port_number_from_slot(2), kBottom);
    EXPECT_EQ(get_end_port_number_from_slot(3), -1);
    EXPECT_EQ(get_port_number_from_slotport(3, 1), kBottom + 1);
    EXPECT_EQ(get_slot_number_from_pnum(kTop), 1);
    EXPECT_EQ(get_slotport_number_from_pnum(kTop), static_cast<int>(kTop));
    EXPECT_EQ(is_interlink_port(kBottom), 0); // base + count wraps below the base
    // The port set text walks the bitmap, not the 4 billion ports claimed.
    portset_t set;
    ps_set(ps_zero(&set), 2);
    char text[64] = {};
    EXPECT_EQ(portset2str_wo_iftype(text, get_port_num(0), &set), 1);
    EXPECT_STREQ(text, "1/2");
}

class EveryChassis : public ::testing::TestWithParam<std::string> {
  protected:
    ChassisRoot root{GetParam()};
};

TEST_P(EveryChassis, CountsAndInterlinkRange) {
    const int base = get_port_num(5);
    const int interlinks = get_port_num(6);
    EXPECT_EQ(hal_num_logical_ports, get_port_num(0));
    EXPECT_EQ(hal_num_physical_ports, get_port_num(1));
    EXPECT_EQ(get_port_num(0), get_port_num(1) + interlinks + get_port_num(2));
    // Exactly one of the two trunk capacities, and the right one.
    EXPECT_EQ(14 * trunk_port_max14() + 5 * trunk_port_max5(), get_port_num(2));
    // Interlink pnums follow their base: open below, closed above.
    const int inside = interlinks > 0 ? 1 : 0;
    EXPECT_EQ(is_interlink_port(base), 0);
    EXPECT_EQ(is_interlink_port(base + 1), inside);
    EXPECT_EQ(is_interlink_port(base + interlinks), inside);
    EXPECT_EQ(is_interlink_port(base + interlinks + 1), 0);
}

// Each physical pnum maps to a slot/port that maps back, slot by slot.
TEST_P(EveryChassis, PnumsRoundTripThroughSlotPort) {
    const int slots = get_slot_number();
    const int physical = get_port_num(1);
    if (slots == 0) { // no slot holds a pnum, and every pair is accepted
        EXPECT_EQ(get_slot_number_from_pnum(1), -1);
        EXPECT_EQ(check_slot_port(9, 99), 0);
        EXPECT_EQ(get_max_slotport_cnt(), 0);
        return;
    }
    int pnum = 0;
    int most = 0;
    for (int slot = 1; slot <= slots; ++slot) {
        const int ports = get_port_number_per_slot(slot - 1);
        most = std::max(most, ports);
        EXPECT_EQ(get_start_port_number_from_slot(slot), pnum + 1);
        for (int port = 1; port <= ports; ++port) {
            ++pnum;
            ASSERT_EQ(get_port_number_from_slotport(slot, port), pnum);
            ASSERT_EQ(get_port_number_from_real_slotport(slot, port), pnum);
            ASSERT_EQ(get_slot_number_from_pnum(pnum), slot);
            ASSERT_EQ(get_slotport_number_from_pnum(pnum), port);
            ASSERT_EQ(check_slot_port(slot, port), 0);
        }
        EXPECT_EQ(check_slot_port(slot, ports + 1), -1);
        EXPECT_EQ(check_slot_port(slot, 0), -1);
        EXPECT_EQ(get_end_port_number_from_slot(slot), pnum);
    }
    EXPECT_EQ(pnum, physical);
    EXPECT_EQ(get_max_slotport_cnt(), most);
    EXPECT_EQ(check_slot_port(0, 1), -1);
    EXPECT_EQ(check_slot_port(slots + 1, 1), -1);
    EXPECT_EQ(get_slot_number_from_pnum(physical + 1), -1);
    EXPECT_EQ(get_slotport_number_from_pnum(physical + 1), -1);
    // The logical slot comes after the interlink ports.
    EXPECT_EQ(get_port_number_from_slotport(slots + 1, 1), physical + get_port_num(6) + 1);
}

INSTANTIATE_TEST_SUITE_P(Shipped, EveryChassis,
                         ::testing::ValuesIn(gvtest::shipped_chassis_names()),
                         [](const auto &info) { return info.param; });

// User slot 3 also names real slot 3, which shows back as 0.
TEST(SlotTranslation, OnlyTheFabricSlotDiffers) {
    struct Case {
        int user, real, shown;
    };
    for (const Case c :
         {Case{0, 3, 0}, Case{3, 3, 0}, Case{1, 1, 1}, Case{4, 4, 4}, Case{-1, -1, -1}}) {
        EXPECT_EQ(get_real_slot_by_user_slot(c.user), c.real) << c.user;
        EXPECT_EQ(get_user_slot_by_real_slot(c.real), c.shown) << c.real;
    }
}

} // namespace
