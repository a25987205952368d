// Instances built from per-member instance numbers, sorted in place, checked
// against the operator's input and released.
#include "range/range_lists.h"
#include "support/cli_capture.h"
#include "support/heap_watch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace {

using rangetest::InstanceList;
using rangetest::instances_of;

InstanceList make16(const std::vector<uint16_t> &ids) {
    return InstanceList(make_instance(ids.data(), static_cast<int>(ids.size())));
}

InstanceList make32(const std::vector<uint32_t> &ids) {
    return InstanceList(make_instance32(ids.data(), static_cast<int>(ids.size())));
}

// The ids in list order, back links checked.
std::string ids_in_order(const id_instance *list) {
    std::string ids;
    const id_instance *previous = nullptr;
    for (const id_instance *node = list; node != nullptr; previous = node, node = node->next) {
        EXPECT_EQ(node->prev, previous) << "back link of instance " << node->id;
        ids += std::to_string(node->id);
    }
    return ids;
}

TEST(MakeInstance, ContiguousMembersShareARange) {
    gvtest::HeapWatch heap;
    EXPECT_EQ(instances_of(make16({2, 2, 1, 1, 2}).get()), "1{3-4} 2{1-2 5}");
    EXPECT_EQ(instances_of(make16({3, 1, 3, 1}).get()), "1{2 4} 3{1 3}");
    EXPECT_EQ(make16({}), nullptr);
    // The 32-bit form keeps the order of first appearance.
    EXPECT_EQ(instances_of(make32({2, 2, 1, 1, 2}).get()), "2{1-2 5} 1{3-4}");
    EXPECT_EQ(instances_of(make32({70000, 5, 70000}).get()), "70000{1 3} 5{2}");
    // Member positions are 16-bit: members past 65535 are not read.
    EXPECT_EQ(instances_of(make16(std::vector<uint16_t>(70000, 4)).get()), "4{1-65535}");
    EXPECT_EQ(heap.held(), 0);
}

TEST(MakeInstance, AllocationFailureAnywhereGivesNoInstances) {
    // 2,2,1,1,2 takes five nodes: instance 2, 1-2, instance 1, 3-4, 5.
    gvtest::HeapWatch heap;
    for (long successes = 0; successes < 5; ++successes) {
        gvtest::HeapWatch::fail_after(successes);
        EXPECT_EQ(make16({2, 2, 1, 1, 2}), nullptr) << successes;
        EXPECT_EQ(make32({2, 2, 1, 1, 2}), nullptr) << successes;
        EXPECT_EQ(heap.held(), 0) << successes;
    }
    gvtest::HeapWatch::fail_after(5);
    EXPECT_EQ(instances_of(make16({2, 2, 1, 1, 2}).get()), "1{3-4} 2{1-2 5}");
}

// Every order of five instances: adjacent and distant exchanges, of the head
// and of the tail, all come up. The nodes themselves move.
TEST(SortInstances, EveryOrderEndsAscendingWithTheSameNodes) {
    std::vector<uint32_t> order = {1, 2, 3, 4, 5};
    do {
        InstanceList list = make32(order);
        std::map<uint32_t, const id_instance *> nodes;
        for (const id_instance *node = list.get(); node != nullptr; node = node->next) {
            nodes[node->id] = node;
        }
        list.reset(sort_instance_by_id(list.release()));
        EXPECT_EQ(ids_in_order(list.get()), "12345");
        for (const id_instance *node = list.get(); node != nullptr; node = node->next) {
            EXPECT_EQ(nodes[node->id], node) << "instance " << node->id << " was copied";
        }
    } while (std::next_permutation(order.begin(), order.end()));
    EXPECT_EQ(sort_instance_by_id(nullptr), nullptr);
}

TEST(SortInstances, ByRangeOrdersByFirstMember) {
    InstanceList list = make16({3, 3, 1, 2, 2, 1}); // 1: 3,6  2: 4-5  3: 1-2
    list.reset(sort_instance_by_range(list.release()));
    EXPECT_EQ(ids_in_order(list.get()), "312");
    // Without members an instance sorts as 0.
    id_instance *last = list->next->next;
    free_id_range(last->ranges);
    last->ranges = nullptr;
    list.reset(sort_instance_by_range(list.release()));
    EXPECT_EQ(ids_in_order(list.get()), "231");
    // Equal keys never change places: 7,8 (both 2) and 9 (1) end 9,8,7.
    list = make32({7, 8, 9});
    list->ranges->start = 2;
    list->next->ranges->start = 2;
    list->next->next->ranges->start = 1;
    list.reset(sort_instance_by_range(list.release()));
    EXPECT_EQ(ids_in_order(list.get()), "987");
    EXPECT_EQ(sort_instance_by_range(nullptr), nullptr);
}

TEST(Checks, RefuseWithTheOperatorsMessage) {
    const InstanceList instances = make16({1, 2, 2});
    const rangetest::RangeList ports(get_id_list("2-4,7"));
    const char *bad_instance = "%Instance's valid values are from 0 to 4094\n";
    const char *bad_port = "%port number invalid\n";
    const std::tuple<std::function<int(cli_ctx *)>, int, const char *> checks[] = {
        {[](cli_ctx *ctx) { return check_instance(ctx, nullptr, 4094); }, 0, ""},
        {[](cli_ctx *ctx) { return check_instance(ctx, nullptr, 4095); }, 1, bad_instance},
        {[](cli_ctx *ctx) { return check_instance(ctx, nullptr, 65536 + 5); }, 0, ""}, // low half
        {[&](cli_ctx *ctx) { return check_instance(ctx, instances.get(), 2); }, 0, ""},
        {[&](cli_ctx *ctx) { return check_instance(ctx, instances.get(), 3); }, 1,
         "%Invalid instance number 3\n"},
        {[&](cli_ctx *ctx) { return check_ports(ctx, ports.get(), 2, 7); }, 0, ""},
        {[&](cli_ctx *ctx) { return check_ports(ctx, ports.get(), 3, 8); }, 1, bad_port},
        {[&](cli_ctx *ctx) { return check_ports(ctx, ports.get(), 1, 6); }, 1, bad_port},
        {[](cli_ctx *ctx) { return check_ports(ctx, nullptr, 1, 8); }, 1, bad_port},
        {[&](cli_ctx *ctx) { return check_vlans(ctx, ports.get()); }, 0, ""},
        {[](cli_ctx *ctx) { return check_vlans(ctx, nullptr); }, 1, "%Invalid bridge\n"}};
    for (const auto &[check, result, message] : checks) {
        gvtest::CliCapture capture;
        EXPECT_EQ(check(capture.ctx()), result) << message;
        EXPECT_EQ(capture.text(), message);
        EXPECT_EQ(check(nullptr), result) << message;
    }
}

TEST(IfindexTests, Bounds) {
    const std::tuple<int, int, int> cases[] = {{1000000, 0, 0},  {1000001, 1, 0}, {50009999, 1, 0},
                                               {50010000, 0, 0}, {540003, 0, 1},  {540004, 0, 0}};
    for (const auto &[ifindex, ethernet, mgmt] : cases) {
        EXPECT_EQ(is_ethernet_interface_by_ifindex(ifindex), ethernet) << ifindex;
        EXPECT_EQ(is_mgmt_interface_by_ifindex(ifindex), mgmt) << ifindex;
    }
}

} // namespace
