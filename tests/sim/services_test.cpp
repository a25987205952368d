// Platform services of the host chassis: the tree, the tracked allocator,
// the interface-range services and the shell's output.
#include "gvsim/gvsim.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

int compare_ints(const void *a, const void *b) {
    return *static_cast<const int *>(a) - *static_cast<const int *>(b);
}

int destroyed = 0;
int count_destroyed(void *) {
    ++destroyed;
    return 0;
}

// Equal items are refused and stay the caller's; the walk goes by the tree's
// own order, and from an item the tree does not hold to the next one above.
TEST(Tree, KeepsItemsInOrderAndRefusesEqualOnes) {
    std::vector<int> values(2000);
    std::iota(values.begin(), values.end(), 0);
    std::shuffle(values.begin(), values.end(), std::mt19937(7));
    std::vector<int> again(values.begin(), values.begin() + 100);
    avl_tree *tree = avl_Create(compare_ints);
    ASSERT_NE(tree, nullptr);
    for (int &v : values)
        EXPECT_EQ(avl_Insert(tree, &v), 0);
    for (int &v : again)
        EXPECT_EQ(avl_Insert(tree, &v), -1) << v;
    int expected = 0;
    for (auto *item = static_cast<int *>(avl_First(tree)); item != nullptr;
         item = static_cast<int *>(avl_Next(tree, item)))
        ASSERT_EQ(*item, expected++);
    EXPECT_EQ(expected, 2000);
    const int key = 1234;
    const int beyond = 5000;
    EXPECT_EQ(*static_cast<int *>(avl_Find(tree, &key)), 1234);
    EXPECT_EQ(*static_cast<int *>(avl_Next(tree, &key)), 1235);
    EXPECT_EQ(avl_Next(tree, &beyond), nullptr);
    destroyed = 0;
    avl_Destroy(tree, count_destroyed);
    EXPECT_EQ(destroyed, 2000);
    EXPECT_EQ(gvsim_live_trees(), 0);
}

TEST(TrackedAllocator, CountsLiveBlocksBySourceAndAbortsOnAStranger) {
    void *a = mfh_malloc(16, 0, "alpha", 1);
    EXPECT_EQ(gvsim_live_allocations_from("alpha") * 10 + gvsim_live_allocations_from("beta"), 10);
    memmgr_free(0, a, "alpha", 3);
    memmgr_free(0, nullptr, "alpha", 4);
    EXPECT_EQ(gvsim_live_allocations_from("alpha"), 0);
    EXPECT_DEATH(memmgr_free(0, a, "alpha", 5), "was not allocated here"); // freed twice
}

// The library's port checks read the elements; a list refuses an empty
// element and more ranges than its count.
TEST(InterfaceRanges, ListsStayWithinTheirCount) {
    intf_range ranges[2];
    int count = 0;
    EXPECT_EQ(intf_ranges_set("GE1/1-4,XE3/2-3/9", 2, ranges, &count), 0);
    EXPECT_EQ(count * 10 + ranges[1].slot, 23);
    EXPECT_EQ(ranges[1].last_port, 9);
    EXPECT_EQ(intf_ranges_set("GE1/1,GE1/2,GE1/3", 2, ranges, &count), 1);
    EXPECT_EQ(intf_ranges_set("GE1/1,,GE1/2", 2, ranges, &count), 1);
}

// Any letter case resolves to the usual spelling (slot 0 is real slot 3);
// only that spelling of the interface the card carries names a port.
TEST(InterfaceRanges, NamesResolveAndExistAsTheChassisHasThem) {
    const std::pair<const char *, const char *> names[] = {
        {"ge1/2", "GE1/2"}, {"XgsPon4/1", "XGSPON4/1"},
        {"GE0/1", "GE3/1"}, {"cg2", "CG2"},
        {"CG1/2", "-1"},    {"GE2", "-1"},
        {"GE1/1-2", "-1"},  {"br10", "-1"}};
    for (const auto &[name, resolved] : names) {
        char out[16] = {};
        EXPECT_EQ(gv_get_ifname(name, out, sizeof out) != 0 ? "-1" : std::string(out), resolved);
    }
    const std::tuple<const char *, const char *, int> ports[] = {
        {"test3", "XE0/1", 0},   {"test3", "CG0", 0},    {"test3", "ge1/1", 0},
        {"k7400a", "GE3/2", 1},  {"k7400a", "XE3/2", 0}, {"k3100x", "GE1/17", 1},
        {"k3100x", "XE1/29", 0}, {"k3100x", "GE2/17", 0}};
    for (const auto &[chassis, name, exists] : ports) {
        gvtest::ChassisRoot root{chassis};
        EXPECT_EQ(gv_is_correct_interface(name), exists) << chassis << " " << name;
    }
}

TEST(ShellOutput, FormatsAndHandsTheTextOverWhole) {
    gvtest::CliCapture capture;
    EXPECT_EQ(gv_cli_out(capture.ctx(), "%s %d%s", "vlans", 12, "\n"), 9);
    EXPECT_EQ(capture.take(), "vlans 12\n");
    const std::string long_text(5000, 'x');
    EXPECT_EQ(gv_cli_out(capture.ctx(), "<%s>", long_text.c_str()), 5002);
    EXPECT_EQ(capture.take(), "<" + long_text + ">");
    EXPECT_EQ(gv_cli_out(nullptr, "%d", 1), 0);
    cli_ctx silent{nullptr, nullptr};
    EXPECT_EQ(gv_cli_out(&silent, "%d", 1), 0);
}

} // namespace
