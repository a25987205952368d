// The two alarm state files: their exact lines, what a bad file leaves in
// the tables, the cause names and bit numbers, and files that survive a
// writer killed at any moment.
#include "alarm/alarm_fixture.h"

#include <array>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using gvtest::AlarmTest;

constexpr std::uint64_t kTop = std::uint64_t{1} << 63;

TEST_F(AlarmTest, ConfigurationLineRoundTrips) {
    alarm_severity[0][0] = 4294967295U;
    alarm_severity[1][3] = 1;
    alarm_severity[3][10] = 2147483648U;
    ASSERT_EQ(writeAlarmLedProc(), 0);
    std::string expected = "4294967295";
    for (int word = 1; word < 44; ++word) {
        expected += word == 14 ? " 1" : word == 43 ? " 2147483648" : " 0";
    }
    EXPECT_EQ(read("tmp/.alarm_led"), expected + "\n");
    EXPECT_EQ(std::filesystem::status(root.path() + "/tmp/.alarm_led").permissions(),
              std::filesystem::perms(0644));
    forget_tables();
    ASSERT_EQ(readAlarmLedProc(), 0);
    EXPECT_EQ(alarm_severity[0][0], 4294967295U);
    EXPECT_EQ(alarm_severity[1][3], 1U);
    EXPECT_EQ(alarm_severity[3][10], 2147483648U);
}

// Words are taken up to the first that does not read as a number its field
// can hold (%u written, %d read: the same bits); the rest keep their values.
TEST_F(AlarmTest, BadConfigurationFiles) {
    const struct {
        const char *text;
        int taken; // words replaced, from the first
        std::uint32_t first;
    } rows[] = {
        {"", 0, 0},
        {"garbage", 0, 0},
        {"1 1 x 1", 2, 1},
        {"5", 1, 5},
        {"4294967295", 1, 4294967295U},
        {"4294967296", 0, 0},
        {"-1", 1, 4294967295U},
        {"-2147483648", 1, 2147483648U},
        {"-2147483649", 0, 0},
        {"+3\n\n\t4", 2, 3},
        {"\x01\x02\xff", 0, 0},
        {"3-4", 2, 3},
    };
    for (const auto &row : rows) {
        for (auto &group : alarm_severity) {
            for (auto &word : group) {
                word = 77;
            }
        }
        root.write_file("tmp/.alarm_led", row.text);
        EXPECT_EQ(readAlarmLedProc(), 0) << row.text;
        if (row.taken > 0) {
            EXPECT_EQ(alarm_severity[0][0], row.first) << row.text;
        }
        const std::uint32_t *words = &alarm_severity[0][0];
        for (int i = row.taken; i < 44; ++i) {
            ASSERT_EQ(words[i], 77U) << row.text << ", word " << i;
        }
    }
    // 44 words and more: the first 44 are the table.
    std::string full;
    for (int i = 1; i <= 50; ++i) {
        full += std::to_string(i) + " ";
    }
    root.write_file("tmp/.alarm_led", full);
    EXPECT_EQ(readAlarmLedProc(), 0);
    EXPECT_EQ(alarm_severity[0][0], 1U);
    EXPECT_EQ(alarm_severity[3][10], 44U);
    std::filesystem::remove(root.path() + "/tmp/.alarm_led");
    EXPECT_EQ(readAlarmLedProc(), -1);
    EXPECT_EQ(alarm_severity[3][10], 44U) << "a missing file leaves the table";
}

TEST_F(AlarmTest, BadActiveAlarmFiles) {
    const struct {
        const char *text;
        std::uint32_t fan_fail;
        std::uint64_t module_low, module_high;
        std::uint32_t temperature;
    } rows[] = {
        {"1 2 3 4 5 6 7 8 9 10 11 12 13 14", 1, 4, 5, 14},
        {"1 2 3 18446744073709551615 -9223372036854775808", 1, UINT64_MAX, kTop, 9},
        {"1 2 3 18446744073709551616 7", 1, 9, 9, 9},
        {"1 2 3 -9223372036854775809 7", 1, 9, 9, 9},
        {"4294967295 0 0 1", 4294967295U, 1, 9, 9},
        {"x 1 1 1", 9, 9, 9, 9},
        {"", 9, 9, 9, 9},
    };
    for (const auto &row : rows) {
        alarm_severity_status = {9, 9, 9, {9, 9}, {9, 9}, {9, 9}, {9, 9}, 9, 9, 9};
        root.write_file("tmp/.alarm_cur_led", row.text);
        EXPECT_EQ(readCurAlarmLedProc(), 0);
        EXPECT_EQ(alarm_severity_status.fan_fail, row.fan_fail) << row.text;
        EXPECT_EQ(alarm_severity_status.module_remove[0], row.module_low) << row.text;
        EXPECT_EQ(alarm_severity_status.module_remove[1], row.module_high) << row.text;
        EXPECT_EQ(alarm_severity_status.temperature, row.temperature) << row.text;
    }
    std::filesystem::remove(root.path() + "/tmp/.alarm_cur_led");
    EXPECT_EQ(readCurAlarmLedProc(), -1);
}

