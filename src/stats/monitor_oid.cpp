// Request OIDs of the three counter tables, as the sub-agent hands them in.
#include "gvutil/stats.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace {

struct TableOid {
    std::array<oid, 11> prefix; // the column's OID, column last
    std::size_t length;         // sub-identifiers up to and with the column
    int table;
    int first_column;
    int last_column;
};

// Looked at in this order; the first match decides.
constexpr std::array<TableOid, 3> kTables = {{
    {{1, 3, 6, 1, 2, 1, 16, 1, 1, 1, 0}, 11, GV_STATS_TABLE_RMON, 3, 19},
    {{1, 3, 6, 1, 2, 1, 2, 2, 1, 0, 0}, 10, GV_STATS_TABLE_IF, 9, 20},
    {{1, 3, 6, 1, 2, 1, 31, 1, 1, 1, 0}, 11, GV_STATS_TABLE_IFX, 2, 15},
}};

int sub_identifier(const oid *name, std::size_t length, std::size_t at) noexcept {
    // The row index is a 32-bit integer; a wider sub-identifier keeps its
    // low 32 bits.
    return at < length ? static_cast<int>(static_cast<std::uint32_t>(name[at])) : 0;
}

void put(int *out, int value) noexcept {
    if (out != nullptr) {
        *out = value;
    }
}

} // namespace

int gv_is_rmon_monitor_oid(const oid *name, size_t length, int *index, int *table,
                           int *column) noexcept {
    if (name == nullptr || (length != 11 && length != 12)) {
        return -1;
    }
    for (const TableOid &entry : kTables) {
        std::array<oid, 11> wanted = entry.prefix;
        for (int c = entry.first_column; c <= entry.last_column; ++c) {
            wanted[entry.length - 1] = static_cast<oid>(c);
            if (snmp_oid_compare(name, entry.length, wanted.data(), entry.length) == 0) {
                put(index, sub_identifier(name, length, entry.length));
                put(table, entry.table);
                put(column, c);
                return 0;
            }
        }
    }
    return -1;
}

void gv_display_oid_dump(const char *label, const oid *name, size_t length) noexcept {
    std::fprintf(stderr, "%s ", label != nullptr ? label : "(null)");
    for (std::size_t i = 0; name != nullptr && i < length; ++i) {
        if (i > 0) {
            std::fputc('.', stderr);
        }
        std::fprintf(stderr, "%d", static_cast<int>(name[i]));
    }
    std::fputc('\n', stderr);
}
