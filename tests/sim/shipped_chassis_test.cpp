#include "chassis_desc.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;

gvsim::ChassisDesc load(const std::string &name) {
    gvsim::ChassisDesc desc;
    std::string error;
    EXPECT_TRUE(gvsim::load_chassis_file(std::string(GVSIM_CHASSIS_DIR) + "/" + name + ".chassis",
                                         desc, error))
        << error;
    return desc;
}

// The chassis that sim/chassis/README.md documents, and nothing else.
TEST(ShippedChassis, IdentityAndCountsAreConsistent) {
    const struct {
        std::string name;
        const char *board;
        int model_code, slot_count, physical, interlink, logical;
    } shipped[] = {
        {"k7100", "K7100_SFU", 0, 12, 66, 2, 5}, {"k7200", "K7200_SFU", 4, 6, 46, 2, 5},
        {"k7400", "K7400_SFU", 6, 3, 28, 2, 14}, {"k7400a", "K7400A_SFU", 9, 3, 28, 2, 14},
        {"k7500", "K7500_SFU", 7, 8, 58, 4, 14}, {"k3100x", "K3100X", 20, 0, 28, 0, 5},
        {"test3", "K7400_SFU", 6, 3, 32, 2, 14}};
    std::set<std::string> files;
    for (const auto &entry : fs::directory_iterator(GVSIM_CHASSIS_DIR)) {
        if (entry.path().extension() == ".chassis")
            files.insert(entry.path().stem().string());
    }
    std::set<std::string> listed;
    for (const auto &model : shipped) {
        SCOPED_TRACE(model.name);
        listed.insert(model.name);
        const gvsim::ChassisDesc desc = load(model.name);
        const auto &k = desc.kind;
        EXPECT_EQ(desc.real_model_name, model.board);
        EXPECT_EQ(desc.model_code, model.model_code);
        EXPECT_EQ(desc.slot_count, model.slot_count);
        int ports = 0;
        for (const gvsim::SlotDesc &slot : desc.slots)
            ports += slot.ports;
        for (const gvsim::PortGroup &group : desc.groups)
            ports += group.ports;
        EXPECT_TRUE(desc.groups.empty() || desc.slot_count == 0);
        EXPECT_EQ(k[1], ports);
        EXPECT_EQ(k[1], model.physical);
        EXPECT_EQ(k[6], model.interlink);
        EXPECT_EQ(k[2], model.logical);
        EXPECT_LE(k[9], k[2]);
        EXPECT_EQ(k[0], k[1] + k[6] + k[2]);
        if (desc.slot_count >= gvsim::kSfuSlot) {
            EXPECT_EQ(desc.slots[gvsim::kSfuSlot - 1].card_type, 22) << "SFU uplinks in slot 3";
        }
        EXPECT_FALSE(desc.fans.empty());
        EXPECT_EQ(desc.powers.size(), 2U);
    }
    EXPECT_EQ(files, listed);
}

TEST(ShippedChassis, EmbeddedDefaultIsTheK7400File) {
    EXPECT_EQ(gvsim::default_chassis_name(), "k7400");
    gvsim::ChassisDesc embedded;
    std::string error;
    ASSERT_TRUE(gvsim::parse_chassis(gvsim::default_chassis_text(), embedded, error)) << error;
    EXPECT_EQ(embedded, load("k7400"));
}

} // namespace