// Which field each spelling of a cause reaches, by the characters looked at.
TEST_F(AlarmTest, CauseNamesByCharacterPosition) {
    const struct {
        std::string cause;
        int result;
        const char *line; // the file afterwards; nullptr: not written
    } rows[] = {
        {"all", 0, "0 0 0 0 0 0 0 0 0 0 0 0 0 0\n"},
        {"a", 0, "0 0 0 0 0 0 0 0 0 0 0 0 0 0\n"},
        {"fan_fail", 0, "8 0 0 0 0 0 0 0 0 0 0 0 0 0\n"},
        {"fan-remove", 0, "0 8 0 0 0 0 0 0 0 0 0 0 0 0\n"},
        {"fan r", 0, "0 8 0 0 0 0 0 0 0 0 0 0 0 0\n"},
        {"fanfail", -1, nullptr},
        {"fan", -1, nullptr},
        {"f", -1, nullptr},
        {"memory", 0, "0 0 1 0 0 0 0 0 0 0 0 0 0 0\n"},
        {"mo", 0, "0 0 0 8 0 0 0 0 0 0 0 0 0 0\n"},
        {"m", -1, nullptr},
        {"mx", -1, nullptr},
        {"port_link_down", 0, "0 0 0 0 0 8 0 0 0 0 0 0 0 0\n"},
        {"port_remove", 0, "0 0 0 0 0 0 0 8 0 0 0 0 0 0\n"},
        {"port_threshold", 0, "0 0 0 0 0 0 0 0 0 8 0 0 0 0\n"},
        {"power_fail", 0, "0 0 0 0 0 0 0 0 0 0 0 8 0 0\n"},
        {"power_remove", 0, "0 0 0 0 0 0 0 0 0 0 0 0 8 0\n"},
        {"power_", -1, nullptr},
        {"port", -1, nullptr},
        {"p", -1, nullptr},
        {"temp", 0, "0 0 0 0 0 0 0 0 0 0 0 0 0 1\n"},
        {"t", 0, "0 0 0 0 0 0 0 0 0 0 0 0 0 1\n"},
        {"Fan_fail", -1, nullptr},
        {"", -1, nullptr},
        {"x", -1, nullptr},
        {"fan_f" + std::string(100000, 'z'), 0, "8 0 0 0 0 0 0 0 0 0 0 0 0 0\n"},
    };
    for (const auto &row : rows) {
        std::filesystem::remove(root.path() + "/tmp/.alarm_cur_led");
        forget_tables();
        EXPECT_EQ(set_alarm_status(row.cause.c_str(), 1, 3), row.result) << row.cause.substr(0, 20);
        if (row.line == nullptr) {
            EXPECT_FALSE(std::filesystem::exists(root.path() + "/tmp/.alarm_cur_led"));
        } else {
            EXPECT_EQ(active_line(), row.line) << row.cause.substr(0, 20);
        }
    }
    EXPECT_EQ(set_alarm_status(nullptr, 1, 3), -1);
}

// Two-half sets: 0-62 in the low half, 63 and up in the high half.
TEST_F(AlarmTest, TwoHalfBitNumbers) {
    const struct {
        int index;
        std::uint64_t low, high;
    } rows[] = {
        {0, 1, 0},      {62, std::uint64_t{1} << 62, 0},
        {63, 0, 1},     {64, 0, 2},
        {126, 0, kTop}, {127, 0, 0},
        {-1, 0, 0},     {1000, 0, 0},
    };
    for (const char *cause : {"module_remove", "port_link_down", "port_remove", "port_threshold"}) {
        for (const auto &row : rows) {
            forget_tables();
            std::filesystem::remove(root.path() + "/tmp/.alarm_cur_led");
            ASSERT_EQ(set_alarm_status(cause, 1, row.index), 0);
            forget_tables();
            ASSERT_EQ(readCurAlarmLedProc(), 0);
            const std::uint64_t *halves =
                std::string_view(cause) == "module_remove"    ? alarm_severity_status.module_remove
                : std::string_view(cause) == "port_link_down" ? alarm_severity_status.link_down
                : std::string_view(cause) == "port_remove"    ? alarm_severity_status.port_remove
                                                              : alarm_severity_status.threshold;
            EXPECT_EQ(halves[0], row.low) << cause << " " << row.index;
            EXPECT_EQ(halves[1], row.high) << cause << " " << row.index;
            ASSERT_EQ(set_alarm_status(cause, 0, row.index), 0);
            EXPECT_EQ(halves[0] | halves[1], 0U) << cause << " " << row.index;
        }
    }
    set_alarm_status("module_remove", 1, 62);
    set_alarm_status("module_remove", 1, 126);
    EXPECT_EQ(active_line(), "0 0 0 4611686018427387904 9223372036854775808 0 0 0 0 0 0 0 0 0\n");
    EXPECT_EQ(set_alarm_status("module_remove", 2, 62), 0);
    EXPECT_EQ(alarm_severity_status.module_remove[0], std::uint64_t{1} << 62)
        << "on 2 changes nothing";
}

