// The type and length octets that open every TLV the parsers read.
#pragma once

#include "gvutil/ber.h"

#include <cstdint>

namespace gvber {

// Stores the type octet at p, then reads the length octet after it; false
// when the whole TLV (two header octets and the content) does not fit in
// remaining. The type is stored before remaining is looked at, even when
// nothing remains: callers of the value parsers find it set on failure too.
// With fewer than two octets no length can fit, so the length octet is not
// read then.
inline bool read_tlv(const std::uint8_t *p, std::int32_t remaining, std::uint8_t *type,
                     std::uint32_t *length) noexcept {
    *type = p[0];
    if (remaining < 2) {
        return false;
    }
    snmp_parse_length(p + 1, length);
    return 2 + static_cast<std::int64_t>(*length) <= remaining;
}

} // namespace gvber
