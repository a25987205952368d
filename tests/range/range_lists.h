// Range and instance lists as tests look at them: (start, end) pairs read
// forward, with every back link checked on the way.
#pragma once

#include "gvutil/range.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace rangetest {

using Spans = std::vector<std::pair<int, int>>;

inline Spans spans_of(const id_range *list) {
    Spans spans;
    const id_range *previous = nullptr;
    for (const id_range *node = list; node != nullptr; node = node->next) {
        EXPECT_EQ(node->prev, previous) << "back link of " << node->start;
        spans.emplace_back(node->start, node->end);
        previous = node;
    }
    return spans;
}

struct Instance {
    uint32_t id;
    Spans members;
    bool operator==(const Instance &) const = default;
};

inline std::vector<Instance> instances_of(const id_instance *list) {
    std::vector<Instance> instances;
    const id_instance *previous = nullptr;
    for (const id_instance *node = list; node != nullptr; node = node->next) {
        EXPECT_EQ(node->prev, previous) << "back link of instance " << node->id;
        instances.push_back({node->id, spans_of(node->ranges)});
        previous = node;
    }
    return instances;
}

inline void PrintTo(const Instance &instance, std::ostream *os) {
    *os << instance.id << ":";
    for (const auto &[start, end] : instance.members) {
        *os << " " << start << "-" << end;
    }
}

struct FreeRanges {
    void operator()(id_range *list) const { free_id_range(list); }
};
struct ReleaseInstances {
    void operator()(id_instance *list) const { release_instance(list); }
};
using RangeList = std::unique_ptr<id_range, FreeRanges>;
using InstanceList = std::unique_ptr<id_instance, ReleaseInstances>;

} // namespace rangetest
