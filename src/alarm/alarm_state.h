// What the alarm files, the cause setters and the LED driver share.
#pragma once

#include "gvutil/alarm.h"

namespace gv::alarm {

// Switches one LED (GV_ALARM_CRITICAL, _MAJOR, _MINOR; state 0 off, 1 on)
// through the sensor driver, then reads the three LEDs back and mirrors
// them into the board controller.
void drive_led(int led, int state) noexcept;

// Rewrites "/tmp/.alarm_cur_led" from alarm_severity_status; false when
// the file is left as it was.
bool write_active_file() noexcept;

// Whether the cause has an active alarm in alarm_severity_status.
bool cause_active(int cause) noexcept;

} // namespace gv::alarm
