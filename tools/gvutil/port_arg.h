// Port arguments as engineers type them: a user SLOT/PORT or a flat pnum.
#pragma once

namespace gvtool {

// Splits "SLOT/PORT" into a user slot and port; false when it is not that form.
bool parse_slot_port(const char *text, int &user_slot, int &port);

// The pnum of "SLOT/PORT" (a port of this chassis) or of a bare pnum; -1 when
// it names neither.
int parse_port(const char *text);

} // namespace gvtool
