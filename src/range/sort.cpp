// Instance lists sorted in place: the nodes themselves change places, so a
// caller's pointers to instances stay valid.
#include "gvutil/range.h"

#include <cstdint>
#include <utility>

namespace {

// Exchanges a and b (a before b) in their list, adjacent or not.
void swap_nodes(id_instance *a, id_instance *b) noexcept {
    id_instance *before_a = a->prev;
    id_instance *after_b = b->next;
    if (a->next == b) {
        b->next = a;
        a->prev = b;
    } else {
        id_instance *after_a = a->next;
        id_instance *before_b = b->prev;
        b->next = after_a;
        after_a->prev = b;
        a->prev = before_b;
        before_b->next = a;
    }
    b->prev = before_a;
    a->next = after_b;
    if (before_a != nullptr) {
        before_a->next = b;
    }
    if (after_b != nullptr) {
        after_b->prev = a;
    }
}

// Exchange sort: each place in turn gets the smallest key after it. Equal
// keys never change places.
template <typename Key> id_instance *exchange_sort(id_instance *head, Key key) noexcept {
    for (id_instance *a = head; a != nullptr; a = a->next) {
        for (id_instance *b = a->next; b != nullptr; b = b->next) {
            if (key(*a) > key(*b)) {
                if (head == a) {
                    head = b;
                }
                swap_nodes(a, b);
                std::swap(a, b); // a names the node in the outer place again
            }
        }
    }
    return head;
}

} // namespace

id_instance *sort_instance_by_id(id_instance *list) noexcept {
    return exchange_sort(list, [](const id_instance &node) noexcept { return node.id; });
}

id_instance *sort_instance_by_range(id_instance *list) noexcept {
    // An instance without members sorts as 0.
    return exchange_sort(list, [](const id_instance &node) noexcept {
        return node.ranges != nullptr ? node.ranges->start : uint16_t{0};
    });
}
