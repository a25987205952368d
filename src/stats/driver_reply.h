// The switch driver's statistics replies read into a port's record. The
// driver writes each counter as "Name : value", two to a line; a keyword's
// first occurrence in the reply is where its line is read from.
#pragma once

#include "gvutil/stats.h"

namespace gv::stats {

// The reply to "interface-snmp N": interface and extended counters. Fields
// whose keyword is missing keep their values.
void scan_interface_reply(const char *reply, gv_if_stats_t &record) noexcept;

// The reply to "rmon-snmp N": the RMON counters.
void scan_rmon_reply(const char *reply, gv_if_stats_t &record) noexcept;

} // namespace gv::stats
