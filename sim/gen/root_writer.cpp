// Writes a chassis root and reads its description back.
#include "chassis_desc.h"
#include "driver_responders.h"
#include "root_files.h"
#include "system_files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <span>
#include <system_error>

namespace gvsim {
namespace {

namespace fs = std::filesystem;

constexpr const char *kDescriptionPath = "sim/chassis";

std::string shelf_status_path(const char *kind, int index) {
    char name[32];
    std::snprintf(name, sizeof name, "proc/shelf/%s_slot%02d/status", kind, index);
    return name;
}

class RootWriter {
  public:
    RootWriter(const std::string &dir, std::string &error) : root_(dir), error_(error) {}

    bool file(const std::string &relative, std::span<const std::uint8_t> bytes);
    bool file(const std::string &relative, std::string_view text) {
        return file(relative,
                    std::span(reinterpret_cast<const std::uint8_t *>(text.data()), text.size()));
    }
    bool directory(const std::string &relative);
    bool remove(const std::string &relative);
    bool shelf_units(const char *kind, const std::vector<ShelfUnit> &units, int max_index,
                     std::string (*status)(UnitState));

  private:
    bool fail(const fs::path &path, const std::string &what, int code) {
        error_ = what + " " + path.string() + ": " + std::strerror(code);
        return false;
    }

    fs::path root_;
    std::string &error_;
};

bool RootWriter::directory(const std::string &relative) {
    std::error_code ec;
    const fs::path path = root_ / relative;
    fs::create_directories(path, ec);
    return ec ? fail(path, "cannot create", ec.value()) : true;
}

bool RootWriter::file(const std::string &relative, std::span<const std::uint8_t> bytes) {
    const fs::path path = root_ / relative;
    if (!directory(fs::path(relative).parent_path().string())) {
        return false;
    }
    std::FILE *out = std::fopen(path.c_str(), "wb");
    if (out == nullptr) {
        return fail(path, "cannot write", errno);
    }
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
    const int code = errno;
    if (std::fclose(out) != 0 || !written) {
        return fail(path, "cannot write", written ? errno : code);
    }
    return true;
}

// Drops what an earlier run wrote and this chassis does not have; absent already is fine.
bool RootWriter::remove(const std::string &relative) {
    std::error_code ec;
    const fs::path path = root_ / relative;
    fs::remove(path, ec);
    return ec ? fail(path, "cannot remove", ec.value()) : true;
}

bool RootWriter::shelf_units(const char *kind, const std::vector<ShelfUnit> &units, int max_index,
                             std::string (*status)(UnitState)) {
    for (int index = 1; index <= max_index; ++index) {
        const auto unit = std::find_if(units.begin(), units.end(),
                                       [index](const ShelfUnit &u) { return u.index == index; });
        const std::string path = shelf_status_path(kind, index);
        if (unit != units.end()) {
            if (!file(path, status(unit->state))) {
                return false;
            }
        } else if (!remove(path)) {
            return false;
        } else {
            std::error_code ec; // the slot directory goes too unless something else is in it
            fs::remove(root_ / fs::path(path).parent_path(), ec);
        }
    }
    return true;
}

bool read_file(const std::string &path, std::string &text, std::string &error) {
    std::FILE *in = std::fopen(path.c_str(), "rb");
    if (in == nullptr) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    char buffer[4096];
    std::size_t got = 0;
    text.clear();
    while ((got = std::fread(buffer, 1, sizeof buffer, in)) > 0) {
        text.append(buffer, got);
    }
    const bool failed = std::ferror(in) != 0;
    std::fclose(in);
    if (failed) {
        error = path + ": read error";
    }
    return !failed;
}

} // namespace

bool write_root(const ChassisDesc &desc, const std::string &dir, std::string &error) {
    RootWriter root(dir, error);
    const std::string system = system_info_text(desc);
    return root.directory("tmp") && root.file("proc/shape/ioctrl", encode_model_record(desc)) &&
           root.file("proc/switch/misc/ioctrl", switch_map_reply(desc)) &&
           root.file("proc/boardinfo/raw", board_info_record(desc)) &&
           root.file("proc/system", system) && root.file("proc/sysinfo", system) &&
           root.file("proc/bootcfg", bootcfg_text(desc)) &&
           (desc.dual_os != 0 ? root.file("proc/ossel/ctrl", ossel_text(desc))
                              : root.remove("proc/ossel/ctrl")) &&
           (desc.chassis_type >= 0
                ? root.file("proc/shelf/chassis_type", std::to_string(desc.chassis_type) + "\n")
                : root.remove("proc/shelf/chassis_type")) &&
           root.shelf_units("fan", desc.fans, kMaxFanSlots, fan_status_text) &&
           root.shelf_units("power", desc.powers, kMaxPowerSlots, power_status_text) &&
           root.file("etc/ZebOS.conf", zebos_conf_text(desc)) &&
           root.file("etc/eqm.conf", eqm_conf_text(desc)) &&
           write_driver_responders(desc, dir, error) && write_system_files(desc, dir, error) &&
           root.file(kDescriptionPath, format_chassis(desc));
}

bool load_chassis_file(const std::string &path, ChassisDesc &out, std::string &error) {
    std::string text;
    if (!read_file(path, text, error)) {
        return false;
    }
    if (parse_chassis(text, out, error)) {
        return true;
    }
    error = path + ": " + error;
    return false;
}

bool load_root_chassis(const char *root, ChassisDesc &out, std::string &error) {
    return load_chassis_file(std::string(root) + "/" + kDescriptionPath, out, error);
}

} // namespace gvsim
