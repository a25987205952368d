// Range nodes as the list builders make them.
#pragma once

#include "gvutil/range.h"

#include <cstddef>
#include <cstdint>

namespace gv::range {

// The shell's C code walks these records itself: on the chassis (4-byte
// pointers) a range node is 12 bytes and an instance node 16.
static_assert(offsetof(id_range, start) == 2 * sizeof(void *));
static_assert(offsetof(id_instance, id) == 2 * sizeof(void *));
static_assert(sizeof(void *) != 4 || (sizeof(id_range) == 12 && sizeof(id_instance) == 16));

// A zeroed, unlinked node {start, end} from p_malloc; null when the heap
// refuses.
id_range *new_range(uint16_t start, uint16_t end) noexcept;

// A list being built at its tail.
class RangeChain {
  public:
    void append(id_range *node) noexcept;
    id_range *head() const noexcept { return head_; }
    // Frees every node, after a failure.
    void discard() noexcept;

  private:
    id_range *head_ = nullptr;
    id_range *tail_ = nullptr;
};

} // namespace gv::range
