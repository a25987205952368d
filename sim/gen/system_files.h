// The system utilities' side of a chassis root: the log-level channel and its
// thresholds, the remote-control and df fakes, and the /proc files of slot
// liveness, mirroring, uptime and the MAC table.
#pragma once

#include "chassis_desc.h"

#include <string>

namespace gvsim {

// Writes them into the root dir; false with error set when a file cannot be
// written.
bool write_system_files(const ChassisDesc &desc, const std::string &dir, std::string &error);

// Their contents, one function per file.
std::string loglevel_state_text();                   // sim/loglevel
std::string all_info_text(const ChassisDesc &desc);  // proc/all_info
std::string mirror_text(const ChassisDesc &desc);    // proc/switch/mirror
std::string mac_table_text(const ChassisDesc &desc); // proc/switch/mac_table

} // namespace gvsim
