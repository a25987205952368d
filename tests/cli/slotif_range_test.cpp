// Slot/port range strings and FE/GE interface names read back by the
// configuration display.
#include "gvutil/cli.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using Triple = std::tuple<int, int, int>;

TEST(SlotIfRange, OneRangePerSlot) {
    gvtest::ChassisRoot root{"test3"}; // three slots
    struct Case {
        const char *text;
        int result;
        std::vector<Triple> ranges;
    };
    const Case cases[] = {
        {"1/3-3/2", 3, {{1, 3, 0}, {2, 1, 0}, {3, 1, 2}}},
        // A middle slot ends where the range written before it ended.
        {"1/5,1/3-3/2", 4, {{1, 5, 5}, {1, 3, 5}, {2, 1, 5}, {3, 1, 2}}},
        {"0/2-1/3", 2, {{0, 2, 4}, {1, 1, 3}}},
        {"2/1-2/4,3/7", 2, {{2, 1, 4}, {3, 7, 7}}},
        {"1/300", 1, {{1, 44, 44}}}, // the port is kept in 8 bits, not checked
        {"3/1-1/1", 0, {}},
        {"", 0, {}},
        {",,2/2", 1, {{2, 2, 2}}},
        {"4/1", -1, {}},
        {"1-3", -1, {}},
        {"1/1-3", -1, {}},
        {"1/1,x/2", -1, {{1, 1, 1}}},
        {"-1/2", -1, {}},
    };
    for (const Case &c : cases) {
        gvtest::CliCapture capture;
        slot_port_range out[16] = {};
        const int result = parse_slotif_range_string(capture.ctx(), c.text, out);
        EXPECT_EQ(result, c.result) << c.text;
        std::vector<Triple> ranges;
        for (std::size_t i = 0; i < c.ranges.size(); ++i) {
            ranges.emplace_back(out[i].slot, out[i].first_port, out[i].last_port);
        }
        EXPECT_EQ(ranges, c.ranges) << c.text;
        EXPECT_EQ(capture.text(), c.result < 0 ? "% Invalid range.\n" : "") << c.text;
        EXPECT_EQ(parse_slotif_range_string(nullptr, c.text, out), c.result) << c.text;
    }
    slot_port_range out[1];
    EXPECT_EQ(parse_slotif_range_string(nullptr, nullptr, out), -1);
}

TEST(SlotPortFromInterfaceName, DigitsAreSlotAndPortTogether) {
    struct Case {
        const char *name;
        int result;
        int slot;
        int port;
    };
    for (const Case c :
         {Case{"GE105", 0, 1, 5}, Case{"FE1234", 0, 12, 34}, Case{"GE1005", 0, 10, 5},
          Case{"GE0001", 0, 0, 1}, Case{"ge105", -2, 0, 0}, Case{"GE1-5", -2, 0, 0},
          Case{"GE10", -2, 0, 0}, Case{"XE105", -2, 0, 0}, Case{"GE10a5", -2, 0, 0},
          Case{"GE99999999999", 0, 20, 47}, Case{"", -1, 0, 0}, Case{nullptr, -1, 0, 0}}) {
        slot_port_pair pair{};
        EXPECT_EQ(get_slot_port_from_interface_name(c.name, &pair), c.result)
            << (c.name != nullptr ? c.name : "(null)");
        EXPECT_EQ(pair.slot, c.slot);
        EXPECT_EQ(pair.port, c.port);
    }
    EXPECT_EQ(get_slot_port_from_interface_name("GE105", nullptr), -1);
}

} // namespace
