// Chassis descriptions of the host simulation.
//
// A description (sim/chassis/NAME.chassis) is the model data of one chassis in readable form.
// The generator turns it into a chassis root: the directory tree that GVUTIL_ROOT names, holding
// the kernel's model record, the /proc and /etc files of the board and a normalised copy of the
// description (sim/chassis) from which the host platform services read the chassis back.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace gvsim {

inline constexpr int kMaxSlots = 33;                 // ports_per_slot entries in the model record
inline constexpr int kSfuSlot = 3;                   // real slot of the switch-fabric unit
inline constexpr int kMaxPorts = 1536;               // capacity of a port bitmap
inline constexpr std::size_t kModelNameMax = 41;     // char[42] in the record
inline constexpr std::size_t kRealModelNameMax = 21; // char[22] in the record
inline constexpr std::size_t kInfoTextMax = 63;      // /proc/system values land in char[64]
inline constexpr std::size_t kModelRecordSize = 308; // reply of /proc/shape/ioctrl
inline constexpr int kVendorFunctionBits = 96;
inline constexpr int kMaxFanSlots = 8;
inline constexpr int kMaxPowerSlots = 4;

// Fan trays and power supplies as the shelf controller reports them.
enum class UnitState : std::uint8_t { absent, installed, fault };

struct SlotDesc {
    int card_type = 0; // line-card type code; 0 = empty slot
    int ports = 0;
    bool operator==(const SlotDesc &) const = default;
};

// Front-panel ports of a slotless box, in pnum order.
struct PortGroup {
    int card_type = 0;
    int ports = 0;
    bool operator==(const PortGroup &) const = default;
};

struct ShelfUnit {
    int index = 0; // fan or power slot, from 1
    UnitState state = UnitState::absent;
    bool operator==(const ShelfUnit &) const = default;
};

struct ChassisDesc {
    std::string model_name;      // shown to the user
    std::string real_model_name; // board identity, e.g. "K7400A_SFU"
    std::string system_model;    // "Model Name" of /proc/system; model_name unless given
    int model_code = 0;          // what getModel() answers
    int l3 = 0;                  // l3_enabled byte
    int dual_os = 0;             // dual_os byte
    int default_os = 1;          // image booted by default: 1 or 2

    int slot_count = 0;
    std::array<SlotDesc, kMaxSlots> slots{}; // slots[i] is real slot i+1
    std::vector<PortGroup> groups;           // slotless boxes only
    int interlink = 0;                       // port count kind 6
    int logical_ports = 0;                   // kind 2: trunk/channel-group capacity
    int channel_groups = 0;                  // kind 9

    int sfu_board_id = 1;          // which SFU we are: 1 or 2
    bool sfu_mate = true;          // the other SFU is fitted
    std::vector<ShelfUnit> fans;   // sorted by index
    std::vector<ShelfUnit> powers; // sorted by index

    std::string hw_revision;
    std::string sw_version;
    std::string bl_version;
    std::string serial;
    std::uint32_t vendor_id = 0; // target vendor (site) code; 16 is the OEM "Harlen"
    std::bitset<kVendorFunctionBits> vendor_functions;
    int config_version = 0; // !configdb_version of ZebOS.conf; 0 writes no version line
    int chassis_type = -1;  // /proc/shelf/chassis_type; -1 writes no file

    // Port counts by kind, derived from the above (kind 3 has no meaning and stays 0).
    std::array<std::int32_t, 10> kind{};

    bool operator==(const ChassisDesc &) const = default;
};

// Parses a description. On failure `error` reads "line N: ..." (or "end of description: ..."
// for something missing) and `out` is unspecified.
bool parse_chassis(std::string_view text, ChassisDesc &out, std::string &error);

// The canonical text of a description; parse_chassis() gives the same ChassisDesc back.
std::string format_chassis(const ChassisDesc &desc);

// Reads and parses a description file; errors are prefixed with the path.
bool load_chassis_file(const std::string &path, ChassisDesc &out, std::string &error);

// The 308-byte model record as the switch kernel module hands it out (big-endian).
std::array<std::uint8_t, kModelRecordSize> encode_model_record(const ChassisDesc &desc);

// Creates (or refreshes) the chassis root `dir`.
bool write_root(const ChassisDesc &desc, const std::string &dir, std::string &error);

// Reads the description back from a root made by write_root().
bool load_root_chassis(const char *root, ChassisDesc &out, std::string &error);

// The description compiled into the tools, used when no root is given.
std::string_view default_chassis_name() noexcept;
std::string_view default_chassis_text() noexcept;

} // namespace gvsim
