// The item cutter, number readers and run builder that every token parser
// and set formatter shares.
#include "sys/items.h"
#include "sys/runs.h"
#include "sys/scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

namespace {

using namespace gv::sys;

TEST(Items, CutAtTheFirstSeparator) {
    struct Case {
        const char *item;
        const char *left;
        const char *right;
        bool cut;
    };
    const Case cases[] = {
        {"1/3-2/5", "1/3", "2/5", true}, {"1-2-3", "1", "2-3", true}, {"-5", "", "5", true},
        {"5-", "5", "", true},           {"5", "5", "", false},
    };
    for (const Case &c : cases) {
        const Halves halves = cut_at(c.item, '-');
        EXPECT_EQ(halves.left, c.left) << c.item;
        EXPECT_EQ(halves.right, c.right) << c.item;
        EXPECT_EQ(halves.cut, c.cut) << c.item;
    }
}

TEST(Scan, HexFieldsAndAtoi) {
    int fields[6] = {};
    EXPECT_EQ(scan_ints("0a:FF:1:x", "%x:%x:%x:%x", fields), 3);
    EXPECT_EQ(fields[0], 0x0A);
    EXPECT_EQ(fields[1], 0xFF);
    EXPECT_EQ(scan_ints("fffffffff", "%x", fields), 0); // beyond int: not read
    struct Case {
        const char *text;
        int value;
    };
    for (const Case c : {Case{"12abc", 12}, Case{"", 0}, Case{"x", 0}, Case{"  -7", -7},
                         Case{"99999999999", INT_MAX}, Case{"-99999999999", INT_MIN}}) {
        EXPECT_EQ(read_int(c.text), c.value) << c.text;
    }
}

std::string runs_text(int last, const std::vector<int> &members, int split_before = 0) {
    char out[256];
    RunText text(out);
    const int found = for_each_run(
        1, last,
        [&](int n) { return std::find(members.begin(), members.end(), n) != members.end(); },
        [&](int n) { return n == split_before; },
        [&](Run run) { text.write(run, [](int n) { return Decimal(n); }); });
    return std::string(out) + "#" + std::to_string(found);
}

TEST(Runs, AdjacentMembersFormRuns) {
    EXPECT_EQ(runs_text(10, {1, 2, 3, 5}), "1-3,5#4");
    EXPECT_EQ(runs_text(10, {1, 2}), "1-2#2");
    EXPECT_EQ(runs_text(10, {}), "#0");
    EXPECT_EQ(runs_text(10, {10}), "10#1");
    EXPECT_EQ(runs_text(5, {4, 5, 6}), "4-5#2"); // the walk ends at its last number
    EXPECT_EQ(runs_text(10, {3, 4, 5, 6}, 5), "3-4,5-6#4");
}

TEST(Runs, BoundedTextStaysTerminated) {
    char out[6] = "zzzzz";
    RunText text(out, sizeof out);
    text.open("12");
    text.close("345");
    EXPECT_STREQ(out, "12-34");
    EXPECT_EQ(text.length(), 5u);
}

} // namespace
