// Octet strings: copied as they are, no terminator either way.
#include "gvutil/ber.h"
#include "tlv.h"

#include <cstring>

uint8_t *snmp_build_string(uint8_t *p, int32_t *remaining, uint8_t type, const uint8_t *src,
                           int32_t len) noexcept {
    // An empty content needs no source: C++ callers hand on an empty
    // vector's null data().
    if (p == nullptr || remaining == nullptr || (src == nullptr && len != 0)) {
        return nullptr;
    }
    // From 128 octets on the header has no length octet; the content still
    // follows it. Callers keep their contents under 128 octets.
    p = snmp_build_header(p, remaining, type, len);
    if (p == nullptr || *remaining < len) {
        return nullptr;
    }
    if (len > 0) {
        std::memcpy(p, src, static_cast<std::size_t>(len));
    }
    *remaining -= len;
    return p + len;
}

const uint8_t *snmp_parse_string(const uint8_t *p, int32_t *remaining, uint8_t *type, uint8_t *out,
                                 int32_t *out_size) noexcept {
    if (p == nullptr || remaining == nullptr || type == nullptr || out == nullptr ||
        out_size == nullptr) {
        return nullptr;
    }
    // The type octet is taken before the count is looked at, even when it
    // is 0, as the integer parser does.
    std::uint32_t length = 0;
    if (!gvber::read_tlv(p, *remaining, type, &length) ||
        static_cast<std::int64_t>(length) > *out_size) {
        return nullptr;
    }
    std::memcpy(out, p + 2, length);
    *out_size = static_cast<int32_t>(length);
    *remaining -= static_cast<int32_t>(2 + length);
    return p + 2 + length;
}
