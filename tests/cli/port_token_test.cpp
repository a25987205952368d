// Port numbers of one slot as ranges and lists, and the flat pnum list of a
// slot/port list.
#include "gvutil/cli.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using gvtest::ChassisRoot;
using gvtest::CliCapture;
using Pairs = std::vector<std::pair<int, int>>;

using TokenParser = int (*)(const char *, value_range *, int, cli_ctx *);

struct Parsed {
    int count;
    Pairs ranges;
    std::string printed;
};

Parsed parse(TokenParser parser, const char *text, int max, bool quiet = false) {
    CliCapture capture;
    value_range out[32] = {};
    Parsed got{parser(text, out, max, quiet ? nullptr : capture.ctx()), {}, capture.text()};
    for (int i = 0; i < got.count; ++i) {
        got.ranges.emplace_back(out[i].low, out[i].high);
    }
    return got;
}

struct Case {
    const char *text;
    Pairs ranges;
    const char *printed;
};

TEST(PortToken, BadItemsAreDroppedOthersKept) {
    const Case cases[] = {
        {"1-4,7", {{1, 4}, {7, 7}}, ""},
        {"5-99", {{5, 48}}, "%Invalid range: 5-99 [1-48]\n"}, // kept, lowered
        {"99,3", {{3, 3}}, "%Invalid range: 99 [1-48]\n"},    // dropped
        {"0", {}, "%Invalid port: 0\n"},
        {"x,2", {{2, 2}}, "%Invalid port: x\n"},
        {"4-4", {}, "%Invalid sequence order: 4-4\n"},
        {"5-3", {}, "%Invalid sequence order: 5-3\n"},
        {"0-3", {}, "%Invalid range: 0-3 [1-48]\n"},
        {"50-60", {}, "%Invalid range: 50-60 [1-48]\n"},
        {"1,-5,2", {}, "%Invalid port: -5\n"},           // ends the call, nothing kept
        {"1-2-3", {}, "%Invalid range: 1-2-3 [1-48]\n"}, // cut at the first "-"
        {",,", {}, ""},
    };
    for (const Case &c : cases) {
        const Parsed got = parse(get_port_token, c.text, 48);
        EXPECT_EQ(got.ranges, c.ranges) << c.text;
        EXPECT_EQ(got.count, static_cast<int>(c.ranges.size())) << c.text;
        EXPECT_EQ(got.printed, c.printed) << c.text;
    }
}

TEST(PortToken, WithoutAContextSingleValuesAreNotChecked) {
    const Case cases[] = {
        {"99", {{99, 99}}, ""},  {"0", {{0, 0}}, ""},       {"5-3", {{5, 3}}, ""},
        {"5-99", {{5, 48}}, ""}, {"60-99", {{60, 48}}, ""}, {"1,-5,2", {{1, 1}, {2, 2}}, ""},
        {"0-3", {}, ""},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(parse(get_port_token, c.text, 48, true).ranges, c.ranges) << c.text;
    }
}

TEST(PonPortToken, FirstErrorEndsTheCall) {
    const Case cases[] = {
        {"1,2-4", {{1, 1}, {2, 4}}, ""},
        {"1,99", {}, "%Invalid range: 99 [1-16]\n"},
        {"2-99", {}, "%Invalid range: 2-99 [1-16]\n"},
        {"0", {}, "%Invalid port: 0\n"},
        {"-2", {}, "%Invalid port: -2\n"},
        {"3-3", {}, "%Invalid sequence order: 3-3\n"},
        {"0-3", {}, "%Invalid range: 0-3 [1-16]\n"},
    };
    for (const Case &c : cases) {
        const Parsed got = parse(get_pon_port_token, c.text, 16);
        EXPECT_EQ(got.ranges, c.ranges) << c.text;
        EXPECT_EQ(got.printed, c.printed) << c.text;
    }
    const Case quiet[] = {
        {"99,5-3", {{99, 99}, {5, 3}}, ""},
        {"2-99", {{2, 16}}, ""},
        {"1,0-3", {}, ""},
        {"1,-2", {}, ""},
    };
    for (const Case &c : quiet) {
        EXPECT_EQ(parse(get_pon_port_token, c.text, 16, true).ranges, c.ranges) << c.text;
    }
}

