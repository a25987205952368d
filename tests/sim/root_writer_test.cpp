#include "chassis_desc.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
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

    gvsim::ChassisDesc parse(const std::string &text) {
        gvsim::ChassisDesc desc;
        std::string error;
        EXPECT_TRUE(gvsim::parse_chassis(text, desc, error)) << error;
        return desc;
    }
    void write(const gvsim::ChassisDesc &desc) {
        std::string error;
        ASSERT_TRUE(gvsim::write_root(desc, dir_.string(), error)) << error;
    }
    std::string read(const std::string &relative) const {
        std::ifstream in(dir_ / relative, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    bool exists(const std::string &relative) const { return fs::exists(dir_ / relative); }
    std::uint32_t be32(const std::string &relative, std::size_t offset) const {
        const std::string bytes = read(relative);
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < 4; ++i)
            value = value << 8 | static_cast<std::uint8_t>(bytes.at(offset + i));
        return value;
    }

    fs::path dir_;
};

const std::string kChassis = "model_name Lab OLT\nreal_model_name K7400A_SFU\nmodel_code 9\n"
                             "dual_os 1\ndefault_os 2\nslots 4\nslot 1 21 4\nslot 2 0 0\n"
                             "slot 3 22 4\nslot 4 30 2\nlogical_ports 14\nchannel_groups 2\n"
                             "fan 1 installed\nfan 2 fault\nfan 3 absent\npower 2 installed\n"
                             "hw_revision 1.3\nsw_version 5.2.14\nbl_version 2.05\n"
                             "serial GV1\nvendor_id 16\nvendor_functions 0 33 64 95\n"
                             "config_version 2\n";

// The library takes a value as the fourth blank-separated word of its /proc/system line.
std::string fourth_word_of_line(const std::string &text, const std::string &label) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.find(label) == std::string::npos)
            continue;
        std::istringstream words(line);
        std::string word;
        for (int i = 0; i < 4; ++i)
            words >> word;
        return word;
    }
    return "";
}

TEST_F(RootTest, RoundTripsTheDescription) {
    const gvsim::ChassisDesc desc = parse(kChassis);
    write(desc);
    gvsim::ChassisDesc back;
    std::string error;
    ASSERT_TRUE(gvsim::load_root_chassis(dir_.c_str(), back, error)) << error;
    EXPECT_EQ(back, desc);
    EXPECT_TRUE(fs::is_directory(dir_ / "tmp"));
}

TEST_F(RootTest, ModelRecordFileHoldsTheRecord) {
    const gvsim::ChassisDesc desc = parse(kChassis);
    write(desc);
    const auto record = gvsim::encode_model_record(desc);
    EXPECT_EQ(read("proc/shape/ioctrl"), std::string(record.begin(), record.end()));
}

TEST_F(RootTest, TextFilesCarryWhatTheLibraryLooksFor) {
    write(parse(kChassis));
    const std::string system = read("proc/system");
    const struct {
        const char *label;
        const char *value;
    } infos[] = {{"H/W Revision", "1.3"},
                 {"NOS Version", "5.2.14"},
                 {"B/L Version", "2.05"},
                 {"Serial Number", "GV1"}};
    for (const auto &[label, value] : infos)
        EXPECT_EQ(fourth_word_of_line(system, label), value) << label;
    EXPECT_NE(system.find("Model Name      : Lab OLT\n"), std::string::npos) << system;
    EXPECT_EQ(read("proc/sysinfo"), system);
    EXPECT_NE(read("proc/bootcfg").find("\ndefault-os : 31\n"), std::string::npos);
    EXPECT_TRUE(exists("proc/ossel/ctrl"));
    EXPECT_EQ(read("proc/shelf/chassis_type"), "2\n");
    EXPECT_NE(read("etc/ZebOS.conf").find("\n!configdb_version 2\n"), std::string::npos);
    // Fitted line cards only: the SFU slot and the empty slot stay out.
    EXPECT_EQ(read("etc/eqm.conf"), "slot 1 21 4 1\nslot 4 30 2 1\n");
}

