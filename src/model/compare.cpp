// Ascending comparators for qsort and the two membership tests.
#include "gvutil/model.h"

#include <cstring>

namespace {

template <typename T> int three_way(const void *a, const void *b) noexcept {
    T x;
    T y;
    std::memcpy(&x, a, sizeof x);
    std::memcpy(&y, b, sizeof y);
    return x > y ? 1 : (x < y ? -1 : 0);
}

} // namespace

int compare_br_id(const void *a, const void *b) noexcept {
    return three_way<uint16_t>(a, b);
}

int compare_onuid(const void *a, const void *b) noexcept {
    return three_way<uint8_t>(a, b);
}

int compare_gemport(const void *a, const void *b) noexcept {
    return three_way<uint32_t>(a, b);
}

int compare_port(const void *a, const void *b) noexcept {
    return three_way<uint32_t>(a, b);
}

int compare_int(const void *a, const void *b) noexcept {
    return three_way<int32_t>(a, b);
}

int is_port_set(const uint32_t *list, int count, uint32_t value) noexcept {
    for (int i = 0; list != nullptr && i < count; ++i) {
        if (list[i] == value) {
            return 1;
        }
    }
    return 0;
}

// Answers in the inverted sense, 0 when present: its callers test for that.
int id_in_list(const int32_t *list, int count, int32_t value) noexcept {
    for (int i = 0; list != nullptr && i < count; ++i) {
        if (list[i] == value) {
            return 0;
        }
    }
    return 1;
}
