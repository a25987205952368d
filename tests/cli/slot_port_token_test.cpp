// Slot lists, s<N> words, slot/port items and slot/port lists typed by the
// operator; slot/port range strings and FE/GE interface names read back by
// the configuration display.
#include "gvutil/cli.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace {

using namespace gvtest;

std::string slot_token(const char *text, cli_ctx *ctx) {
    value_range out[32] = {};
    return shown(out, get_slot_token(text, out, ctx));
}

// test3: the equipment manager shows slots up to 3. Any bad item discards
// the whole list.
TEST(SlotToken, ListsAndTheirMessages) {
    ChassisRoot root{"test3"};
    expect_rows(slot_token,
                {{"1,2-4,,5,", "1-1 2-4 5-5"},
                 {"2-2", "", "% Invalid sequence order: 2-2\n"},   // an equal pair is refused
                 {"1,3,21", "", "% Invalid input parameter: 3\n"}, // 3 only inside a range
                 {"a", "", "% Invalid input parameter : a\n"},
                 {"1-b", "", "% Invalid input parameter : b\n"},
                 {"-5", "", "% Invalid input parameter: -5\n"},
                 {"21", "", "% Invalid range: 21 [0-3]\n"},
                 {"1-21", "", "% Invalid range: 1-21 [0-3]\n"},
                 {",,"}},
                Context::kBoth);
}

TEST(SlotToken, WithoutAnEquipmentRecordTheSlotMaximumIsZero) {
    unload_model(); // no root: no chassis, no record
    expect_rows(slot_token, {{"21", "", "% Invalid range: 21 [0-0]\n"}});
    value_range out[1];
    EXPECT_EQ(get_slot_token(nullptr, out, nullptr), 0);
}

TEST(SlotToken, SlotsAndTheirPorts) {
    ChassisRoot root{"test3"};
    for (const auto &[slot, allow_trunk, valid] : std::vector<std::array<int, 3>>{
             {0, 0, 0}, {1, 0, 1}, {3, 0, 1}, {4, 0, 0}, {4, 1, 1}, {5, 1, 0}}) {
        EXPECT_EQ(is_slot_valid(slot, allow_trunk), valid) << slot << " " << allow_trunk;
    }
    for (const auto &[slot, ports, most] : std::vector<std::array<int, 3>>{
             {1, 8, 8}, {3, 16, 16}, {4, 8, 14}, {5, 0, 0}, {0, 0, 0}}) {
        EXPECT_EQ(get_logical_slot_port_num(slot), ports) << slot;
        EXPECT_EQ(get_logical_slot_port_max_num(slot), most) << slot;
    }
}

TEST(SlotToken, SlotWords) {
    ChassisRoot root{"test3"};
    const auto check = [](const char *token, cli_ctx *ctx) {
        uint32_t errs = 7; // added to, never reset
        const int valid = check_input_slot_number(token, ctx, &errs);
        return std::to_string(valid) + " errs=" + std::to_string(errs);
    };
    const std::string usage = "%Invalid slot number ex) s1 or s1,s2\n";
    expect_rows(check,
                {{"s1", "1 errs=7"},
                 {"s5", "1 errs=7"}, // two past the last line slot on purpose
                 {"x3", "1 errs=7"}, // the first character is not looked at
                 {"s6", "0 errs=8", "%range error: s6 [s1-s5]\n"},
                 {"s0", "0 errs=8", "%range error: s0 [s1-s5]\n"},
                 {"s", "0 errs=8", usage},
                 {"", "0 errs=8", usage}},
                Context::kBoth); // counted even when nothing is printed
}

// One item in real slot numbers into a pair that starts empty: whether it
// is good, and the pair as left (callers read it back after a refusal too).
std::string item(const char *text, cli_ctx *ctx) {
    slot_port_pair pair{};
    uint32_t errs = 0;
    const int good = build_slot_port_list(text, &pair, ctx, &errs);
    EXPECT_EQ(errs, good != 0 || text[0] == '\0' ? 0u : 1u) << text;
    return std::to_string(good) + " " + std::to_string(pair.slot) + "/" + std::to_string(pair.port);
}

TEST(SlotPortItem, ChecksAndFillsThePair) {
    ChassisRoot root{"test3"};
    expect_rows(item, {{"1/3", "1 1/3"},
                       {"t/2", "1 4/2"},
                       {"CG8", "1 4/8"},
                       {"5", "0 0/0", "%Invalid input parameter: 5\n"},
                       {"1/0", "0 1/0", "%Invalid input parameter: 1/0\n"},
                       {"0/1", "0 0/1", "%Invalid input parameter: 0/1\n"},
                       {"1-3", "0 0/0", "%Invalid input parameter: 1-3\n"},
                       {"4/1", "0 4/1", "%Invalid slot id range: 4/1\n"},
                       {"1/99", "0 1/8", "%range error: 1/99 [1/1-8]\n"},
                       {"3/20", "0 3/16", "%range error: 0/20 [0/1-16]\n"}, // user slot
                       {"t/9", "0 4/8", "%range error: t/9 [t/1-8]\n"},
                       {"", "0 0/0"}}); // an empty item is no error
    // A bare number names no slot: it keeps the pair the previous item left.
    slot_port_pair pair{1, 3};
    EXPECT_EQ(build_slot_port_list("5", &pair, nullptr, nullptr), 1);
    EXPECT_EQ(pair.slot * 100 + pair.port, 103);
}

