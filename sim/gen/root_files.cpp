#include "root_files.h"

#include "big_endian.h"
#include "chassis_rules.h"

#include <cstdio>

namespace gvsim {
namespace {

std::string info_line(std::string_view label, std::string_view value) {
    std::string line(label);
    line.resize(16, ' ');
    return line + ": " + std::string(value) + "\n";
}

int default_os_code(const ChassisDesc &desc) {
    return desc.default_os == 2 ? 0x31 : 0x30;
}

// Board information record: the fields in front of the vendor block are ours to lay out.
constexpr std::size_t kBoardMagicAt = 0;
constexpr std::size_t kBoardLayoutAt = 4;
constexpr std::size_t kBoardNameAt = 8;
constexpr std::size_t kBoardSerialAt = 32;
constexpr std::size_t kBoardHwAt = 64;
constexpr std::size_t kBoardBlAt = 80;
constexpr std::size_t kBoardIdAt = 96;
constexpr std::size_t kVendorIdAt = 424;
constexpr std::size_t kVendorMaskAt = 428; // bits 64..95, 32..63, 0..31

constexpr std::size_t kMapCommandAt = 0;
constexpr std::size_t kMapWidth = 192;
constexpr std::size_t kPifMapAt[2] = {8, 200};
constexpr std::size_t kBridgeMapAt[2] = {392, 584};
static_assert(kBridgeMapAt[1] + kMapWidth == kSwitchMapSize);

} // namespace

std::string system_info_text(const ChassisDesc &desc) {
    std::string text = info_line("Model Name", desc.system_model);
    text += info_line("Board Name", desc.real_model_name);
    const std::pair<std::string_view, const std::string *> infos[] = {
        {"H/W Revision", &desc.hw_revision},
        {"NOS Version", &desc.sw_version},
        {"B/L Version", &desc.bl_version},
        {"Serial Number", &desc.serial},
    };
    for (const auto &[label, value] : infos) {
        if (!value->empty()) {
            text += info_line(label, *value);
        }
    }
    text += info_line("SFU Board ID", std::to_string(desc.sfu_board_id));
    return text;
}

std::string bootcfg_text(const ChassisDesc &desc) {
    char code[8];
    std::snprintf(code, sizeof code, "%x", default_os_code(desc));
    std::string text = "boot-device : flash0\n";
    text += "default-os : " + std::string(code) + "\n";
    text += "os1-image : nos-os1.bin\n";
    if (desc.dual_os != 0) {
        text += "os2-image : nos-os2.bin\n";
    }
    return text;
}

std::string ossel_text(const ChassisDesc &desc) {
    const std::string os = desc.default_os == 2 ? "os2" : "os1";
    return "current : " + os + "\nnext : " + os + "\n";
}

std::string zebos_conf_text(const ChassisDesc &desc) {
    std::string text = "!\n! Zebos configuration\n!\n";
    if (desc.config_version != 0) {
        text += "!configdb_version " + std::to_string(desc.config_version) + "\n!\n";
    }
    return text + "hostname " + desc.real_model_name + "\n!\nend\n";
}

// One line per fitted line card: "slot <slot> <card type> <ports> <admin state>". The SFU slot
// is not the equipment manager's: the redundancy controller reports the SFUs.
std::string eqm_conf_text(const ChassisDesc &desc) {
    std::string text;
    for (int s = 1; s <= desc.slot_count; ++s) {
        const SlotDesc &slot = desc.slots[static_cast<std::size_t>(s - 1)];
        if (s == kSfuSlot || slot.card_type == 0) {
            continue;
        }
        text += "slot " + std::to_string(s) + " " + std::to_string(slot.card_type) + " " +
                std::to_string(slot.ports) + " 1\n";
    }
    return text;
}

std::string fan_status_text(UnitState state) {
    switch (state) {
    case UnitState::installed:
        return "Status : Installed\nSpeed : 5400 rpm\nAlarm : none\n";
    case UnitState::fault:
        return "Status : Installed\nSpeed : 0 rpm\nAlarm : fan stopped\n";
    case UnitState::absent:
        break;
    }
    return "Status : Absent\n";
}

std::string power_status_text(UnitState state) {
    switch (state) {
    case UnitState::installed:
        return "Status : Installed\nOutput : 12.0 V\nAlarm : none\n";
    case UnitState::fault:
        return "Status : Installed\nOutput : 0.0 V\nAlarm : output failure\n";
    case UnitState::absent:
        break;
    }
    return "Status : Absent\n";
}

std::array<std::uint8_t, kBoardInfoSize> board_info_record(const ChassisDesc &desc) {
    std::array<std::uint8_t, kBoardInfoSize> record{};
    store_text(record, kBoardMagicAt, 5, "GVBI");
    store_be32(record, kBoardLayoutAt, 1);
    store_text(record, kBoardNameAt, kRealModelNameMax + 1, desc.real_model_name);
    store_text(record, kBoardSerialAt, 32, desc.serial);
    store_text(record, kBoardHwAt, 16, desc.hw_revision);
    store_text(record, kBoardBlAt, 16, desc.bl_version);
    store_be32(record, kBoardIdAt, static_cast<std::uint32_t>(desc.sfu_board_id));
    store_be32(record, kVendorIdAt, desc.vendor_id);
    for (std::size_t word = 0; word < 3; ++word) {
        std::uint32_t bits = 0;
        const std::size_t first = 32 * (2 - word); // lowest word last
        for (std::size_t bit = 0; bit < 32; ++bit) {
            if (desc.vendor_functions.test(first + bit)) {
                bits |= std::uint32_t{1} << bit;
            }
        }
        store_be32(record, kVendorMaskAt + 4 * word, bits);
    }
    return record;
}

// Port-interface maps: one byte per pnum holding its interface code. Bridge maps: one byte per
// pnum, 1 for a member of the default bridge (mode 0: Ethernet ports, otherwise every port).
std::array<std::uint8_t, kSwitchMapSize> switch_map_reply(const ChassisDesc &desc) {
    std::array<std::uint8_t, kSwitchMapSize> reply{};
    store_be32(reply, kMapCommandAt, 1);
    const bool k7400a = is_k7400a_board(desc);
    for_each_physical_port(desc, [&](int pnum, int card_type, int port) {
        const auto index = static_cast<std::size_t>(pnum - 1);
        if (index >= kMapWidth) {
            return;
        }
        const int code = card_port_interface(card_type, port, k7400a);
        for (unsigned long mode : kPifMapAt) {
            reply[mode + index] = static_cast<std::uint8_t>(code);
        }
        reply[kBridgeMapAt[0] + index] = is_ethernet_interface(code) ? 1 : 0;
        reply[kBridgeMapAt[1] + index] = 1;
    });
    return reply;
}

} // namespace gvsim
