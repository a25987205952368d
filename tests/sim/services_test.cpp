// Platform services of the host chassis: the tree, the tracked allocator,
// the interface-range services and the switch services.
#include "gvsim/gvsim.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

using gvtest::ChassisRoot;

int compare_ints(const void *a, const void *b) {
    const int x = *static_cast<const int *>(a);
    const int y = *static_cast<const int *>(b);
    return x < y ? -1 : (x > y ? 1 : 0);
}

int destroyed = 0;
int count_destroyed(void *) {
    ++destroyed;
    return 0;
}

TEST(Tree, KeepsItemsInOrderAndRefusesEqualOnes) {
    std::vector<int> values(2000);
    std::iota(values.begin(), values.end(), 0);
    std::shuffle(values.begin(), values.end(), std::mt19937(7));
    std::vector<int> again(values.begin(), values.begin() + 100);
    avl_tree *tree = avl_Create(compare_ints);
    ASSERT_NE(tree, nullptr);
    for (int &v : values) {
        EXPECT_EQ(avl_Insert(tree, &v), 0);
    }
    for (int &v : again) {
        EXPECT_EQ(avl_Insert(tree, &v), -1) << v;
    }
    int expected = 0;
    for (auto *item = static_cast<int *>(avl_First(tree)); item != nullptr;
         item = static_cast<int *>(avl_Next(tree, item))) {
        ASSERT_EQ(*item, expected++);
    }
    EXPECT_EQ(expected, 2000);
    const int key = 1234;
    const int between = 5000;
    EXPECT_EQ(*static_cast<int *>(avl_Find(tree, &key)), 1234);
    EXPECT_NE(avl_Find(tree, &key), &key);
    EXPECT_EQ(avl_Find(tree, &between), nullptr);
    EXPECT_EQ(*static_cast<int *>(avl_Next(tree, &key)), 1235); // by key when not held
    EXPECT_EQ(avl_Next(tree, &between), nullptr);
    destroyed = 0;
    avl_Destroy(tree, count_destroyed);
    EXPECT_EQ(destroyed, 2000);
    EXPECT_EQ(gvsim_live_trees(), 0);
}

TEST(TrackedAllocator, CountsLiveBlocksBySource) {
    const long before = gvsim_live_allocations();
    void *a = mfh_malloc(16, 0, "alpha", 1);
    void *b = mfh_malloc(0, 0, "beta", 2);
    ASSERT_NE(a, nullptr);
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(gvsim_live_allocations(), before + 2);
    EXPECT_EQ(gvsim_live_allocations_from("alpha"), 1);
    memmgr_free(0, a, "alpha", 3);
    memmgr_free(0, nullptr, "alpha", 4);
    EXPECT_EQ(gvsim_live_allocations_from("alpha"), 0);
    gvsim_allocator_fail_after(0);
    EXPECT_EQ(mfh_malloc(8, 0, "gamma", 5), nullptr);
    gvsim_allocator_fail_after(-1);
    memmgr_free(0, b, "beta", 6);
    EXPECT_EQ(gvsim_live_allocations(), before);
    int stranger = 0;
    EXPECT_DEATH(memmgr_free(0, &stranger, "delta", 7), "was not allocated here");
}

struct Parsed {
    const char *text;
    int result;
    const char *prefix = "";
    int slot = 0, first = 0, last = 0;
};

TEST(InterfaceRanges, ElementsParse) {
    for (const Parsed p : {Parsed{"GE1/2", 0, "GE", 1, 2, 2}, Parsed{"GE1/2-4", 0, "GE", 1, 2, 4},
                           Parsed{"XE3/2-3/9", 0, "XE", 3, 2, 9}, Parsed{"GE0/5", 0, "GE", 0, 5, 5},
                           Parsed{"CG1-3", 0, "CG", 0, 1, 3}, Parsed{"CG2", 0, "CG", 0, 2, 2},
                           Parsed{"GE1/2-3/4", -1}, Parsed{"GE1/", -1}, Parsed{"GE1/2x", -1},
                           Parsed{"1/2", -1}, Parsed{"ABCDEFGHIJKLMNOP1/1", -1}, Parsed{"", -1}}) {
        char prefix[16] = {};
        int slot = 0, first = 0, last = 0;
        ASSERT_EQ(gv_imish_set_ifrange(p.text, prefix, &slot, &first, &last), p.result) << p.text;
        if (p.result == 0) {
            EXPECT_STREQ(prefix, p.prefix);
            EXPECT_EQ(std::vector<int>({slot, first, last}),
                      std::vector<int>({p.slot, p.first, p.last}));
        }
    }
    intf_range ranges[2];
    int count = 0;
    EXPECT_EQ(intf_ranges_set("GE1/1-4,XE3/2", 2, ranges, &count), 0);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(ranges[1].slot, 3);
    EXPECT_EQ(intf_ranges_set("GE1/1,GE1/2,GE1/3", 2, ranges, &count), 1);
    EXPECT_EQ(intf_ranges_set("GE1/1,,GE1/2", 2, ranges, &count), 1);
}

