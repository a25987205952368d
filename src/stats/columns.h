// Which counter of a record answers a table's column.
#pragma once

#include "gvutil/stats.h"

#include <cstdint>

namespace gv::stats {

// The counter for table 1, 2 or 3 and its column; 0 for anything else.
std::uint64_t column_value(const gv_if_stats_t &record, int table, int column) noexcept;

} // namespace gv::stats