TEST_F(RootTest, ShelfStatusShowsInstalledOnlyForFittedUnits) {
    write(parse(kChassis));
    const struct {
        const char *path;
        bool installed;
    } units[] = {{"proc/shelf/fan_slot01/status", true},
                 {"proc/shelf/fan_slot02/status", true}, // fitted, with an alarm
                 {"proc/shelf/fan_slot03/status", false},
                 {"proc/shelf/power_slot02/status", true}};
    for (const auto &[path, installed] : units) {
        ASSERT_TRUE(exists(path)) << path;
        EXPECT_EQ(read(path).find("Installed") != std::string::npos, installed) << path;
    }
    EXPECT_FALSE(exists("proc/shelf/power_slot01"));
    EXPECT_NE(read("proc/shelf/fan_slot02/status").find("Alarm : fan stopped"), std::string::npos);
}

TEST_F(RootTest, BoardInfoAndSwitchMapsAreBigEndian) {
    write(parse(kChassis));
    ASSERT_EQ(read("proc/boardinfo/raw").size(), 1980U);
    EXPECT_EQ(be32("proc/boardinfo/raw", 424), 16U);
    EXPECT_EQ(be32("proc/boardinfo/raw", 428), 0x80000001U); // bits 95 and 64
    EXPECT_EQ(be32("proc/boardinfo/raw", 432), 0x00000002U); // bit 33
    EXPECT_EQ(be32("proc/boardinfo/raw", 436), 0x00000001U); // bit 0
    const std::string map = read("proc/switch/misc/ioctrl");
    ASSERT_EQ(map.size(), 776U);
    EXPECT_EQ(be32("proc/switch/misc/ioctrl", 0), 1U);
    // pnums 1-4 GPON, 5-6 GE and 7-8 XE on the K7400A SFU, 9-10 XGSPON.
    const std::string codes = {52, 52, 52, 52, 2, 2, 3, 3, 54, 54, 0};
    EXPECT_EQ(map.substr(8, codes.size()), codes);
    EXPECT_EQ(map.substr(200, codes.size()), codes);
    EXPECT_EQ(map.substr(392, codes.size()), std::string({0, 0, 0, 0, 1, 1, 1, 1, 0, 0, 0}));
}

TEST_F(RootTest, RewritingDropsFilesTheChassisNoLongerHas) {
    write(parse(kChassis));
    write(parse("model_name Box\nreal_model_name K3100X\nmodel_code 20\nslots 0\n"
                "group 1 8\nlogical_ports 5\nfan 1 absent\n"));
    EXPECT_FALSE(exists("proc/ossel/ctrl"));
    EXPECT_FALSE(exists("proc/shelf/chassis_type"));
    EXPECT_FALSE(exists("proc/shelf/fan_slot02"));
    EXPECT_FALSE(exists("proc/shelf/power_slot02"));
    EXPECT_TRUE(exists("proc/shelf/fan_slot01/status"));
    EXPECT_EQ(read("etc/eqm.conf"), "");
    EXPECT_EQ(read("etc/ZebOS.conf").find("configdb_version"), std::string::npos);
}

TEST_F(RootTest, ReportsWhatCouldNotBeDone) {
    std::ofstream(dir_ / "file") << "x";
    std::string error;
    EXPECT_FALSE(gvsim::write_root(parse(kChassis), (dir_ / "file").string(), error));
    EXPECT_NE(error.find((dir_ / "file").string()), std::string::npos) << error;

    gvsim::ChassisDesc desc;
    EXPECT_FALSE(gvsim::load_root_chassis(dir_.c_str(), desc, error));
    EXPECT_EQ(error, (dir_ / "sim/chassis").string() + ": No such file or directory");

    fs::create_directories(dir_ / "sim");
    std::ofstream(dir_ / "sim/chassis") << "model_name X\nslots 40\n";
    EXPECT_FALSE(gvsim::load_root_chassis(dir_.c_str(), desc, error));
    EXPECT_EQ(error, (dir_ / "sim/chassis").string() + ": line 2: slots 40 out of range 0..33");
}

} // namespace
