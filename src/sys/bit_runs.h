// Runs of members in a bitmap of 32-bit words, bit n of the map being bit
// n % 32 of word n / 32: filled and found a whole word at a time, so a set
// of 4094 VLANs costs what its runs cost, not what its ids cost. The words
// are values in the machine's own order; no byte of them is looked at.
#pragma once

#include "sys/runs.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace gv::sys {

inline constexpr unsigned kWordBits = 32;
inline constexpr uint32_t kAllBits = ~uint32_t{0};

// Sets bits first..last (inclusive, 0 <= first <= last, both within the map).
inline void set_bit_range(uint32_t *words, int first, int last) noexcept {
    const auto first_bit = static_cast<unsigned>(first);
    const auto last_bit = static_cast<unsigned>(last);
    unsigned word = first_bit / kWordBits;
    const unsigned last_word = last_bit / kWordBits;
    const uint32_t head = kAllBits << (first_bit % kWordBits);
    const uint32_t tail = kAllBits >> (kWordBits - 1 - last_bit % kWordBits);
    if (word == last_word) {
        words[word] |= head & tail;
        return;
    }
    words[word++] |= head;
    // Most ranges span a few whole words: stored one by one they cost less
    // than a call to memset, which only pays for longer stretches.
    constexpr unsigned kShortFill = 4;
    const unsigned whole = last_word - word;
    if (whole > kShortFill) {
        std::memset(words + word, 0xFF, whole * sizeof *words);
    } else {
        switch (whole) {
        case 4:
            words[word + 3] = kAllBits;
            [[fallthrough]];
        case 3:
            words[word + 2] = kAllBits;
            [[fallthrough]];
        case 2:
            words[word + 1] = kAllBits;
            [[fallthrough]];
        case 1:
            words[word] = kAllBits;
            [[fallthrough]];
        default:
            break;
        }
    }
    words[last_word] |= tail;
}

// The first set bit from bit `from` on, or `end` when there is none before
// it (0 <= from).
inline int next_set_bit(const uint32_t *words, int from, int end) noexcept {
    for (auto bit = static_cast<unsigned>(from); static_cast<int>(bit) < end;) {
        const uint32_t rest = words[bit / kWordBits] >> (bit % kWordBits);
        if (rest != 0) {
            const int found = static_cast<int>(bit) + std::countr_zero(rest);
            return found < end ? found : end;
        }
        bit = (bit / kWordBits + 1) * kWordBits;
    }
    return end;
}

// The first clear bit from bit `from` on, or `end` when there is none before
// it (0 <= from).
inline int next_clear_bit(const uint32_t *words, int from, int end) noexcept {
    for (auto bit = static_cast<unsigned>(from); static_cast<int>(bit) < end;) {
        const unsigned offset = bit % kWordBits;
        const int ones = std::countr_one(words[bit / kWordBits] >> offset);
        if (ones < static_cast<int>(kWordBits - offset)) {
            const int found = static_cast<int>(bit) + ones;
            return found < end ? found : end;
        }
        bit += kWordBits - offset;
    }
    return end;
}

// Walks members first..last (1 <= first), member m being bit m-1 of the map, and hands
// each run of members to emit(Run) in ascending order. Answers how many
// members there are.
template <typename Emit>
int for_each_bit_run(const uint32_t *words, int first, int last, Emit emit) noexcept {
    int members = 0;
    const int end = last; // the bit after member last
    for (int bit = next_set_bit(words, first - 1, end); bit < end;) {
        const int stop = next_clear_bit(words, bit + 1, end);
        emit(Run{bit + 1, stop});
        members += stop - bit;
        bit = next_set_bit(words, stop, end);
    }
    return members;
}

} // namespace gv::sys
