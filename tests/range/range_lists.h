// Range and instance lists as tests look at them: "start-end" pieces read
// forward, with every back link checked on the way.
#pragma once

#include "gvutil/range.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace rangetest {

// "1-5 8" (a node of one id shows it once); the empty text for no list.
inline std::string spans_of(const id_range *list) {
    std::string spans;
    const id_range *previous = nullptr;
    for (const id_range *node = list; node != nullptr; node = node->next) {
        EXPECT_EQ(node->prev, previous) << "back link of " << node->start;
        spans += (spans.empty() ? "" : " ") + std::to_string(node->start);
        if (node->end != node->start) {
            spans += "-" + std::to_string(node->end);
        }
        previous = node;
    }
    return spans;
}

// "2{1-2 5} 1{3-4}": each instance with its members, in list order.
inline std::string instances_of(const id_instance *list) {
    std::string instances;
    const id_instance *previous = nullptr;
    for (const id_instance *node = list; node != nullptr; node = node->next) {
        EXPECT_EQ(node->prev, previous) << "back link of instance " << node->id;
        instances += (instances.empty() ? "" : " ") + std::to_string(node->id) + "{" +
                     spans_of(node->ranges) + "}";
        previous = node;
    }
    return instances;
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
