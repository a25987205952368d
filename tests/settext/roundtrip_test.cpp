// Properties over random sets on every shipped chassis: a set printed and
// read back is the same set, and any text naming a set reads back into a set
// that prints as the canonical text.
#include "gvutil/cli.h"
#include "gvutil/settext.h"
#include "support/chassis_root.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using gvtest::ChassisRoot;
using gvtest::CliCapture;

constexpr int kSetsPerChassis = 300;
constexpr int kVlanMax = 4094;

// Random members of 1..last: sparse, dense, runs and the ends.
std::vector<int> random_members(std::mt19937 &rng, int last) {
    std::vector<int> members;
    const int shape = std::uniform_int_distribution<int>(0, 3)(rng);
    if (shape == 0) {
        return members;
    }
    const double density = shape == 1 ? 0.05 : (shape == 2 ? 0.5 : 0.95);
    std::bernoulli_distribution take(density);
    for (int n = 1; n <= last; ++n) {
        if (take(rng)) {
            members.push_back(n);
        }
    }
    return members;
}

// Runs of the members, each run written as one or more overlapping or
// adjacent pieces, in shuffled order: another text naming the same set.
std::vector<std::pair<int, int>> scrambled_pieces(std::mt19937 &rng,
                                                  const std::vector<int> &members) {
    std::vector<std::pair<int, int>> pieces;
    for (std::size_t i = 0; i < members.size();) {
        std::size_t j = i;
        while (j + 1 < members.size() && members[j + 1] == members[j] + 1) {
            ++j;
        }
        int first = members[i];
        const int last = members[j];
        while (first <= last) {
            const int end = std::uniform_int_distribution<int>(first, last)(rng);
            const int back = std::uniform_int_distribution<int>(0, 1)(rng);
            pieces.emplace_back(std::max(members[i], first - back), end); // may overlap
            first = end + 1;
        }
        i = j + 1;
    }
    std::shuffle(pieces.begin(), pieces.end(), rng);
    return pieces;
}

class EveryChassis : public ::testing::TestWithParam<std::string> {
  protected:
    ChassisRoot root{GetParam()};
    std::mt19937 rng{static_cast<unsigned>(std::hash<std::string>{}(GetParam()) & 0xFFFFu) + 17u};
};

// The text of a pnum as the set parser reads it back.
std::string port_token(int pnum) {
    char text[64] = {};
    if (get_slot_number() == 0) {
        return std::to_string(pnum);
    }
    return convert_p_format_to_s_legacy_format(pnum, text);
}

std::string format_ports(const std::vector<int> &pnums) {
    portset_t set;
    ps_zero(&set);
    for (int pnum : pnums) {
        ps_set(&set, pnum);
    }
    std::vector<char> text(16384);
    // Without slots the member text is the pnum itself; with slots the
    // slot/port form is the one the shell types back.
    const int found = get_slot_number() == 0
                          ? portset2str(text.data(), get_port_num(0), &set)
                          : portset2str_wo_iftype(text.data(), get_port_num(0), &set);
    EXPECT_EQ(found, static_cast<int>(pnums.size()));
    return text.data();
}

