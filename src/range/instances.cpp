// Instances built from per-member instance numbers: consecutive members of
// one instance make one range, and an instance owns every range of its own.
#include "gvutil/range.h"
#include "range/nodes.h"

#include <cstdint>
#include <cstring>
#include <limits>

namespace {

id_instance *find_instance(id_instance *list, uint32_t id) noexcept {
    while (list != nullptr && list->id != id) {
        list = list->next;
    }
    return list;
}

// A new zeroed instance appended at the tail; null when the heap refuses.
id_instance *append_instance(id_instance *&head, uint32_t id) noexcept {
    auto *instance = static_cast<id_instance *>(p_malloc(sizeof(id_instance)));
    if (instance == nullptr) {
        return nullptr;
    }
    std::memset(instance, 0, sizeof *instance);
    instance->id = id;
    if (head == nullptr) {
        head = instance;
        return instance;
    }
    id_instance *tail = head;
    while (tail->next != nullptr) {
        tail = tail->next;
    }
    tail->next = instance;
    instance->prev = tail;
    return instance;
}

void append_range(id_instance &instance, id_range *node) noexcept {
    if (instance.ranges == nullptr) {
        instance.ranges = node;
        return;
    }
    id_range *tail = instance.ranges;
    while (tail->next != nullptr) {
        tail = tail->next;
    }
    tail->next = node;
    node->prev = tail;
}

// Members start..end go to instance id, which is made when it is new.
bool add_instance_range(id_instance *&head, uint32_t id, int start, int end) noexcept {
    id_instance *instance = find_instance(head, id);
    if (instance == nullptr) {
        instance = append_instance(head, id);
    }
    if (instance == nullptr) {
        return false;
    }
    id_range *node = gv::range::new_range(static_cast<uint16_t>(start), static_cast<uint16_t>(end));
    if (node == nullptr) {
        return false;
    }
    append_range(*instance, node);
    return true;
}

// Member positions are 16-bit: members past the last position are not read.
constexpr int kMostMembers = std::numeric_limits<uint16_t>::max();

template <typename Id> id_instance *build_instances(const Id *ids, int count) noexcept {
    if (ids == nullptr || count <= 0) {
        return nullptr;
    }
    const int members = count < kMostMembers ? count : kMostMembers;
    id_instance *head = nullptr;
    int first = 1; // the first member of the run being walked
    for (int member = 2; member <= members + 1; ++member) {
        const bool run_ends = member > members || ids[member - 1] != ids[member - 2];
        if (!run_ends) {
            continue;
        }
        // A partial map would hand members to the wrong instance: all or nothing.
        if (!add_instance_range(head, ids[member - 2], first, member - 1)) {
            release_instance(head);
            return nullptr;
        }
        first = member;
    }
    return head;
}

} // namespace

id_instance *make_instance(const uint16_t *ids, int count) noexcept {
    return sort_instance_by_id(build_instances(ids, count));
}

id_instance *make_instance32(const uint32_t *ids, int count) noexcept {
    return build_instances(ids, count);
}

void release_instance(id_instance *list) noexcept {
    while (list != nullptr) {
        id_instance *next = list->next;
        free_id_range(list->ranges);
        p_free(list);
        list = next;
    }
}
