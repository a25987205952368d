// Services that number ports: mirroring, slot liveness and trunk tables.
#include "gvutil/sys.h"
#include "gvutil/sysport.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using gvtest::ChassisRoot;

struct Mirror {
    int total = -1;
    int enabled = -1;
    std::string first, second;
};

std::string shown(const std::vector<mirror_entry> &list, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += (i == 0 ? "" : " ") + std::to_string(list[static_cast<std::size_t>(i)].port) + ">" +
                std::to_string(list[static_cast<std::size_t>(i)].number);
    }
    return text;
}

Mirror read_mirror() {
    std::vector<mirror_entry> first(32);
    std::vector<mirror_entry> second(32);
    int first_count = -1;
    int second_count = -1;
    Mirror mirror;
    mirror.total =
        get_mirror_info(first.data(), &first_count, second.data(), &second_count, &mirror.enabled);
    mirror.first = shown(first, first_count);
    mirror.second = shown(second, second_count);
    return mirror;
}

// test3 has 32 physical ports: numbers 1..32 name a port.
TEST(MirrorInfo, ColumnsOfTheTwoPortLines) {
    ChassisRoot root("test3");
    Mirror generated = read_mirror();
    EXPECT_EQ(generated.total, 0);
    EXPECT_EQ(generated.enabled, 0);

    struct Case {
        std::string file;
        int total, enabled;
        std::string first, second;
    };
    const std::string skipped = "2\n3\n4\n5\n";
    for (const Case &c : {
             Case{"mirror enabled\n" + skipped + "5  -  17 32 33 0\n7\n8\n-  -  -  1\n", 4, 1,
                  "1>5 3>17 4>32", "4>1"},
             // Up to two digits of a column; a number may run into the next column.
             Case{"mirror enabledx\n" + skipped + "123-  9x\n7\n8\n", 2, 1, "1>12 3>9", ""},
             Case{"mirror disabled\n" + skipped + "1\n", 1, 0, "1>1", ""},
             Case{"enabled mirror\n" + skipped + " 1\n", 0, 0, "", ""}, // columns start at 0
             Case{"mirror\n", 0, 0, "", ""},
             Case{"", 0, 0, "", ""},
             // Column 33 is past the ports: not read.
             Case{"m enabled\n" + skipped + std::string(96, '-') + "5\n", 0, 1, "", ""},
             Case{"m enabled\n" + skipped + std::string(93, '-') + "5\n", 1, 1, "32>5", ""},
         }) {
        root.write_file("proc/switch/mirror", c.file);
        const Mirror mirror = read_mirror();
        EXPECT_EQ(mirror.total, c.total) << c.file;
        EXPECT_EQ(mirror.enabled, c.enabled) << c.file;
        EXPECT_EQ(mirror.first, c.first) << c.file;
        EXPECT_EQ(mirror.second, c.second) << c.file;
    }
    std::filesystem::remove(root.path() + "/proc/switch/mirror");
    const Mirror none = read_mirror();
    EXPECT_EQ(none.total, 0);
    EXPECT_EQ(none.enabled, 0);
    EXPECT_EQ(none.first + none.second, "");

    int count = 0;
    int enabled = 0;
    std::array<mirror_entry, 32> list{};
    EXPECT_EQ(get_mirror_info(list.data(), &count, nullptr, &count, &enabled), 0);
}

// k7100 leaves slots 9, 11 and 12 empty.
TEST(AliveSlot, GeneratedSlotList) {
    ChassisRoot root("k7100");
    for (int slot = 0; slot <= 13; ++slot) {
        const bool empty = slot == 0 || slot == 9 || slot == 11 || slot == 12 || slot == 13;
        EXPECT_EQ(is_alive_slot(slot), empty ? 0 : 1) << slot;
    }
}

TEST(AliveSlot, FirstLineOfTheSlotWithAName) {
    ChassisRoot root("test3");
    struct Case {
        std::string file;
        int slot, alive;
    };
    for (const Case &c : {
             Case{"slot board\n 1 GPON8 running\n", 1, 1},
             Case{" 1 -\n 1 GPON8\n", 1, 0}, // the first line with a name decides
             Case{" 1\n 1 GPON8\n", 1, 1},   // a line without one does not
             Case{" 2 GPON8\n", 1, 0},
             Case{"-1 XE4\n", -1, 1},
             Case{"1GE8 x\n", 1, 1},              // the number ends where its digits do
             Case{"99999999999 GE\n1 -\n", 1, 0}, // no number beyond the int range
             Case{"", 1, 0},
         }) {
        root.write_file("proc/all_info", c.file);
        EXPECT_EQ(is_alive_slot(c.slot), c.alive) << c.file;
    }
    std::filesystem::remove(root.path() + "/proc/all_info");
    EXPECT_EQ(is_alive_slot(1), 0);
}

TEST(Trunks, FirstByteOfEachTwelveByteEntry) {
    std::array<unsigned char, 36> table{};
    table[0] = 5;
    table[1] = 9; // the caller's bytes, not a port
    table[12] = 200;
    table[24] = 0;
    struct Case {
        int count, port, in;
    };
    for (const Case c :
         {Case{3, 5, 1}, Case{3, 200, 1}, Case{3, 0, 1}, Case{3, 9, 0}, Case{1, 200, 0},
          Case{2, 200, 1}, Case{0, 5, 0}, Case{3, 456, 0}, Case{3, -56, 0}}) {
        EXPECT_EQ(is_port_in_trunk(table.data(), c.count, c.port), c.in) << c.port;
        EXPECT_EQ(is_port_under_trunk(table.data(), c.count, c.port), c.in) << c.port;
    }
    EXPECT_EQ(is_port_in_trunk(nullptr, 3, 5), 0);
}

} // namespace
