// Port bitmaps as management messages carry them: one big-endian octet
// string whose least significant bit is pnum 1.
#include "gvutil/sysport.h"

namespace {

constexpr int kSetOctets = GV_PORTSET_WORDS * 4; // 192

} // namespace

int convert_octet2portset_t(const unsigned char *octets, int length, portset_t *set) noexcept {
    if (octets == nullptr || set == nullptr || length < 0 || length > kSetOctets) {
        return 0;
    }
    const int words = (length + 3) / 4;
    for (int k = 0; k < words; ++k) {
        // The four octets ending here, the last of them the low byte; octets
        // before the start of the string count as zero.
        const int end = length - 1 - 4 * k;
        uint32_t word = 0;
        for (int b = 0; b < 4 && end - b >= 0; ++b) {
            word |= static_cast<uint32_t>(octets[end - b]) << (8 * b);
        }
        set->bits[k] = word;
    }
    return words;
}

int convert_portset_t2octet(const portset_t *set, unsigned char *out, int size) noexcept {
    if (set == nullptr || out == nullptr || size < kSetOctets) {
        return 0;
    }
    int written = 0;
    for (int k = GV_PORTSET_WORDS - 1; k >= 0; --k) {
        for (int b = 3; b >= 0; --b) {
            const auto octet = static_cast<unsigned char>(set->bits[k] >> (8 * b));
            if (written > 0 || octet != 0) {
                out[written++] = octet;
            }
        }
    }
    // A set that needs all 192 octets gets its terminator only when the
    // caller's output has room for it.
    if (written > 0 && written < size) {
        out[written] = 0;
    }
    return written;
}
