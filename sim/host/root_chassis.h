// The chassis of the current GVUTIL_ROOT, read once per root.
#pragma once

#include "chassis_desc.h"

namespace gvsim {

// The description of the root GVUTIL_ROOT names now; null without a root or
// when the root holds no readable description.
const ChassisDesc *root_chassis() noexcept;

} // namespace gvsim
