// Octet strings as management messages carry them, and the integers they
// stand for: plain big-endian numbers, and the bit-reversed word lists.
#include "gvutil/sys.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int kWordBytes = 4;

constexpr unsigned char reversed(unsigned char byte) noexcept {
    unsigned char out = 0;
    for (int bit = 0; bit < 8; ++bit) {
        out = static_cast<unsigned char>(out | (((byte >> bit) & 1U) << (7 - bit)));
    }
    return out;
}

} // namespace

int convert_octet2int(const unsigned char *octets, int count, uint32_t *value) noexcept {
    if (octets == nullptr || value == nullptr || count < 0) {
        return 0;
    }
    uint32_t word = 0;
    for (int i = 0; i < std::min(count, kWordBytes); ++i) {
        word = (word << 8) | octets[i];
    }
    *value = word;
    return 0;
}

int convert_int2octet(unsigned char *octets, int count, uint32_t value) noexcept {
    if (octets == nullptr || count < 0) {
        return 0;
    }
    const int bytes = std::min(count, kWordBytes);
    for (int i = bytes - 1; i >= 0; --i, value >>= 8) {
        octets[i] = static_cast<unsigned char>(value);
    }
    return 0;
}

// Groups of four octets fill the words from the last one back; inside a
// group octet j, bit-reversed, is the word's byte j from the low end.
int convert_octet2int_ext(const unsigned char *octets, int count, uint32_t *words,
                          int word_count) noexcept {
    if (octets == nullptr || words == nullptr || count < 0 || word_count < 0) {
        return 0;
    }
    int word = word_count - 1;
    for (int group = 0; group < count && word >= 0; group += kWordBytes, --word) {
        uint32_t value = 0;
        for (int j = 0; j < kWordBytes && group + j < count; ++j) {
            value |= static_cast<uint32_t>(reversed(octets[group + j])) << (8 * j);
        }
        words[word] = value;
    }
    return 0;
}

// The inverse walk. Octets past the words are left as they were, and the
// length is that of the output read as a text, up to its first zero octet:
// callers take it so.
int convert_int2octet_ext(const uint32_t *words, int word_count, unsigned char *out,
                          int size) noexcept {
    if (words == nullptr || out == nullptr || word_count < 0 || size <= 0) {
        return 0;
    }
    int written = 0;
    for (int word = word_count - 1; word >= 0 && written < size - 1; --word) {
        for (int j = 0; j < kWordBytes && written < size - 1; ++j) {
            out[written++] = reversed(static_cast<unsigned char>(words[word] >> (8 * j)));
        }
    }
    out[size - 1] = 0;
    return static_cast<int>(std::strlen(reinterpret_cast<const char *>(out)));
}

void reverse_bit(unsigned char *bytes, int count) noexcept {
    for (int i = 0; bytes != nullptr && i < count; ++i) {
        bytes[i] = reversed(bytes[i]);
    }
}
