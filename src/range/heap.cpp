// Range and instance nodes: every one comes from p_malloc and goes back
// through p_free.
#include "gvutil/range.h"
#include "os/os.h"
#include "range/nodes.h"

#include <cstring>

void *p_malloc(size_t size) noexcept {
    return gv::os::heap_alloc(size);
}

void p_free(void *ptr) noexcept {
    gv::os::heap_free(ptr);
}

namespace gv::range {

id_range *new_range(uint16_t start, uint16_t end) noexcept {
    auto *node = static_cast<id_range *>(p_malloc(sizeof(id_range)));
    if (node != nullptr) {
        std::memset(node, 0, sizeof *node);
        node->start = start;
        node->end = end;
    }
    return node;
}

void RangeChain::append(id_range *node) noexcept {
    node->prev = tail_;
    node->next = nullptr;
    if (tail_ != nullptr) {
        tail_->next = node;
    } else {
        head_ = node;
    }
    tail_ = node;
}

void RangeChain::discard() noexcept {
    free_id_range(head_);
    head_ = nullptr;
    tail_ = nullptr;
}

} // namespace gv::range

void free_id_range(id_range *list) noexcept {
    while (list != nullptr) {
        id_range *next = list->next;
        p_free(list);
        list = next;
    }
}