TEST(SlotPortItem, SlotWithoutPortsCannotBeAsked) {
    ChassisRoot root{"k7100"}; // slot 9 is empty
    expect_rows(item, {{"9/1", "0 9/1", "%Can't get slot info : 9/1\n"}});
}

// The ranges, then the errors counted: each refusal is counted and told.
template <auto Parser> std::string slot_ports(const char *text, cli_ctx *ctx) {
    slot_port_range out[64] = {};
    uint32_t errs = 0;
    const std::string ranges = shown(out, Parser(text, out, ctx, &errs));
    return gvtest::with_errors(ranges, errs);
}

TEST(SlotPortToken, ListsExpandIntoRangesPerSlot) {
    ChassisRoot root{"test3"};
    expect_rows(slot_ports<get_slot_port_token>,
                {{"1/3-1/3,1/3-7,t/1-t/3", "1/3-3 1/3-7 4/1-3 errs=0"},
                 {"1/3-2/2,2/7-0/2", "1/3-8 2/1-2 2/7-8 3/1-2 errs=0"}, // user slot 0 is real 3
                 {"GPON1/2-GPON1/4", "1/2-4 errs=0"},
                 {"1/3,5", "1/3-3 1/3-3 errs=0"}, // 5 reuses the pair 1/3 left
                 {"t/1-3", "errs=1", "%Invalid input parameter: 3\n"},
                 {"1/5-1/3,2/1-1/8", "errs=2",
                  "%Invalid sequence order: 1/5-1/3\n%Invalid sequence order: 2/1-1/8\n"},
                 {"1/1-1/99,2/1", "2/1-1 errs=1", "%range error: 1/99 [1/1-8]\n"},
                 {"1/3,5-7", "1/3-3 errs=2", "%Invalid input: 5-7\n%Invalid input parameter: 5\n"}},
                Context::kBoth);
}

class SimpleLimits : public ::testing::Test {
  protected:
    void TearDown() override { simple_slot_port_limits = {}; }
    ChassisRoot root{"test3"};
};

TEST_F(SimpleLimits, ListsAreCheckedAgainstTheLimits) {
    // Zero at load: everything is refused until the caller sets them.
    expect_rows(slot_ports<get_slot_port_token_simple>,
                {{"1/1", "errs=1", "%Invalid slot id range: 1/1\n"}});
    simple_slot_port_limits = {2, 4};
    expect_rows(slot_ports<get_slot_port_token_simple>,
                {{"1/1-2/3,1/2-3", "1/1-4 2/1-3 1/2-3 errs=0"}, // a first slot ends at 4
                 {"0/2,1,t/1", "errs=3",                        // no slot renumbering, no trunks
                  "%Invalid input parameter: 0/2\n%Invalid input parameter: 1\n"
                  "%Invalid input parameter: t/1\n"},
                 {"1/5", "errs=1", "%range error: 1/5 [1/1-4]\n"},
                 {"3/1", "errs=1", "%Invalid slot id range: 3/1\n"},
                 {"1/3-1/2", "errs=1", "%Invalid sequence order: 1/3-1/2\n"}});
}

// The answer, then the ranges it counts.
std::string slotif(const char *text, cli_ctx *ctx) {
    slot_port_range out[16] = {};
    const int result = parse_slotif_range_string(ctx, text, out);
    return std::to_string(result) + " " + shown(out, result);
}

TEST(SlotIfRange, OneRangePerSlot) {
    ChassisRoot root{"test3"}; // three slots
    const std::string bad = "% Invalid range.\n";
    expect_rows(slotif,
                {{"1/3-3/2", "3 1/3-0 2/1-0 3/1-2"},
                 // A middle slot ends where the range written before it ended.
                 {"1/5,1/3-3/2", "4 1/5-5 1/3-5 2/1-5 3/1-2"},
                 {"0/2-1/3", "2 0/2-4 1/1-3"},
                 {"1/300", "1 1/44-44"}, // the port is kept in 8 bits, not checked
                 {"3/1-1/1", "0 "},
                 {",,2/2", "1 2/2-2"},
                 {"4/1", "-1 ", bad},
                 {"1-3", "-1 ", bad},
                 {"1/1-3", "-1 ", bad},
                 {"1/1,x/2", "-1 ", bad},
                 {"-1/2", "-1 ", bad}},
                Context::kBoth);
    slot_port_range out[1];
    EXPECT_EQ(parse_slotif_range_string(nullptr, nullptr, out), -1);
}

// Digits past the int range read as 2147483647, as atoi reads them.
TEST(SlotPortFromInterfaceName, DigitsAreSlotAndPortTogether) {
    struct Case {
        const char *name;
        int result, slot, port;
    };
    for (const Case c : {Case{"GE105", 0, 1, 5}, Case{"FE1234", 0, 12, 34}, Case{"GE0001", 0, 0, 1},
                         Case{"GE99999999999", 0, 20, 47}, Case{"ge105", -2, 0, 0},
                         Case{"GE10", -2, 0, 0}, Case{"XE105", -2, 0, 0}, Case{"GE10a5", -2, 0, 0},
                         Case{"", -1, 0, 0}, Case{nullptr, -1, 0, 0}}) {
        slot_port_pair pair{};
        EXPECT_EQ(get_slot_port_from_interface_name(c.name, &pair), c.result)
            << (c.name != nullptr ? c.name : "(null)");
        EXPECT_EQ(pair.slot * 100 + pair.port, c.slot * 100 + c.port);
    }
    EXPECT_EQ(get_slot_port_from_interface_name("GE105", nullptr), -1);
}

} // namespace
