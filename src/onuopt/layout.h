// The shared segment's layout. Every process that maps the segment, whatever
// it was built from, reads these offsets, so they are pinned here.
#pragma once

#include "gvutil/onuopt.h"

#include <cstddef>

namespace gv::onuopt {

inline constexpr int kKey = GV_OPT_FORMAT_KEY;
inline constexpr std::size_t kSegmentSize = GV_OPT_FORMAT_SHM_SIZE;
inline constexpr int kPons = GV_OPT_FORMAT_PONS;
inline constexpr int kOnuRecords = GV_OPT_FORMAT_ONU_RECORDS;
inline constexpr int kMaxOnuId = GV_OPT_FORMAT_MAX_ONU_ID;
inline constexpr int kUnis = GV_OPT_FORMAT_UNIS;

inline constexpr std::size_t kPonsAt = 8;
inline constexpr std::size_t kPonSize = 119240;
inline constexpr std::size_t kOnusAt = 44;
inline constexpr std::size_t kOnuSize = 924;

static_assert(sizeof(opt_format_onu_t) == kOnuSize);
static_assert(offsetof(opt_format_onu_t, pon) == 0);
static_assert(offsetof(opt_format_onu_t, onu_id) == 4);
static_assert(offsetof(opt_format_onu_t, ident_addr) == 8);
static_assert(offsetof(opt_format_onu_t, unused) == 14);
static_assert(offsetof(opt_format_onu_t, num_of_uni) == 16);
static_assert(offsetof(opt_format_onu_t, learning_method) == 20);
static_assert(offsetof(opt_format_onu_t, description) == 21);
static_assert(offsetof(opt_format_onu_t, mac) == 150);
static_assert(offsetof(opt_format_onu_t, uni_description) == 156);

static_assert(sizeof(pon_red_info_t) == 20);
static_assert(offsetof(pon_red_info_t, master_pon) == 8);
static_assert(offsetof(pon_red_info_t, partner_pon) == 12);

static_assert(sizeof(opt_format_pon_t) == kPonSize);
static_assert(offsetof(opt_format_pon_t, pon) == 0);
static_assert(offsetof(opt_format_pon_t, red) == 4);
static_assert(offsetof(opt_format_pon_t, module_pn) == 24);
static_assert(offsetof(opt_format_pon_t, unused) == 40);
static_assert(offsetof(opt_format_pon_t, onu) == kOnusAt);

static_assert(sizeof(opt_format_db_t) == kSegmentSize);
static_assert(offsetof(opt_format_db_t, min_onu_id) == 0);
static_assert(offsetof(opt_format_db_t, display_sn) == 4);
static_assert(offsetof(opt_format_db_t, pon) == kPonsAt);
static_assert(kSegmentSize == kPonsAt + kPons * kPonSize);

// ONU id 129 is accepted although the records stop at 128: it addresses the
// first 924 bytes after the records, i.e. the head of the next PON record,
// and for the last PON the bytes just past the segment. Those still lie in
// the segment's last page, which the system maps whole (pages are 4 KiB or
// larger), so the shell's ONU 129 stays addressable there.
inline constexpr std::size_t onu_offset(int pon_index, int onu_id) noexcept {
    return kPonsAt + static_cast<std::size_t>(pon_index) * kPonSize + kOnusAt +
           static_cast<std::size_t>(onu_id) * kOnuSize;
}
static_assert(onu_offset(kPons - 1, kMaxOnuId) == kSegmentSize);
static_assert(kSegmentSize % 4096 + kOnuSize <= 4096);

} // namespace gv::onuopt
