// Alarms through their life: raised and cleared causes, the LEDs they
// light, the board controller's mirror and the status queries.
#include "alarm/alarm_fixture.h"

#include <filesystem>
#include <string>

namespace {

using gvtest::AlarmTest;

constexpr int kCrit = GV_ALARM_CRITICAL;
constexpr int kMajor = GV_ALARM_MAJOR;
constexpr int kMinor = GV_ALARM_MINOR;

// A fan fails while a power supply fails too; both drive the critical LED,
// which stays on until the last of them clears.
TEST_F(AlarmTest, CriticalLedStaysOnUntilItsLastCauseClears) {
    route(GV_ALARM_FAN_FAIL, {kCrit, kMajor});
    route(GV_ALARM_POWER_FAIL, {kCrit});

    EXPECT_EQ(set_alarm_status("fan_fail", 1, 2), 0);
    EXPECT_EQ(active_line(), "4 0 0 0 0 0 0 0 0 0 0 0 0 0\n");
    EXPECT_EQ(set_alarm_led_fan_fail(1), 0);
    EXPECT_EQ(leds(), "1 0 0 1 0 0\n") << "only the first severity lights";
    EXPECT_EQ(mirrored(), "write 9 12 9 1\n");
    EXPECT_EQ(read("var/sensor/scontrol.log"), "crit-led 30 1\ncrit-led 31 1\n");

    EXPECT_EQ(set_alarm_status("power_fail", 1, 1), 0);
    EXPECT_EQ(set_alarm_led_power_fail(1), 0);

    EXPECT_EQ(set_alarm_status("fan_fail", 0, 2), 0);
    EXPECT_EQ(set_alarm_led_fan_fail(0), 1) << "the power failure holds the LED";
    EXPECT_EQ(leds(), "1 0 0 1 0 0\n");

    EXPECT_EQ(set_alarm_status("power_fail", 0, 1), 0);
    EXPECT_EQ(active_line(), "0 0 0 0 0 0 0 0 0 0 0 0 0 0\n");
    EXPECT_EQ(set_alarm_led_power_fail(0), 0);
    EXPECT_EQ(leds(), "0 0 0 0 0 0\n");
    EXPECT_EQ(mirrored(), "write 9 12 9 0\n");
}

// Each cause counts once however many bits it holds, and only causes of
// the LED's own severity hold it.
TEST_F(AlarmTest, ClearingCountsCausesNotBits) {
    route(GV_ALARM_PORT_LINK_DOWN, {kMajor});
    route(GV_ALARM_MODULE_REMOVE, {kMajor});
    route(GV_ALARM_PORT_REMOVE, {kMajor});
    route(GV_ALARM_TEMPERATURE_HIGH, {kMinor});
    for (const int port : {1, 5, 70}) {
        set_alarm_status("port_link_down", 1, port);
    }
    set_alarm_status("module_remove", 1, 64);
    set_alarm_status("temperature", 1, 0);
    EXPECT_EQ(set_alarm_led_port_remove(0), 2);
    set_alarm_status("module_remove", 0, 64);
    EXPECT_EQ(set_alarm_led_port_remove(0), 1);
    for (const int port : {1, 5}) {
        set_alarm_status("port_link_down", 0, port);
    }
    EXPECT_EQ(set_alarm_led_port_remove(0), 1) << "bit 7 of the high half still holds it";
    set_alarm_status("port_link_down", 0, 70);
    EXPECT_EQ(set_alarm_led_port_remove(0), 0);
}

TEST_F(AlarmTest, DisabledSeveritiesAreSkipped) {
    alarm_severity[kCrit][GV_ALARM_DISABLED] = 1;
    route(GV_ALARM_FAN_REMOVE, {kCrit, kMajor, kMinor});
    EXPECT_EQ(set_alarm_led_fan_remove(1), 0);
    EXPECT_EQ(leds(), "0 1 0 0 1 0\n") << "critical disabled: major lights";

    alarm_severity[kMinor][GV_ALARM_DISABLED] = 7;
    route(GV_ALARM_MEMORY_OVER, {kMinor});
    EXPECT_EQ(set_alarm_led_memory_over(1), 3) << "only a disabled minor severity has it";
    EXPECT_EQ(set_alarm_led_memory_over(0), 0) << "no enabled severity: the read's result";
    route(GV_ALARM_POWER_REMOVE, {kCrit});
    EXPECT_EQ(set_alarm_led_power_remove(1), 0) << "only a disabled critical: the read's result";
    EXPECT_EQ(leds(), "0 1 0 0 1 0\n");

    EXPECT_EQ(set_alarm_led_temperature_high(1), 0) << "configured nowhere";
    std::filesystem::remove(root.path() + "/tmp/.alarm_led");
    forget_tables();
    EXPECT_EQ(set_alarm_led_temperature_high(1), -1) << "no configuration file";
    EXPECT_EQ(set_alarm_led_temperature_high(0), -1);
    EXPECT_EQ(set_alarm_led_temperature_high(2), 0) << "neither on nor off";
}

TEST_F(AlarmTest, AllThreeLedsMirrorSeven) {
    const struct {
        int cause;
        int severity;
        int (*setter)(int);
        const char *sensor;
        const char *mirror;
    } steps[] = {
        {GV_ALARM_FAN_FAIL, kCrit, set_alarm_led_fan_fail, "1 0 0 1\n", "write 9 12 9 1\n"},
        {GV_ALARM_MODULE_REMOVE, kMinor, set_alarm_led_module_remove, "1 0 1 5\n",
         "write 9 12 9 5\n"},
        {GV_ALARM_PORT_THRESHOLD_OVER, kMajor, set_alarm_led_port_threshold_over, "1 1 1 7\n",
         "write 9 12 9 7\n"},
    };
    char status[GV_ALARM_TEXT_SIZE];
    for (const auto &step : steps) {
        route(step.cause, {step.severity});
        EXPECT_EQ(step.setter(1), 0);
        EXPECT_EQ(get_alarm_led_status(status), static_cast<int>(std::strlen(step.sensor)));
        EXPECT_STREQ(status, step.sensor);
        EXPECT_EQ(mirrored(), step.mirror);
    }
}

// The mirror counts only states of exactly 1, and an LED whose state does
// not read as off.
TEST_F(AlarmTest, MirrorOfOddSensorReplies) {
    route(GV_ALARM_FAN_FAIL, {kCrit});
    const struct {
        const char *reply;
        const char *mirror;
    } rows[] = {
        {"1 1 1 0\n", "write 9 12 9 7\n"}, {"2 1 1 0\n", "write 9 12 9 6\n"},
        {"1 x 1 0\n", "write 9 12 9 1\n"}, {"", "write 9 12 9 0\n"},
        {"1\t1\n1", "write 9 12 9 7\n"},   {"99999999999 1 1", "write 9 12 9 0\n"},
        {"-1 1 0", "write 9 12 9 2\n"},
    };
    std::filesystem::remove(root.path() + "/proc/sensor");
    for (const auto &row : rows) {
        root.write_file("proc/sensor", row.reply);
        EXPECT_EQ(set_alarm_led_fan_fail(1), 0);
        EXPECT_EQ(mirrored(), row.mirror) << row.reply;
    }
}

TEST_F(AlarmTest, SettersLeaveTheActiveAlarmsAlone) {
    route(GV_ALARM_POWER_FAIL, {kMajor});
    EXPECT_EQ(set_alarm_led_power_fail(1), 0);
    EXPECT_FALSE(std::filesystem::exists(root.path() + "/tmp/.alarm_cur_led"));
    EXPECT_EQ(alarm_severity_status.power_fail, 0U);
    set_alarm_status("power_fail", 1, 3);
    const std::string line = active_line();
    EXPECT_EQ(set_alarm_led_power_fail(0), 1) << "the setter does not clear the cause";
    EXPECT_EQ(set_alarm_led_power_fail(1), 0);
    EXPECT_EQ(active_line(), line);
}

TEST_F(AlarmTest, StatusQueries) {
    char buf[GV_ALARM_TEXT_SIZE];
    EXPECT_EQ(get_alarm_led_status(buf), 8);
    EXPECT_STREQ(buf, "0 0 0 0\n");

    std::filesystem::remove(root.path() + "/proc/sensor");
    const std::string long_reply(600, '7');
    root.write_file("proc/sensor", long_reply);
    EXPECT_EQ(get_alarm_led_status(buf), 600);
    EXPECT_EQ(std::string(buf), long_reply.substr(0, 512));
    root.write_file("proc/sensor", "");
    std::strcpy(buf, "kept");
    EXPECT_EQ(get_alarm_led_status(buf), 0);
    EXPECT_STREQ(buf, "kept");
    std::filesystem::remove(root.path() + "/proc/sensor");
    EXPECT_GT(get_alarm_led_status(buf), 0);
    EXPECT_STREQ(buf, "%file open error : /proc/sensor (No such file or directory)\n");

    const struct {
        const char *file; // nullptr: none
        int length;
        const char *copied;
    } lines[] = {
        {nullptr, 0, "kept"},
        {"", 0, "kept"},
        {"\n\r\n1 2 3\nnext\n", 5, "1 2 3"},
        {"0 0 0 0 0 0 0 0 0 0 0 0 0 0", 27, "0 0 0 0 0 0 0 0 0 0 0 0 0 0"},
    };
    for (const auto &row : lines) {
        std::filesystem::remove(root.path() + "/tmp/.alarm_cur_led");
        if (row.file != nullptr) {
            root.write_file("tmp/.alarm_cur_led", row.file);
        }
        std::strcpy(buf, "kept");
        EXPECT_EQ(get_alarm_led_cur_status(buf), row.length) << row.copied;
        EXPECT_STREQ(buf, row.copied);
    }
    root.write_file("tmp/.alarm_cur_led", "\n" + std::string(1000, 'x') + "\n");
    EXPECT_EQ(get_alarm_led_cur_status(buf), 1000);
    EXPECT_EQ(std::string(buf), std::string(512, 'x'));
}

TEST_F(AlarmTest, AfterConfig) {
    EXPECT_EQ(is_after_config(), 1);
    root.write_file("var/switch/config_applied", "0\n");
    EXPECT_EQ(is_after_config(), 0);
    const struct {
        const char *reply;
        int answer;
    } rows[] = {
        {"", 0},
        {"abc", 0},
        {"  42 more", 42},
        {"-3", -3},
        {"2147483647", 2147483647},
        {"2147483648", 0},
        {"\x80\xff", 0},
    };
    std::filesystem::remove(root.path() + "/proc/switch/misc/ctrl");
    for (const auto &row : rows) {
        root.write_file("proc/switch/misc/ctrl", row.reply);
        EXPECT_EQ(is_after_config(), row.answer) << row.reply;
    }
    std::filesystem::remove(root.path() + "/proc/switch/misc/ctrl");
    EXPECT_EQ(is_after_config(), 0);
}

} // namespace