TEST(InterfaceRanges, NamesResolveToThePlatformsSpelling) {
    struct Case {
        const char *name;
        int result;
        const char *resolved;
    };
    for (const Case c :
         {Case{"ge1/2", 0, "GE1/2"}, Case{"XgsPon4/1", 0, "XGSPON4/1"}, Case{"GE0/1", 0, "GE3/1"},
          Case{"cg2", 0, "CG2"}, Case{"CG1/2", -1, ""}, Case{"GE2", -1, ""},
          Case{"GE1/1-2", -1, ""}, Case{"br10", -1, ""}, Case{"XGSPON1234/56789", -1, ""}}) {
        char resolved[16] = {};
        EXPECT_EQ(gv_get_ifname(c.name, resolved, sizeof resolved), c.result) << c.name;
        if (c.result == 0) {
            EXPECT_STREQ(resolved, c.resolved);
        }
    }
}

TEST(InterfaceRanges, PortsExistAsTheChassisHasThem) {
    struct Case {
        const char *chassis, *name;
        int exists;
    };
    for (const Case c : {Case{"test3", "GPON1/8", 1},   Case{"test3", "GPON1/9", 0},
                         Case{"test3", "EPON2/1", 1},   Case{"test3", "GPON2/1", 0},
                         Case{"test3", "XE3/16", 1},    Case{"test3", "XE4/1", 0},
                         Case{"test3", "XE0/1", 0},     Case{"test3", "CG8", 1},
                         Case{"test3", "CG9", 0},       Case{"test3", "CG0", 0},
                         Case{"test3", "ge1/1", 0},     Case{"k7400a", "GE3/2", 1},
                         Case{"k7400a", "XE3/2", 0},    Case{"k7400a", "XE3/3", 1},
                         Case{"k7400", "XE3/1", 1},     Case{"k7200", "GE6/1", 0},
                         Case{"k3100x", "GPON1/16", 1}, Case{"k3100x", "GE1/17", 1},
                         Case{"k3100x", "XE1/28", 1},   Case{"k3100x", "XE1/29", 0},
                         Case{"k3100x", "GE2/17", 0}}) {
        ChassisRoot root{c.chassis};
        EXPECT_EQ(gv_is_correct_interface(c.name), c.exists) << c.chassis << " " << c.name;
    }
}

class EveryChassis : public ::testing::TestWithParam<std::string> {};

TEST_P(EveryChassis, SwitchServicesAnswerFromTheDescription) {
    ChassisRoot root{GetParam()};
    const gvsim::ChassisDesc &desc = root.desc();
    EXPECT_EQ(getModel(), desc.model_code);
    EXPECT_EQ(gv_board_is_K7400A_SFU(), GetParam() == "k7400a" ? 1 : 0);
    EXPECT_EQ(redctrl_get_boardid(), desc.sfu_board_id);
    EXPECT_EQ(redctrl_is_mate_detected(), desc.sfu_mate ? 1 : 0);
    for (int slot = 0; slot <= desc.slot_count + 1; ++slot) {
        const int ports = slot >= 1 && slot <= desc.slot_count
                              ? desc.slots[static_cast<std::size_t>(slot - 1)].ports
                              : 0;
        EXPECT_EQ(gv_hal_get_port_number_per_slot(slot), ports) << slot;
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, EveryChassis,
                         ::testing::ValuesIn(gvtest::shipped_chassis_names()));

} // namespace
