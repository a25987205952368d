// Chassis roots as the generator writes them: the big-endian records at their
// offsets, and the description read back.
#include "chassis_desc.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

class RootTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "gvsim-root-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        dir_ = pattern;
    }
    void TearDown() override {
        std::error_code ec;
        fs::remove_all(dir_, ec);
    }

    gvsim::ChassisDesc write(const std::string &text) {
        gvsim::ChassisDesc desc;
        std::string error;
        EXPECT_TRUE(gvsim::parse_chassis(text, desc, error)) << error;
        EXPECT_TRUE(gvsim::write_root(desc, dir_.string(), error)) << error;
        return desc;
    }
    std::string read(const std::string &relative) const {
        std::ifstream in(dir_ / relative, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    fs::path dir_;
};

std::uint32_t be32(const std::string &bytes, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | static_cast<std::uint8_t>(bytes.at(offset + i));
    return value;
}

TEST_F(RootTest, ModelRecordIsBigEndianAtItsOffsets) {
    // Distinct counts per kind, so that a field at the wrong offset shows.
    write("model_name TEST3\nreal_model_name K7400_SFU\nmodel_code 6\nl3 1\ndual_os 7\n"
          "slots 3\nslot 1 32 8\nslot 2 13 9\nslot 3 22 16\ninterlink 2\nlogical_ports 14\n"
          "channel_groups 11\n");
    const std::string record = read("proc/shape/ioctrl");
    ASSERT_EQ(record.size(), gvsim::kModelRecordSize);
    const struct {
        std::size_t offset;
        std::uint32_t value;
        const char *field;
    } fields[] = {{136, 49, "kind 0"}, {140, 33, "kind 1"}, {144, 14, "kind 2"},
                  {148, 17, "kind 4"}, {152, 33, "kind 5"}, {156, 16, "kind 7 before kind 6"},
                  {160, 2, "kind 6"},  {164, 3, "kind 8"},  {168, 11, "kind 9"},
                  {172, 3, "slots"},   {176, 8, "slot 1"},  {180, 9, "slot 2"},
                  {184, 16, "slot 3"}, {188, 0, "slot 4"},  {304, 0, "slot 33"}};
    for (const auto &[offset, value, field] : fields)
        EXPECT_EQ(be32(record, offset), value) << field << " at " << offset;
    EXPECT_EQ(record[139], 49) << "least significant byte last";
    EXPECT_STREQ(&record[0], "TEST3");
    EXPECT_STREQ(&record[42], "K7400_SFU");
    EXPECT_EQ(record.substr(64, 2), "\x01\x07");
    EXPECT_EQ(record.substr(66, 70), std::string(70, '\0'));
}

TEST_F(RootTest, SlotlessRecordKeepsTheLongestNamesTerminated) {
    const std::string name(gvsim::kModelNameMax, 'N');
    const std::string board(gvsim::kRealModelNameMax, 'B');
    write("model_name " + name + "\nreal_model_name " + board +
          "\nmodel_code 20\nslots 0\ngroup 1 4\nlogical_ports 5\n");
    const std::string record = read("proc/shape/ioctrl");
    EXPECT_EQ(record.substr(0, 64), name + '\0' + board + '\0');
    EXPECT_EQ(be32(record, 140), 4U);
    EXPECT_EQ(record.substr(172), std::string(136, '\0')) << "no slots, no ports per slot";
}

// Blanks inside a name, a comment and a CR are the description's own; units
// may come in any order.
const std::string kChassis = "model_name  Lab OLT  # comment\r\nreal_model_name K7400A_SFU\n"
                             "model_code 9\ndual_os 1\ndefault_os 2\nslots 4\nslot 1 21 4\n"
                             "slot 3 22 4\nslot 4 30 2\nlogical_ports 14\nchannel_groups 2\n"
                             "fan 2 fault\nfan 1 installed\npower 2 installed\nsfu_mate absent\n"
                             "hw_revision 1.3\nsw_version 5.2.14\nbl_version 2.05\nserial GV1\n"
                             "vendor_id 16\nvendor_functions 0 33 64 95\nconfig_version 2\n";

TEST_F(RootTest, DescriptionReadsBackFromTheRoot) {
    const gvsim::ChassisDesc desc = write(kChassis);
    EXPECT_EQ(desc.model_name, "Lab OLT");
    EXPECT_EQ(desc.system_model, "Lab OLT");
    EXPECT_EQ(desc.fans[0].index * 10 + desc.fans[1].index, 12);
    EXPECT_EQ(desc.slots[1], gvsim::SlotDesc{}); // slot 2 not listed: empty
    gvsim::ChassisDesc back;
    std::string error;
    ASSERT_TRUE(gvsim::load_root_chassis(dir_.c_str(), back, error)) << error;
    EXPECT_EQ(back, desc);
    EXPECT_TRUE(fs::is_directory(dir_ / "tmp"));
}

TEST_F(RootTest, ReportsWhatCouldNotBeDone) {
    std::ofstream(dir_ / "file") << "x";
    gvsim::ChassisDesc desc;
    std::string error;
    EXPECT_FALSE(gvsim::write_root(desc, (dir_ / "file").string(), error));
    EXPECT_NE(error.find((dir_ / "file").string()), std::string::npos) << error;

    EXPECT_FALSE(gvsim::load_root_chassis(dir_.c_str(), desc, error));
    EXPECT_EQ(error, (dir_ / "sim/chassis").string() + ": No such file or directory");
    fs::create_directories(dir_ / "sim");
    std::ofstream(dir_ / "sim/chassis") << "model_name X\nslots 40\n";
    EXPECT_FALSE(gvsim::load_root_chassis(dir_.c_str(), desc, error));
    EXPECT_EQ(error, (dir_ / "sim/chassis").string() + ": line 2: slots 40 out of range 0..33");
}

} // namespace
