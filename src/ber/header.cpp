// Lengths and tag-length headers. Only the one-octet length form exists
// here: the sub-agent's contents stay under 128 octets.
#include "gvutil/ber.h"
#include "tlv.h"

namespace {

constexpr std::int32_t kLongestShortForm = 127;

} // namespace

const uint8_t *snmp_parse_length(const uint8_t *p, uint32_t *len) noexcept {
    if (p == nullptr || len == nullptr) {
        return nullptr;
    }
    // A first octet of 0x80 or more is a count like any other, not the start
    // of the long form: peers that send long forms are not ours.
    *len = p[0];
    return p + 1;
}

uint8_t *snmp_build_length(uint8_t *p, int32_t *remaining, int32_t len) noexcept {
    if (p == nullptr || remaining == nullptr || len < 0) {
        return nullptr;
    }
    // Too long for the short form: nothing is written and the cursor stays,
    // so the header goes out without its length. Callers keep contents short.
    if (len > kLongestShortForm) {
        return p;
    }
    if (*remaining < 1) {
        return nullptr;
    }
    *p = static_cast<uint8_t>(len);
    --*remaining;
    return p + 1;
}

const uint8_t *snmp_parse_header(const uint8_t *p, int32_t *remaining, uint8_t *type) noexcept {
    if (p == nullptr || remaining == nullptr || type == nullptr || *remaining < 1) {
        return nullptr;
    }
    uint32_t length = 0;
    if (!gvber::read_tlv(p, *remaining, type, &length)) {
        return nullptr;
    }
    // The count becomes the content's length, not what is left after it:
    // callers walk into the content with it.
    *remaining = static_cast<int32_t>(length);
    return p + 2;
}

uint8_t *snmp_build_header(uint8_t *p, int32_t *remaining, uint8_t type, int32_t len) noexcept {
    if (p == nullptr || remaining == nullptr || *remaining < 1) {
        return nullptr;
    }
    *p = type;
    --*remaining;
    return snmp_build_length(p + 1, remaining, len);
}
