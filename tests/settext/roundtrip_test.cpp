// Properties over random sets on every shipped chassis: a set printed and
// read back is the same set, and any other text naming the set reads back
// into it.
#include "gvutil/cli.h"
#include "gvutil/settext.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

namespace {

using gvtest::CliCapture;
using IdSet = std::array<uint32_t, GV_ID_SET_WORDS>;

constexpr int kSetsPerChassis = 300;
constexpr int kVlanMax = 4094;

// Random members of 1..last: none, sparse, half or dense.
std::vector<int> random_members(std::mt19937 &rng, int last) {
    constexpr double kDensity[] = {0, 0.05, 0.5, 0.95};
    std::bernoulli_distribution take(kDensity[std::uniform_int_distribution<int>(0, 3)(rng)]);
    std::vector<int> members;
    for (int n = 1; n <= last; ++n) {
        if (take(rng)) {
            members.push_back(n);
        }
    }
    return members;
}

// Another text naming the same members, with tok(n) the text of member n:
// each run of members as overlapping or adjacent pieces, in shuffled order;
// with lone_ranges, a single member is sometimes written "a-a".
template <typename Token>
std::string scrambled_text(std::mt19937 &rng, const std::vector<int> &members, Token tok,
                           bool lone_ranges) {
    std::vector<std::pair<int, int>> pieces;
    for (std::size_t i = 0, j = 0; i < members.size(); i = ++j) {
        while (j + 1 < members.size() && members[j + 1] == members[j] + 1) {
            ++j;
        }
        for (int first = members[i]; first <= members[j];) {
            const int end = std::uniform_int_distribution<int>(first, members[j])(rng);
            const int back = std::uniform_int_distribution<int>(0, 1)(rng); // may overlap
            pieces.emplace_back(std::max(members[i], first - back), end);
            first = end + 1;
        }
    }
    std::shuffle(pieces.begin(), pieces.end(), rng);
    std::string text;
    for (const auto &[first, last] : pieces) {
        text += (text.empty() ? "" : ",") + tok(first);
        if (last != first || (lone_ranges && std::bernoulli_distribution(0.1)(rng))) {
            text += "-" + tok(last);
        }
    }
    return text;
}

class EveryChassis : public ::testing::TestWithParam<std::string> {
  protected:
    gvtest::ChassisRoot root{GetParam()};
    std::mt19937 rng{static_cast<unsigned>(std::hash<std::string>{}(GetParam()) & 0xFFFFu) + 17u};
};

// The text of a pnum as the shell types it: the pnum itself without slots.
std::string port_token(int pnum) {
    char text[64] = {};
    return get_slot_number() == 0 ? std::to_string(pnum)
                                  : convert_p_format_to_s_legacy_format(pnum, text);
}

std::string format_ports(const std::vector<int> &pnums) {
    portset_t set;
    ps_zero(&set);
    for (int pnum : pnums) {
        ps_set(&set, pnum);
    }
    std::vector<char> text(16384);
    const int found = get_slot_number() == 0
                          ? portset2str(text.data(), get_port_num(0), &set)
                          : portset2str_wo_iftype(text.data(), get_port_num(0), &set);
    EXPECT_EQ(found, static_cast<int>(pnums.size()));
    return text.data();
}

// The members set by getportset, and its count in *count when asked.
std::vector<int> parse_ports(const std::string &text, int *count = nullptr) {
    portset_t set;
    ps_zero(&set);
    const int members = getportset(text.c_str(), get_port_num(0), &set);
    if (count != nullptr) {
        *count = members;
    }
    std::vector<int> pnums;
    for (int pnum = 1; pnum <= GV_PORTSET_MAX_PORT; ++pnum) {
        if (ps_isset(&set, pnum) != 0) {
            pnums.push_back(pnum);
        }
    }
    return pnums;
}

TEST_P(EveryChassis, PortSetsReadBackAsPrintedFromAnyText) {
    for (int round = 0; round < kSetsPerChassis; ++round) {
        const std::vector<int> pnums = random_members(rng, get_port_num(1));
        const std::string text = format_ports(pnums);
        int count = -1;
        EXPECT_EQ(parse_ports(text, &count), pnums) << text;
        EXPECT_EQ(count, static_cast<int>(pnums.size())) << text;
        if (pnums.empty()) {
            continue; // an empty text is no set for the parsers
        }
        // The shell's own list parser reads the same text to the same ports.
        CliCapture capture;
        std::vector<uint32_t> listed(2048);
        const int n = get_port_list(text.c_str(), listed.data(), get_port_num(0), capture.ctx());
        listed.resize(static_cast<std::size_t>(std::max(n, 0)));
        EXPECT_EQ(std::vector<int>(listed.begin(), listed.end()), pnums) << text;
        EXPECT_EQ(capture.text(), "") << text;
        const std::string other = scrambled_text(rng, pnums, port_token, true);
        EXPECT_EQ(parse_ports(other), pnums) << other;
    }
}

IdSet id_set(const std::vector<int> &ids) {
    IdSet set{};
    for (int id : ids) {
        ::set(set.data(), id - 1);
    }
    return set;
}

// VLAN lists read as the shell's id lists are read: ranges of 1..4094.
IdSet parse_vlans(const std::string &text, CliCapture &capture) {
    std::vector<value_range> ranges(4096);
    const int count = get_port_token(text.c_str(), ranges.data(), kVlanMax, capture.ctx());
    IdSet set{};
    for (int i = 0; i < count; ++i) {
        for (int id = ranges[static_cast<std::size_t>(i)].low;
             id <= ranges[static_cast<std::size_t>(i)].high; ++id) {
            ::set(set.data(), id - 1);
        }
    }
    return set;
}

// The bridge text agrees with the VLAN text whenever max is the id capacity;
// without slots the bridge parser reads it back.
TEST_P(EveryChassis, VlanAndBridgeSetsReadBackAsPrintedFromAnyText) {
    for (int round = 0; round < kSetsPerChassis; ++round) {
        const std::vector<int> ids = random_members(rng, kVlanMax);
        const IdSet set = id_set(ids);
        std::vector<char> text(40000);
        std::vector<char> bridges(40000);
        EXPECT_EQ(vlanset2str(text.data(), kVlanMax, set.data()), static_cast<int>(ids.size()));
        EXPECT_EQ(brset2str(bridges.data(), kVlanMax, set.data()), static_cast<int>(ids.size()));
        EXPECT_STREQ(bridges.data(), text.data());
        CliCapture capture;
        EXPECT_EQ(parse_vlans(text.data(), capture), set) << text.data();
        EXPECT_EQ(capture.text(), "");
        if (get_slot_number() == 0 && !ids.empty()) {
            IdSet back{};
            EXPECT_EQ(getbrset(text.data(), kVlanMax, back.data()), static_cast<int>(ids.size()));
            EXPECT_EQ(back, set) << text.data();
        }
        const std::string other = scrambled_text(
            rng, ids, [](int id) { return std::to_string(id); }, false);
        EXPECT_EQ(parse_vlans(other, capture), set) << other;
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, EveryChassis,
                         ::testing::ValuesIn(gvtest::shipped_chassis_names()),
                         [](const auto &info) { return info.param; });

} // namespace