// 32-bit sets: setting takes index & 63 (32-63 set nothing), clearing
// index & 31.
TEST_F(AlarmTest, WordBitNumbersSetAndClearAsymmetrically) {
    const struct {
        int on;
        int index;
        std::uint32_t before, after;
    } rows[] = {
        {1, 0, 0, 1},  {1, 31, 0, 0x80000000U}, {1, 32, 0, 0},           {1, 63, 0, 0},
        {1, 64, 0, 1}, {1, 95, 0, 0x80000000U}, {1, -1, 0, 0},           {1, -64, 0, 1},
        {0, 0, 3, 2},  {0, 33, 3, 1},           {0, 31, 0x80000001U, 1}, {0, -1, 0x80000001U, 1},
        {3, 1, 5, 5},  {-1, 1, 5, 5},
    };
    for (const char *cause : {"fan_fail", "fan_remove", "power_fail", "power_remove"}) {
        std::uint32_t *bits =
            std::string_view(cause) == "fan_fail"     ? &alarm_severity_status.fan_fail
            : std::string_view(cause) == "fan_remove" ? &alarm_severity_status.fan_remove
            : std::string_view(cause) == "power_fail" ? &alarm_severity_status.power_fail
                                                      : &alarm_severity_status.power_remove;
        for (const auto &row : rows) {
            forget_tables();
            *bits = row.before;
            std::filesystem::remove(root.path() + "/tmp/.alarm_cur_led");
            ASSERT_EQ(set_alarm_status(cause, row.on, row.index), 0);
            forget_tables();
            ASSERT_EQ(readCurAlarmLedProc(), 0);
            EXPECT_EQ(*bits, row.after) << cause << " on " << row.on << " index " << row.index;
        }
    }
}

// A writer killed at any moment leaves each file holding the old line or
// the new one, whole.
TEST_F(AlarmTest, FilesSurviveAWriterKilledAtAnyMoment) {
    const std::array<std::string, 2> configs = {
        "1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1\n",
        "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 "
        "0\n"};
    const std::array<std::string, 2> actives = {"0 0 0 0 9223372036854775808 0 0 0 0 0 0 0 0 0\n",
                                                "0 0 0 0 0 0 0 0 0 0 0 0 0 0\n"};
    std::mt19937 random(12);
    const std::string dir = root.path() + "/tmp";
    for (int kill_no = 0; kill_no < 100; ++kill_no) {
        int progress[2];
        ASSERT_EQ(pipe(progress), 0);
        const pid_t writer = fork();
        ASSERT_GE(writer, 0);
        if (writer == 0) {
            close(progress[0]);
            for (unsigned round = 0;; ++round) {
                for (auto &group : alarm_severity) {
                    for (auto &word : group) {
                        word = round % 2 == 0 ? 1 : 0;
                    }
                }
                writeAlarmLedProc();
                set_alarm_status("module_remove", round % 2 == 0 ? 1 : 0, 126);
                if (round < 2) {
                    const char done = 1;
                    (void)!write(progress[1], &done, 1);
                }
            }
        }
        close(progress[1]);
        char done = 0;
        ASSERT_EQ(::read(progress[0], &done, 1), 1);
        ASSERT_EQ(::read(progress[0], &done, 1), 1) << "the writer made both lines once";
        close(progress[0]);
        // Let it run on for a random while, then kill it wherever it is.
        volatile unsigned spin = 0;
        for (unsigned i = std::uniform_int_distribution<unsigned>(0, 2000000)(random); i > 0; --i) {
            spin = spin + 1;
        }
        kill(writer, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(writer, &status, 0), writer);
        ASSERT_TRUE(WIFSIGNALED(status));
        const std::string config = read("tmp/.alarm_led");
        const std::string active = read("tmp/.alarm_cur_led");
        ASSERT_TRUE(config == configs[0] || config == configs[1])
            << "kill " << kill_no << ": " << config;
        ASSERT_TRUE(active == actives[0] || active == actives[1])
            << "kill " << kill_no << ": " << active;
    }
    // Killed writers may leave temporary files; every other name is ours.
    for (const auto &entry : std::filesystem::directory_iterator(dir)) {
        const std::string name = entry.path().filename().string();
        EXPECT_TRUE(name == ".alarm_led" || name == ".alarm_cur_led" ||
                    name.rfind(".alarm_led.", 0) == 0 || name.rfind(".alarm_cur_led.", 0) == 0)
            << name;
    }
}

} // namespace
