#include "chassis_desc.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <numeric>
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

struct Shipped {
    const char *name;
    const char *board;
    int model_code;
    int slot_count;
    int physical;
    int interlink;
    int logical;
};

// The chassis that sim/chassis/README.md documents.
constexpr Shipped kShipped[] = {
    {"k7100", "K7100_SFU", 0, 12, 66, 2, 5}, {"k7200", "K7200_SFU", 4, 6, 46, 2, 5},
    {"k7400", "K7400_SFU", 6, 3, 28, 2, 14}, {"k7400a", "K7400A_SFU", 9, 3, 28, 2, 14},
    {"k7500", "K7500_SFU", 7, 8, 58, 4, 14}, {"k3100x", "K3100X", 20, 0, 28, 0, 5},
    {"test3", "K7400_SFU", 6, 3, 32, 2, 14},
};

TEST(ShippedChassis, EveryDescriptionIsListedHere) {
    std::set<std::string> files;
    for (const auto &entry : fs::directory_iterator(GVSIM_CHASSIS_DIR)) {
        if (entry.path().extension() == ".chassis")
            files.insert(entry.path().stem().string());
    }
    std::set<std::string> listed;
    for (const Shipped &model : kShipped)
        listed.insert(model.name);
    EXPECT_EQ(files, listed);
}

TEST(ShippedChassis, IdentityAndCountsAreConsistent) {
    for (const Shipped &model : kShipped) {
        SCOPED_TRACE(model.name);
        const gvsim::ChassisDesc desc = load(model.name);
        const auto &k = desc.kind;
        EXPECT_EQ(desc.real_model_name, model.board);
        EXPECT_EQ(desc.model_code, model.model_code);
        EXPECT_EQ(desc.slot_count, model.slot_count);
        int slot_ports = 0;
        for (const gvsim::SlotDesc &slot : desc.slots)
            slot_ports += slot.ports;
        int group_ports = 0;
        for (const gvsim::PortGroup &group : desc.groups)
            group_ports += group.ports;
        EXPECT_EQ(k[1], slot_ports + group_ports);
        EXPECT_TRUE(slot_ports == 0 || group_ports == 0);
        EXPECT_EQ(k[1], model.physical);
        EXPECT_EQ(k[6], model.interlink);
        EXPECT_EQ(k[2], model.logical);
        EXPECT_TRUE(k[2] == 5 || k[2] == 14);
        EXPECT_LE(k[9], k[2]);
        EXPECT_EQ(k[5], k[1]);
        EXPECT_EQ(k[0], k[1] + k[6] + k[2]);
        if (desc.slot_count >= gvsim::kSfuSlot) {
            EXPECT_EQ(desc.slots[gvsim::kSfuSlot - 1].card_type, 22) << "SFU uplinks in slot 3";
        }
        EXPECT_FALSE(desc.fans.empty());
        EXPECT_EQ(desc.powers.size(), 2U);
    }
}

TEST(ShippedChassis, ThreeSlotTestChassisNumbering) {
    const gvsim::ChassisDesc desc = load("test3");
    EXPECT_EQ(desc.slots[0].ports, 8);
    EXPECT_EQ(desc.slots[1].ports, 8);
    EXPECT_EQ(desc.slots[2].ports, 16);
    EXPECT_EQ(desc.kind[1], 32);
    EXPECT_EQ(desc.kind[5], 32);
    EXPECT_EQ(desc.kind[6], 2);
    EXPECT_EQ(desc.kind[2], 14);
    EXPECT_EQ(desc.kind[0], 48);
}

TEST(ShippedChassis, EmbeddedDefaultIsTheK7400File) {
    EXPECT_EQ(gvsim::default_chassis_name(), "k7400");
    gvsim::ChassisDesc embedded;
    std::string error;
    ASSERT_TRUE(gvsim::parse_chassis(gvsim::default_chassis_text(), embedded, error)) << error;
    EXPECT_EQ(embedded, load("k7400"));
}

} // namespace