using ListParser = int (*)(const char *, uint32_t *, int, cli_ctx *);

std::vector<uint32_t> list(ListParser parser, const char *text, int max, CliCapture &capture) {
    uint32_t out[128] = {};
    const int count = parser(text, out, max, capture.ctx());
    return {out, out + (count > 0 ? count : 0)};
}

TEST(PortToken, LongItemsAreCutInMessages) {
    const std::string item = "1" + std::string(299, '0');
    const Parsed got = parse(get_port_token, item.c_str(), 48);
    EXPECT_EQ(got.count, 0);
    EXPECT_EQ(got.printed, "%Invalid port: " + item.substr(0, 255) + "\n");
    value_range out[1];
    EXPECT_EQ(get_port_token(nullptr, out, 48, nullptr), 0);
    EXPECT_EQ(get_pon_port_token("1", nullptr, 48, nullptr), 0);
}

TEST(PortLists, ExpansionHoldsAtMost2048Ranges) {
    std::string text = "1";
    for (int i = 0; i < 2100; ++i) {
        text += ",1";
    }
    std::vector<uint32_t> out(4096);
    EXPECT_EQ(get_uni_port_list(text.c_str(), out.data(), 48, nullptr), 2048);
    EXPECT_EQ(get_uni_port_list(nullptr, out.data(), 48, nullptr), 0);
}

TEST(PortLists, RangesExpandInOrderWithDuplicates) {
    CliCapture capture;
    const std::vector<uint32_t> expanded = {1, 2, 3, 2, 9};
    EXPECT_EQ(list(get_uni_port_list, "1-3,2,9", 16, capture), expanded);
    EXPECT_EQ(list(get_port_list_not_cli_input, "1-3,2,9", 16, capture), expanded);
    EXPECT_EQ(list(get_pon_port_list_not_cli_input, "1-3,2,9", 16, capture), expanded);
    EXPECT_EQ(list(get_pon_port_list_not_cli_input, "1-3,20", 16, capture).size(), 0u);
    EXPECT_EQ(list(get_uni_port_list, "1-3,20", 16, capture).size(), 3u);
    EXPECT_EQ(list(get_port_list_simple, "1-3", 16, capture).size(), 0u);
}

TEST(PortList, SlotPortListsBecomePnumsOnceEach) {
    ChassisRoot root{"test3"};
    struct ListCase {
        const char *text;
        int max;
        std::vector<uint32_t> pnums;
        const char *printed;
    };
    const ListCase cases[] = {
        {"1/1-1/4,1/2", 48, {1, 2, 3, 4}, ""},
        {"2/1,1/8-2/2", 48, {9, 8, 10}, ""}, // first-seen order
        {"2/8-0/2,t/1", 48, {16, 17, 18, 35}, ""},
        {"1/1-1/4", 3, {}, "%check if it is suitable parameter : GPON1/4\n"},
        {"", 48, {}, "%Invaild parameter \n"},
        {",", 48, {}, "%Invaild parameter ,\n"},
        {"1/1,9/1", 48, {}, "%Invalid slot id range: 9/1\n"}, // an error: nothing else said
    };
    for (const ListCase &c : cases) {
        CliCapture capture;
        EXPECT_EQ(list(get_port_list, c.text, c.max, capture), c.pnums) << c.text;
        EXPECT_EQ(capture.text(), c.printed) << c.text;
    }
}

TEST(PortList, WithoutSlotsPortsAreNumbers) {
    ChassisRoot root{"k3100x"};
    CliCapture capture;
    EXPECT_EQ(list(get_port_list, "1-3,2", 28, capture), (std::vector<uint32_t>{1, 2, 3, 2}));
    EXPECT_EQ(list(get_port_list, "27-30", 28, capture), (std::vector<uint32_t>{27, 28}));
    EXPECT_EQ(capture.text(), "%Invalid range: 27-30 [1-28]\n");
}

} // namespace
