// The shell's slot/port lists into a bounded store, for the parsers that
// turn them into something else (pnum lists).
#pragma once

#include "cli/range_sink.h"
#include "gvutil/cli.h"
#include "gvutil/platform.h"

#include <cstdint>

namespace gv::cli {

// get_slot_port_token into out; ranges beyond its capacity are dropped.
int read_shell_slot_ports(const char *text, RangeSink<slot_port_range> &out, cli_ctx *ctx,
                          uint32_t *errs) noexcept;

} // namespace gv::cli
