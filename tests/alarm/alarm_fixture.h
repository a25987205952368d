// A chassis root whose sensor driver, scontrol and board controller are the
// generated ones, with the alarm tables zero as at load.
#pragma once

#include "gvutil/alarm.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>

namespace gvtest {

class AlarmTest : public ::testing::Test {
  protected:
    AlarmTest() { forget_tables(); }
    ~AlarmTest() override { forget_tables(); }

    static void forget_tables() {
        std::memset(alarm_severity, 0, sizeof alarm_severity);
        std::memset(&alarm_severity_status, 0, sizeof alarm_severity_status);
    }

    // Configures the cause for these severities and writes the file as the
    // configuration side does.
    static void route(int cause, std::initializer_list<int> severities) {
        for (const int severity : severities) {
            alarm_severity[severity][cause] = 1;
        }
        ASSERT_EQ(writeAlarmLedProc(), 0);
    }

    std::string read(std::string_view relative) const {
        std::ifstream in(root.path() + "/" + std::string(relative), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    // The sensor's registers: "crit maj min" of register 30, then of 31.
    std::string leds() const { return read("var/sensor/leds"); }
    std::string mirrored() const { return read("proc/ibc"); }
    std::string active_line() const { return read("tmp/.alarm_cur_led"); }

    ChassisRoot root{"test3"};
};

} // namespace gvtest