std::vector<int> parse_ports(const std::string &text, int *count = nullptr) {
    portset_t set;
    ps_zero(&set); // an empty text leaves the set untouched
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

TEST_P(EveryChassis, PortSetsReadBackAsPrinted) {
    const int physical = get_port_num(1);
    for (int round = 0; round < kSetsPerChassis; ++round) {
        const std::vector<int> pnums = random_members(rng, physical);
        const std::string text = format_ports(pnums);
        int count = -1;
        EXPECT_EQ(parse_ports(text, &count), pnums) << text;
        EXPECT_EQ(count, static_cast<int>(pnums.size())) << text;

        // The shell's own list parser reads the same text to the same ports.
        if (!pnums.empty()) {
            CliCapture capture;
            std::vector<uint32_t> listed(2048);
            const int n =
                get_port_list(text.c_str(), listed.data(), get_port_num(0), capture.ctx());
            listed.resize(static_cast<std::size_t>(std::max(n, 0)));
            EXPECT_EQ(std::vector<int>(listed.begin(), listed.end()), pnums) << text;
            EXPECT_EQ(capture.text(), "") << text;
        }
    }
}

TEST_P(EveryChassis, AnyPortSetTextPrintsCanonically) {
    const int physical = get_port_num(1);
    for (int round = 0; round < kSetsPerChassis; ++round) {
        const std::vector<int> pnums = random_members(rng, physical);
        if (pnums.empty()) {
            continue;
        }
        std::string text;
        for (const auto &[first, last] : scrambled_pieces(rng, pnums)) {
            text += (text.empty() ? "" : ",") + port_token(first);
            if (last != first || std::bernoulli_distribution(0.1)(rng)) {
                text += "-" + port_token(last); // "a-a" is a range too
            }
        }
        EXPECT_EQ(format_ports(parse_ports(text)), format_ports(pnums)) << text;
    }
}

using IdSet = std::array<uint32_t, GV_ID_SET_WORDS>;

IdSet id_set(const std::vector<int> &ids) {
    IdSet set{};
    for (int id : ids) {
        ::set(set.data(), id - 1);
    }
    return set;
}

// VLAN lists read as the shell's id lists are read: ranges of 1..4094.
std::vector<int> parse_vlans(const std::string &text, CliCapture &capture) {
    std::vector<value_range> ranges(4096);
    const int count = get_port_token(text.c_str(), ranges.data(), kVlanMax, capture.ctx());
    std::set<int> ids;
    for (int i = 0; i < count; ++i) {
        for (int id = ranges[static_cast<std::size_t>(i)].low;
             id <= ranges[static_cast<std::size_t>(i)].high; ++id) {
            ids.insert(id);
        }
    }
    return {ids.begin(), ids.end()};
}

std::string vlan_text(const std::vector<int> &ids) {
    std::vector<char> text(40000);
    const IdSet set = id_set(ids);
    EXPECT_EQ(vlanset2str(text.data(), kVlanMax, set.data()), static_cast<int>(ids.size()));
    return text.data();
}

TEST_P(EveryChassis, VlanAndBridgeSetsReadBackAsPrinted) {
    for (int round = 0; round < kSetsPerChassis; ++round) {
        const std::vector<int> ids = random_members(rng, kVlanMax);
        const std::string text = vlan_text(ids);
        CliCapture capture;
        EXPECT_EQ(parse_vlans(text, capture), ids);
        EXPECT_EQ(capture.text(), "");

        // The bridge text agrees whenever max is the id capacity.
        const IdSet set = id_set(ids);
        std::vector<char> other(40000);
        EXPECT_EQ(brset2str(other.data(), kVlanMax, set.data()), static_cast<int>(ids.size()));
        EXPECT_EQ(other.data(), text);
    }
}

TEST_P(EveryChassis, AnyVlanTextPrintsCanonically) {
    for (int round = 0; round < kSetsPerChassis; ++round) {
        const std::vector<int> ids = random_members(rng, kVlanMax);
        std::string text;
        for (const auto &[first, last] : scrambled_pieces(rng, ids)) {
            text += (text.empty() ? "" : ",") + std::to_string(first);
            if (last != first) {
                text += "-" + std::to_string(last);
            }
        }
        CliCapture capture;
        EXPECT_EQ(vlan_text(parse_vlans(text, capture)), vlan_text(ids)) << text;
    }
}

TEST(BridgeSets, SlotlessBoxesReadBridgeTextBack) {
    ChassisRoot root{"k3100x"};
    std::mt19937 rng{4094};
    for (int round = 0; round < kSetsPerChassis; ++round) {
        const std::vector<int> ids = random_members(rng, kVlanMax);
        const IdSet set = id_set(ids);
        std::vector<char> text(40000);
        brset2str(text.data(), kVlanMax, set.data());
        IdSet back{};
        const int count = ids.empty() ? 0 : getbrset(text.data(), kVlanMax, back.data());
        EXPECT_EQ(count, static_cast<int>(ids.size())) << text.data();
        EXPECT_EQ(back, set) << text.data();
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, EveryChassis,
                         ::testing::ValuesIn(gvtest::shipped_chassis_names()),
                         [](const auto &info) { return info.param; });

} // namespace
