// The pnum arithmetic the text forms of a port share: physical ports first
// (1..kind 1), then the logical slot's ports up to kind 0, channel groups
// before type-B trunks; nothing above kind 0.
#pragma once

#include "model/model_record.h"

namespace gv::porttext {

struct PnumCounts {
    int total;
    int physical;
    int capacity;
    int interlink;
    int groups;

    static PnumCounts load() noexcept {
        using namespace gv::model;
        return {port_count(kTotalPorts), port_count(kPhysicalPorts), port_count(kLogicalCapacity),
                port_count(kInterlinkPorts), port_count(kChannelGroups)};
    }
    bool is_physical(int pnum) const noexcept { return pnum <= physical; }
    bool is_beyond(int pnum) const noexcept { return pnum > total; }
    // The port within the logical slot of a pnum past the physical ones.
    int logical_number(int pnum) const noexcept {
        return gv::model::wrap_sub(gv::model::wrap_sub(pnum, physical), interlink);
    }
};

// The real slot and port behind a type-B trunk pnum: the platform names the
// fabric port behind the trunk (its low 16 bits) and where that port sits.
void map_type_b_trunk(int pnum, int &slot, int &port) noexcept;

// Writes text and its terminator at dest; the caller sized dest.
void put_text(char *dest, const char *text) noexcept;

} // namespace gv::porttext
