// The model record of /proc/shape/ioctrl, laid out as the switch kernel module replies.
#include "big_endian.h"
#include "chassis_desc.h"

#include <iterator>

namespace gvsim {
namespace {

constexpr std::size_t kModelNameAt = 0;
constexpr std::size_t kModelNameWidth = 42;
constexpr std::size_t kRealModelNameAt = 42;
constexpr std::size_t kRealModelNameWidth = 22;
constexpr std::size_t kL3At = 64;
constexpr std::size_t kDualOsAt = 65;
constexpr std::size_t kKindsAt = 136;
constexpr std::size_t kSlotCountAt = 172;
constexpr std::size_t kPortsPerSlotAt = 176;

static_assert(kModelNameWidth == kModelNameMax + 1);
static_assert(kRealModelNameWidth == kRealModelNameMax + 1);
static_assert(kRealModelNameAt + kRealModelNameWidth == kL3At);
static_assert(kPortsPerSlotAt + std::size_t{4} * kMaxSlots == kModelRecordSize);

// Kinds in record order; the module keeps kind 7 ahead of kind 6. Kind 3 has no field.
constexpr int kKindOrder[] = {0, 1, 2, 4, 5, 7, 6, 8, 9};
static_assert(kKindsAt + 4 * std::size(kKindOrder) == kSlotCountAt);

} // namespace

std::array<std::uint8_t, kModelRecordSize> encode_model_record(const ChassisDesc &desc) {
    std::array<std::uint8_t, kModelRecordSize> record{};
    store_text(record, kModelNameAt, kModelNameWidth, desc.model_name);
    store_text(record, kRealModelNameAt, kRealModelNameWidth, desc.real_model_name);
    record[kL3At] = static_cast<std::uint8_t>(desc.l3);
    record[kDualOsAt] = static_cast<std::uint8_t>(desc.dual_os);
    // Bytes 66..135 belong to the module and read as zero on every board we ship.
    std::size_t at = kKindsAt;
    for (int kind : kKindOrder) {
        store_be32(record, at,
                   static_cast<std::uint32_t>(desc.kind[static_cast<std::size_t>(kind)]));
        at += 4;
    }
    store_be32(record, kSlotCountAt, static_cast<std::uint32_t>(desc.slot_count));
    for (int s = 0; s < desc.slot_count; ++s) {
        store_be32(record, kPortsPerSlotAt + 4 * static_cast<std::size_t>(s),
                   static_cast<std::uint32_t>(desc.slots[static_cast<std::size_t>(s)].ports));
    }
    return record;
}

} // namespace gvsim
