// The kernel drivers' control entries of a chassis root: responders that
// answer the library's text requests, the sensor control program they
// share state with, and that state.
#pragma once

#include "chassis_desc.h"

#include <string>

namespace gvsim {

// Writes the responders, bin/scontrol and their state files into the root
// dir; false with error set when a file cannot be written.
bool write_driver_responders(const ChassisDesc &desc, const std::string &dir, std::string &error);

} // namespace gvsim
