// Loading the model record: byte order, field offsets and the load's failure path.
#include "gvutil/model.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using gvtest::ChassisRoot;

constexpr std::size_t kRecordSize = 308;

void put_be32(std::string &record, std::size_t offset, std::uint32_t value) {
    for (int i = 0; i < 4; ++i) {
        record[offset + static_cast<std::size_t>(i)] = static_cast<char>(value >> (24 - 8 * i));
    }
}

// A record built by hand at the kernel's offsets, each kind carrying its own value.
std::string hand_built_record() {
    std::string record(kRecordSize, '\0');
    record.replace(0, 6, "K-TEST");
    record.replace(42, 9, "K7100_SFU");
    record[64] = static_cast<char>(200);
    record[65] = 1;
    const std::array<std::pair<std::size_t, std::uint32_t>, 9> kinds = {{
        {136, 100},
        {140, 101},
        {144, 102},
        {148, 104},
        {152, 105},
        {156, 107},
        {160, 106},
        {164, 108},
        {168, 109},
    }};
    for (const auto &[offset, value] : kinds) {
        put_be32(record, offset, value);
    }
    put_be32(record, 172, 2);
    put_be32(record, 176, 0x0102);
    put_be32(record, 180, 3);
    put_be32(record, 176 + 32 * 4, 77); // last entry, slot 33
    return record;
}

class HandBuiltRecord : public ::testing::Test {
  protected:
    void SetUp() override {
        root.write_file("proc/shape/ioctrl", hand_built_record());
        ASSERT_EQ(init_switch_model_info(), 1);
    }
    ChassisRoot root{"test3"};
};

TEST_F(HandBuiltRecord, ReadsEachKindAtItsOwnOffset) {
    // Kind 6 lives after kind 7 in the record.
    const std::array<int, 11> expected = {100, 101, 102, 0, 104, 105, 106, 107, 108, 109, 0};
    for (unsigned kind = 0; kind < expected.size(); ++kind) {
        EXPECT_EQ(get_port_num(kind), expected[kind]) << "kind " << kind;
    }
    EXPECT_EQ(get_port_num(0xFFFFFFFFu), 0);
}

TEST_F(HandBuiltRecord, IntegersAreBigEndian) {
    EXPECT_EQ(get_slot_number(), 2);
    EXPECT_EQ(get_port_number_per_slot(0), 0x0102);
    EXPECT_EQ(get_port_number_per_slot(1), 3);
    EXPECT_EQ(get_port_number_per_slot(32), 77);
    EXPECT_EQ(hal_num_logical_ports, 100);
    EXPECT_EQ(hal_num_physical_ports, 101);
}

TEST_F(HandBuiltRecord, NamesAndFlagsComeFromTheRecord) {
    EXPECT_STREQ(get_model_name(), "K-TEST");
    EXPECT_STREQ(get_real_model_name(), "K7100_SFU");
    EXPECT_EQ(is_enable_l3(), 200);
    EXPECT_EQ(g_model.dual_os, 1);
    EXPECT_EQ(std::memcmp(&g_model, hand_built_record().data(), kRecordSize), 0);
}

TEST_F(HandBuiltRecord, SlotEntriesOutsideTheRecordReadAsEmpty) {
    EXPECT_EQ(get_port_number_per_slot(33), 0);
    EXPECT_EQ(get_port_number_per_slot(-1), 0);
    // Slot 40 walks every entry of the record, the interlink ports and no further.
    EXPECT_EQ(get_port_number_from_slotport(40, 1), 0x0102 + 3 + 77 + 106 + 1);
}

TEST(ModelRecord, ShortReplyLeavesTheRestZero) {
    ChassisRoot root{"test3"};
    root.write_file("proc/shape/ioctrl", std::string("SHORT"));
    ASSERT_EQ(init_switch_model_info(), 1);
    EXPECT_STREQ(get_model_name(), "SHORT");
    EXPECT_EQ(get_slot_number(), 0);
    EXPECT_EQ(get_port_num(0), 0);
}

TEST(ModelRecord, MissingControlFileKeepsTheLoadedRecord) {
    ChassisRoot root{"test3"};
    const gv_model_info_t before = g_model;
    setenv("GVUTIL_ROOT", "/nonexistent-gvutil-root", 1);
    EXPECT_EQ(init_switch_model_info(), -1);
    EXPECT_EQ(std::memcmp(&g_model, &before, sizeof before), 0);
    EXPECT_EQ(hal_num_physical_ports, 32);
}

TEST(ModelRecord, UnloadedRecordCountsNothing) {
    gvtest::unload_model();
    EXPECT_STREQ(get_model_name(), "");
    EXPECT_STREQ(get_real_model_name(), "");
    EXPECT_EQ(get_slot_number(), 0);
    EXPECT_EQ(get_port_num(1), 0);
    EXPECT_EQ(get_max_slotport_cnt(), 0);
    EXPECT_EQ(check_slot_port(5, 5), 0);
    EXPECT_EQ(check_slot_port(-1, 0), 0);
}

} // namespace
