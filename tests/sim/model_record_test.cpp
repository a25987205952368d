#include "chassis_desc.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

gvsim::ChassisDesc parse_or_fail(const std::string &text) {
    gvsim::ChassisDesc desc;
    std::string error;
    EXPECT_TRUE(gvsim::parse_chassis(text, desc, error)) << error;
    return desc;
}

std::uint32_t be32_at(const std::array<std::uint8_t, gvsim::kModelRecordSize> &record,
                      std::size_t offset) {
    return std::uint32_t{record[offset]} << 24 | std::uint32_t{record[offset + 1]} << 16 |
           std::uint32_t{record[offset + 2]} << 8 | record[offset + 3];
}

// Distinct counts per kind so that a field written to the wrong offset shows.
const std::string kThreeSlots = "model_name TEST3\nreal_model_name K7400_SFU\nmodel_code 6\n"
                                "l3 1\ndual_os 7\nslots 3\nslot 1 32 8\nslot 2 13 9\n"
                                "slot 3 22 16\ninterlink 2\nlogical_ports 14\n"
                                "channel_groups 11\n";

TEST(ModelRecord, IntegersAreBigEndianAtTheirOffsets) {
    const auto record = gvsim::encode_model_record(parse_or_fail(kThreeSlots));
    const struct {
        std::size_t offset;
        std::uint32_t value;
        const char *field;
    } fields[] = {
        {136, 49, "kind 0"}, {140, 33, "kind 1"}, {144, 14, "kind 2"},
        {148, 17, "kind 4"}, {152, 33, "kind 5"}, {156, 16, "kind 7 before kind 6"},
        {160, 2, "kind 6"},  {164, 3, "kind 8"},  {168, 11, "kind 9"},
        {172, 3, "slots"},   {176, 8, "slot 1"},  {180, 9, "slot 2"},
        {184, 16, "slot 3"}, {188, 0, "slot 4"},  {304, 0, "slot 33"},
    };
    for (const auto &[offset, value, field] : fields)
        EXPECT_EQ(be32_at(record, offset), value) << field << " at " << offset;
    EXPECT_EQ(record[139], 49) << "least significant byte last";
}

TEST(ModelRecord, NamesAndFlags) {
    const auto record = gvsim::encode_model_record(parse_or_fail(kThreeSlots));
    EXPECT_STREQ(reinterpret_cast<const char *>(&record[0]), "TEST3");
    EXPECT_STREQ(reinterpret_cast<const char *>(&record[42]), "K7400_SFU");
    EXPECT_EQ(record[64], 1);
    EXPECT_EQ(record[65], 7);
    for (std::size_t i = 66; i < 136; ++i)
        EXPECT_EQ(record[i], 0) << "byte " << i;
}

TEST(ModelRecord, LongestNamesKeepTheirTerminator) {
    const std::string name(gvsim::kModelNameMax, 'N');
    const std::string board(gvsim::kRealModelNameMax, 'B');
    const auto record = gvsim::encode_model_record(
        parse_or_fail("model_name " + name + "\nreal_model_name " + board +
                      "\nmodel_code 20\nslots 0\ngroup 1 4\nlogical_ports 5\n"));
    EXPECT_EQ(std::string(reinterpret_cast<const char *>(&record[0])), name);
    EXPECT_EQ(record[41], 0);
    EXPECT_EQ(std::string(reinterpret_cast<const char *>(&record[42])), board);
    EXPECT_EQ(record[63], 0);
    EXPECT_EQ(be32_at(record, 140), 4U);
    EXPECT_EQ(be32_at(record, 172), 0U);
    EXPECT_EQ(be32_at(record, 176), 0U) << "a slotless box has no ports per slot";
}

} // namespace
