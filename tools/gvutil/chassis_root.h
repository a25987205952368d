// Which chassis root the tool runs on.
#pragma once

namespace gvtool {

// Points GVUTIL_ROOT at root when given; otherwise keeps a GVUTIL_ROOT from
// the environment, and with neither writes the embedded default chassis into
// a temporary root that is removed at exit. False when no root can be had.
bool select_chassis_root(const char *root);

} // namespace gvtool
