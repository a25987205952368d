#include "stats/columns.h"

#include <array>
#include <span>

namespace gv::stats {

namespace {

using Field = std::uint64_t gv_if_stats_t::*;
using R = gv_if_stats_t;

struct Table {
    int first_column;
    std::span<const Field> fields; // the counter of first_column, first_column + 1, ...
};

constexpr std::array<Field, 12> kInterface = {
    &R::last_change,    &R::in_octets,       &R::in_ucast_pkts,     &R::in_nucast_pkts,
    &R::in_discards,    &R::in_errors,       &R::in_unknown_protos, &R::out_octets,
    &R::out_ucast_pkts, &R::out_nucast_pkts, &R::out_discards,      &R::out_errors,
};

// The 32-bit multicast and broadcast columns and their high-capacity twins
// answer the same counters.
constexpr std::array<Field, 12> kExtended = {
    &R::in_multicast_pkts, &R::in_broadcast_pkts, &R::out_multicast_pkts, &R::out_broadcast_pkts,
    &R::hc_in_octets,      &R::hc_in_ucast_pkts,  &R::in_multicast_pkts,  &R::in_broadcast_pkts,
    &R::hc_out_octets,     &R::hc_out_ucast_pkts, &R::out_multicast_pkts, &R::out_broadcast_pkts,
};

constexpr std::array<Field, 17> kRmon = {
    &R::drop_events,
    &R::octets,
    &R::pkts,
    &R::broadcast_pkts,
    &R::multicast_pkts,
    &R::crc_align_errors,
    &R::undersize_pkts,
    &R::oversize_pkts,
    &R::fragments,
    &R::jabbers,
    &R::collisions,
    &R::pkts_64_octets,
    &R::pkts_65_to_127_octets,
    &R::pkts_128_to_255_octets,
    &R::pkts_256_to_511_octets,
    &R::pkts_512_to_1023_octets,
    &R::pkts_1024_to_1518_octets,
};

constexpr std::array<Table, 3> kTables = {
    Table{GV_IF_COL_LAST_CHANGE, kInterface},
    Table{GV_IFX_COL_IN_MULTICAST_PKTS, kExtended},
    Table{GV_RMON_COL_DROP_EVENTS, kRmon},
};

} // namespace

std::uint64_t column_value(const gv_if_stats_t &record, int table, int column) noexcept {
    if (table < GV_STATS_TABLE_IF || table > GV_STATS_TABLE_RMON) {
        return 0;
    }
    const Table &columns = kTables[static_cast<std::size_t>(table - 1)];
    const int slot = column - columns.first_column;
    if (slot < 0 || static_cast<std::size_t>(slot) >= columns.fields.size()) {
        return 0;
    }
    return record.*columns.fields[static_cast<std::size_t>(slot)];
}

} // namespace gv::stats
