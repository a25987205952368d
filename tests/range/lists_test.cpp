// Range lists built from id arrays, read back, and printed as list text.
#include "range/range_lists.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"
#include "support/heap_watch.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using rangetest::RangeList;
using rangetest::spans_of;

RangeList from_ids(const std::vector<uint16_t> &ids) {
    return RangeList(get_list_to_range(ids.data(), static_cast<int>(ids.size())));
}

std::vector<uint16_t> ids_of(const id_range *list, int capacity = 4096) {
    std::vector<uint16_t> ids(static_cast<std::size_t>(capacity) + 1, 0xEEEE);
    ids.resize(static_cast<std::size_t>(get_range_to_list(list, ids.data(), capacity)) + 1);
    EXPECT_EQ(ids.back(), 0xEEEE) << "written past the capacity";
    ids.pop_back();
    return ids;
}

TEST(ListToRange, OneNodePerRunOfConsecutiveIds) {
    gvtest::HeapWatch heap;
    EXPECT_EQ(spans_of(from_ids({1, 2, 3, 5, 7, 8}).get()), "1-3 5 7-8");
    EXPECT_EQ(spans_of(from_ids({65534, 65535}).get()), "65534-65535");
    EXPECT_EQ(spans_of(from_ids({1, 1, 2}).get()), "1 1-2");
    EXPECT_EQ(spans_of(from_ids({}).get()), "");
    // 1,2,5,6,9 needs a node for 1, 5 and 9; an id without one is dropped and
    // the open run stays open (6 does not continue 1-2).
    const char *built[] = {"", "1-2", "1-2 5-6", "1-2 5-6 9"};
    for (long successes = 0; successes < 4; ++successes) {
        gvtest::HeapWatch::fail_after(successes);
        EXPECT_EQ(spans_of(from_ids({1, 2, 5, 6, 9}).get()), built[successes]) << successes;
    }
    gvtest::HeapWatch::never_fail();
    EXPECT_EQ(heap.held(), 0);
}

TEST(RangeToListAndBack, IdsReadBackAsTheSameList) {
    const RangeList list(get_id_list("1-5,8"));
    EXPECT_EQ(ids_of(list.get(), 3), (std::vector<uint16_t>{1, 2, 3}));
    EXPECT_EQ(ids_of(list.get(), 0), std::vector<uint16_t>{});
    for (const char *text : {"1-5,8,10-12", "7", "1,3,5", "2-4094"}) {
        const RangeList parsed(get_id_list(text));
        char out[64];
        ASSERT_EQ(make_range_str(parsed.get(), out, sizeof out), 0);
        EXPECT_STREQ(out, text);
        EXPECT_EQ(spans_of(from_ids(ids_of(parsed.get())).get()), spans_of(parsed.get())) << text;
    }
    // Inverted sense: 0 when held. 65537 is no 16-bit id, not 1.
    const std::pair<int, int> held[] = {{0, 1}, {1, 0}, {5, 0}, {6, 1}, {8, 0}, {9, 1}, {65537, 1}};
    for (const auto &[id, answer] : held) {
        EXPECT_EQ(id_in_range(list.get(), id), answer) << id;
    }
    EXPECT_EQ(id_in_range(nullptr, 3), 1);
}

// A piece is written only with room for it, a ',' and the terminator.
TEST(RangeText, StopsBeforeAPieceThatWouldNotFit) {
    const RangeList list(get_id_list("1-5,8"));
    const std::tuple<int, const char *, int> sizes[] = {
        {64, "1-5,8", 0}, {8, "1-5,8", 0}, {7, "1-5,", 1}, {6, "1-5,", 1}, {5, "", 1}};
    for (const auto &[size, text, stopped] : sizes) {
        char out[64];
        std::fill(std::begin(out), std::end(out), 'x');
        EXPECT_EQ(make_range_str(list.get(), out, size), stopped) << size;
        EXPECT_STREQ(out, text) << size;
    }
    char out[8] = "junk";
    EXPECT_EQ(make_range_str(nullptr, out, sizeof out), 0);
    EXPECT_STREQ(out, "");
    EXPECT_EQ(make_range_str(list.get(), out, 0), 1);
    EXPECT_EQ(make_range_str(list.get(), nullptr, 64), 1);
    EXPECT_EQ(make_range_str(nullptr, nullptr, 64), 0);
}

TEST(RangeText, PortEndsAreWrittenAsPortText) {
    for (const auto &[chassis, text] :
         {std::pair{"test3", "GPON1/1-GPON1/4,EPON2/3,XE3/1"}, {"k3100x", "1-4,11,17"}}) {
        gvtest::ChassisRoot root{chassis};
        const RangeList list(get_port_list_br("1-4,11,17"));
        char out[128];
        EXPECT_EQ(make_range_str_port(list.get(), out, sizeof out), 0) << chassis;
        EXPECT_STREQ(out, text) << chassis;
    }
}

TEST(OutRange, PrintsLabelAndListThroughTheShell) {
    gvtest::HeapWatch heap;
    const RangeList list(get_id_list("1-5,8"));
    gvtest::CliCapture capture;
    EXPECT_EQ(out_range(capture.ctx(), list.get(), "vlans"), 1);
    EXPECT_EQ(out_range(capture.ctx(), nullptr, "vlans"), 1);
    EXPECT_EQ(out_range(capture.ctx(), list.get(), nullptr), 1);
    EXPECT_EQ(out_range(nullptr, list.get(), "vlans"), 1);
    EXPECT_EQ(capture.take(), "vlans 1-5,8\nvlans \n 1-5,8\n");
    gvtest::HeapWatch::fail_after(0);
    EXPECT_EQ(out_range(capture.ctx(), list.get(), "vlans"), 0);
    EXPECT_EQ(capture.take(), "");
    gvtest::HeapWatch::never_fail();
    EXPECT_EQ(heap.held(), 2); // the list's own two nodes
    std::vector<uint16_t> odd;
    for (uint16_t id = 1001; id < 9000; id += 2) {
        odd.push_back(id); // 3,500 ids: 17,499 characters as text
    }
    EXPECT_EQ(out_range(capture.ctx(), from_ids(odd).get(), "ids"), 1);
    const std::string printed = capture.take();
    EXPECT_EQ(printed.substr(0, 15), "ids 1001,1003,1");
    EXPECT_LT(printed.size(), 10240u + 8);
    EXPECT_EQ(printed.substr(printed.size() - 2), ",\n"); // stopped before a piece
}

} // namespace
