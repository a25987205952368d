// Range lists built from id arrays, and read back into them.
#include "gvutil/range.h"
#include "range/nodes.h"

id_range *get_list_to_range(const uint16_t *ids, int count) noexcept {
    if (ids == nullptr || count <= 0) {
        return nullptr;
    }
    gv::range::RangeChain list;
    id_range *open = nullptr; // the node of the run being extended
    int end = 0;
    for (int i = 0; i < count; ++i) {
        const uint16_t id = ids[i];
        if (open != nullptr && id == end + 1) {
            end = id;
            continue;
        }
        id_range *node = gv::range::new_range(id, id);
        if (node == nullptr) {
            continue; // the id is dropped; the open run may still grow
        }
        if (open != nullptr) {
            open->end = static_cast<uint16_t>(end);
        }
        list.append(node);
        open = node;
        end = id;
    }
    if (open != nullptr) {
        open->end = static_cast<uint16_t>(end);
    }
    return list.head();
}

int get_range_to_list(const id_range *list, uint16_t *out, int capacity) noexcept {
    if (out == nullptr) {
        return 0;
    }
    int written = 0;
    for (const id_range *node = list; node != nullptr; node = node->next) {
        for (int id = node->start; id <= node->end && written < capacity; ++id) {
            out[written++] = static_cast<uint16_t>(id);
        }
    }
    return written;
}

// Answers in the inverted sense, 0 when held: its callers test for that.
int id_in_range(const id_range *list, int id) noexcept {
    for (const id_range *node = list; node != nullptr; node = node->next) {
        if (node->start <= id && id <= node->end) {
            return 0;
        }
    }
    return 1;
}
