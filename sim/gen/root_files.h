// Contents of the board files in a chassis root, one function per file.
#pragma once

#include "chassis_desc.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace gvsim {

inline constexpr std::size_t kBoardInfoSize = 1980; // /proc/boardinfo/raw
inline constexpr std::size_t kSwitchMapSize = 776;  // reply on /proc/switch/misc/ioctrl

std::string system_info_text(const ChassisDesc &desc); // /proc/system, /proc/sysinfo
std::string bootcfg_text(const ChassisDesc &desc);     // /proc/bootcfg
std::string ossel_text(const ChassisDesc &desc);       // /proc/ossel/ctrl (dual-OS boards)
std::string zebos_conf_text(const ChassisDesc &desc);  // /etc/ZebOS.conf
std::string eqm_conf_text(const ChassisDesc &desc);    // /etc/eqm.conf
std::string fan_status_text(UnitState state);          // /proc/shelf/fan_slotNN/status
std::string power_status_text(UnitState state);        // /proc/shelf/power_slotNN/status
std::array<std::uint8_t, kBoardInfoSize> board_info_record(const ChassisDesc &desc);
std::array<std::uint8_t, kSwitchMapSize> switch_map_reply(const ChassisDesc &desc);

} // namespace gvsim
