// Typed reads of the loaded model record, shared by the numbering code.
#pragma once

#include "gvutil/model.h"
#include "model/byte_order.h"

#include <cstddef>
#include <cstdint>

namespace gv::model {

static_assert(sizeof(gv_model_info_t) == 308, "the model record is a fixed kernel reply");
static_assert(offsetof(gv_model_info_t, real_model_name) == 42);
static_assert(offsetof(gv_model_info_t, l3_enabled) == 64);
static_assert(offsetof(gv_model_info_t, dual_os) == 65);
static_assert(offsetof(gv_model_info_t, port_count) == 136);
static_assert(offsetof(gv_model_info_t, slot_count) == 172);
static_assert(offsetof(gv_model_info_t, ports_per_slot) == 176);

// Sums and differences of the record's counts and of pnums wrap as the
// chassis' 32-bit arithmetic wraps them: a record the kernel really sends
// never comes near, and any other record must not stop the caller.
constexpr int wrap_add(int a, int b) noexcept {
    return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
constexpr int wrap_sub(int a, int b) noexcept {
    return static_cast<int>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

// Port count kinds as the record numbers them.
enum Kind : unsigned {
    kTotalPorts = 0,
    kPhysicalPorts = 1,
    kLogicalCapacity = 2,
    kInterlinkBase = 5,
    kInterlinkPorts = 6,
    kChannelGroups = 9,
};

// The port count of a kind; 0 for kinds with no field (3, above 9).
int port_count(unsigned kind) noexcept;

inline int slot_count() noexcept {
    return load_be32(g_model.slot_count);
}

// The logical slot (channel groups and trunks) follows the last line slot.
inline int logical_slot() noexcept {
    return wrap_add(slot_count(), 1);
}

// Ports of slot entry index (slot - 1). Entries outside the record read as
// empty, so an out-of-range slot never reaches past the record.
inline int ports_at(int index) noexcept {
    if (index < 0 || index >= GV_MODEL_SLOT_ENTRIES) {
        return 0;
    }
    return load_be32(g_model.ports_per_slot[index]);
}

// Line-card slots the record really describes (slot_count, within the record).
inline int described_slots() noexcept {
    const int slots = slot_count();
    return slots < GV_MODEL_SLOT_ENTRIES ? slots : GV_MODEL_SLOT_ENTRIES;
}

} // namespace gv::model
