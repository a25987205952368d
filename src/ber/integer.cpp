// 32-bit integers in the fewest two's-complement octets.
#include "gvutil/ber.h"
#include "tlv.h"

namespace {

constexpr std::uint32_t kTopNineBits = 0xff800000u;

// Octets needed for bits: an octet can go while the top nine bits are all
// equal, since the next octet then repeats the sign. One always stays.
// Leaves bits shifted so that its first octet to send is the top one.
int shrink(std::uint32_t &bits) noexcept {
    int octets = GV_BER_INT_SIZE;
    while (octets > 1 && ((bits & kTopNineBits) == 0 || (bits & kTopNineBits) == kTopNineBits)) {
        bits <<= 8;
        --octets;
    }
    return octets;
}

} // namespace

const uint8_t *snmp_parse_int(const uint8_t *p, int32_t *remaining, uint8_t *type, int32_t *value,
                              int size) noexcept {
    if (p == nullptr || remaining == nullptr || type == nullptr || value == nullptr ||
        size != GV_BER_INT_SIZE) {
        return nullptr;
    }
    std::uint32_t length = 0;
    if (!gvber::read_tlv(p, *remaining, type, &length) || length > GV_BER_INT_SIZE) {
        return nullptr;
    }
    const std::uint8_t *content = p + 2;
    // The sign comes from the first content octet, read even when the
    // length is 0: an empty integer is 0 or -1 by the octet after it.
    std::uint32_t bits = (content[0] & 0x80u) != 0 ? 0xffffffffu : 0;
    for (std::uint32_t i = 0; i < length; ++i) {
        bits = (bits << 8) | content[i];
    }
    *value = static_cast<int32_t>(bits);
    *remaining -= static_cast<int32_t>(2 + length);
    return content + length;
}

uint8_t *snmp_build_int(uint8_t *p, int32_t *remaining, uint8_t type, const int32_t *value,
                        int size) noexcept {
    if (p == nullptr || remaining == nullptr || value == nullptr || size != GV_BER_INT_SIZE) {
        return nullptr;
    }
    std::uint32_t bits = static_cast<std::uint32_t>(*value);
    const int octets = shrink(bits);
    p = snmp_build_header(p, remaining, type, octets);
    if (p == nullptr || *remaining < octets) {
        return nullptr;
    }
    for (int i = 0; i < octets; ++i) {
        *p++ = static_cast<std::uint8_t>(bits >> 24);
        bits <<= 8;
    }
    *remaining -= octets;
    return p;
}
