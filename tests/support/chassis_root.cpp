#include "support/chassis_root.h"

#include "chassis_rules.h"
#include "gvutil/model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace gvtest {

gvsim::ChassisDesc shipped_chassis(std::string_view name) {
    gvsim::ChassisDesc desc;
    std::string error;
    const std::string file = std::string(GVSIM_CHASSIS_DIR) + "/" + std::string(name) + ".chassis";
    if (!gvsim::load_chassis_file(file, desc, error)) {
        ADD_FAILURE() << error;
    }
    return desc;
}

std::vector<std::string> shipped_chassis_names() {
    std::vector<std::string> names;
    for (const auto &entry : fs::directory_iterator(GVSIM_CHASSIS_DIR)) {
        if (entry.path().extension() == ".chassis") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

gvsim::ChassisDesc two_port_chassis(int channel_groups) {
    gvsim::ChassisDesc desc = shipped_chassis("test3");
    desc.slot_count = 1;
    desc.slots = {};
    desc.slots[0] = {1, 2};
    desc.interlink = 0;
    desc.logical_ports = 14;
    desc.channel_groups = channel_groups;
    gvsim::derive_port_kinds(desc);
    return desc;
}

ChassisRoot::ChassisRoot(std::string_view shipped_name)
    : ChassisRoot(shipped_chassis(shipped_name)) {}

ChassisRoot::ChassisRoot(const gvsim::ChassisDesc &desc) : desc_(desc) {
    std::string dir = (fs::temp_directory_path() / "gvroot.XXXXXX").string();
    if (mkdtemp(dir.data()) == nullptr) {
        ADD_FAILURE() << "mkdtemp: " << std::strerror(errno);
        return;
    }
    path_ = dir;
    std::string error;
    if (!gvsim::write_root(desc_, path_, error)) {
        ADD_FAILURE() << error;
    }
    setenv("GVUTIL_ROOT", path_.c_str(), 1);
    unload_model();
    EXPECT_EQ(init_switch_model_info(), 1);
}

ChassisRoot::~ChassisRoot() {
    unsetenv("GVUTIL_ROOT");
    unload_model();
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void ChassisRoot::write_file(std::string_view relative, std::string_view bytes) const {
    const fs::path file = fs::path(path_) / relative;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::trunc)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void ChassisRoot::write_program(std::string_view relative, std::string_view script) const {
    write_file(relative, script);
    fs::permissions(fs::path(path_) / relative,
                    fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec);
}

void unload_model() {
    std::memset(&g_model, 0, sizeof g_model);
    hal_num_logical_ports = 0;
    hal_num_physical_ports = 0;
}

} // namespace gvtest
