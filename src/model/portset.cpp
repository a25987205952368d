// Port bitmaps (1-based ports) and plain bit arrays (0-based bits).
//
// Callers are meant to stay within range; a port outside 1..1536 or a
// negative bit is ignored (and reads as clear) rather than landing outside
// the caller's memory.
#include "gvutil/model.h"

#include <cstring>

namespace {

constexpr uint32_t mask_of(int bit) noexcept {
    return uint32_t{1} << (bit % 32);
}

constexpr bool in_portset(int port) noexcept {
    return port >= 1 && port <= GV_PORTSET_MAX_PORT;
}

} // namespace

portset_t *ps_zero(portset_t *set) noexcept {
    std::memset(set, 0, sizeof *set);
    return set;
}

void ps_set(portset_t *set, int port) noexcept {
    if (in_portset(port)) {
        ::set(set->bits, port - 1);
    }
}

void ps_clear(portset_t *set, int port) noexcept {
    if (in_portset(port)) {
        clr(set->bits, port - 1);
    }
}

int ps_isset(const portset_t *set, int port) noexcept {
    return in_portset(port) && chk(set->bits, port - 1) != 0 ? 1 : 0;
}

void ps_or(portset_t *dst, const portset_t *src) noexcept {
    for (int i = 0; i < GV_PORTSET_WORDS; ++i) {
        dst->bits[i] |= src->bits[i];
    }
}

void set(uint32_t *words, int n) noexcept {
    if (n >= 0) {
        words[n / 32] |= mask_of(n);
    }
}

void clr(uint32_t *words, int n) noexcept {
    if (n >= 0) {
        words[n / 32] &= ~mask_of(n);
    }
}

uint32_t chk(const uint32_t *words, int n) noexcept {
    return n >= 0 ? words[n / 32] & mask_of(n) : 0;
}
