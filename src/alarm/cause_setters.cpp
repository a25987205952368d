// The ten cause setters: one behaviour, differing only in the cause.
#include "alarm/alarm_state.h"

#include <array>

namespace {

constexpr std::array<int, 3> kSeverities = {GV_ALARM_CRITICAL, GV_ALARM_MAJOR, GV_ALARM_MINOR};

bool drives(int severity, int cause) noexcept {
    return alarm_severity[severity][cause] == 1;
}

bool enabled(int severity) noexcept {
    return alarm_severity[severity][GV_ALARM_DISABLED] == 0;
}

// Active alarms of a severity, each cause counted once however many bits
// it holds; 0 when the severity is disabled.
int count_active(int severity) noexcept {
    readAlarmLedProc();
    readCurAlarmLedProc();
    if (!enabled(severity)) {
        return 0;
    }
    int count = 0;
    for (int cause = 0; cause < GV_ALARM_CAUSES; ++cause) {
        count += drives(severity, cause) && gv::alarm::cause_active(cause) ? 1 : 0;
    }
    return count;
}

// Only the first enabled severity in the order critical, major, minor is
// driven. A minor severity that has the cause but is disabled answers 3.
int raise(int cause, int read) noexcept {
    for (const int severity : {GV_ALARM_CRITICAL, GV_ALARM_MAJOR}) {
        if (drives(severity, cause) && enabled(severity)) {
            gv::alarm::drive_led(severity, 1);
            return 0;
        }
    }
    if (!drives(GV_ALARM_MINOR, cause)) {
        return read;
    }
    if (!enabled(GV_ALARM_MINOR)) {
        return 3;
    }
    gv::alarm::drive_led(GV_ALARM_MINOR, 1);
    return 0;
}

// The LED stays on while other causes of its severity are active; the
// count of those is the answer then.
int clear(int cause, int read) noexcept {
    for (const int severity : kSeverities) {
        if (!drives(severity, cause) || !enabled(severity)) {
            continue;
        }
        const int holding = count_active(severity);
        if (holding != 0) {
            return holding;
        }
        gv::alarm::drive_led(severity, 0);
        return 0;
    }
    return read;
}

int set_cause_led(int cause, int on) noexcept {
    const int read = readAlarmLedProc();
    if (on == 1) {
        return raise(cause, read);
    }
    if (on == 0) {
        return clear(cause, read);
    }
    return 0;
}

} // namespace

int set_alarm_led_fan_fail(int on) noexcept {
    return set_cause_led(GV_ALARM_FAN_FAIL, on);
}
int set_alarm_led_fan_remove(int on) noexcept {
    return set_cause_led(GV_ALARM_FAN_REMOVE, on);
}
int set_alarm_led_memory_over(int on) noexcept {
    return set_cause_led(GV_ALARM_MEMORY_OVER, on);
}
int set_alarm_led_module_remove(int on) noexcept {
    return set_cause_led(GV_ALARM_MODULE_REMOVE, on);
}
int set_alarm_led_port_link_down(int on) noexcept {
    return set_cause_led(GV_ALARM_PORT_LINK_DOWN, on);
}
int set_alarm_led_port_remove(int on) noexcept {
    return set_cause_led(GV_ALARM_PORT_REMOVE, on);
}
int set_alarm_led_port_threshold_over(int on) noexcept {
    return set_cause_led(GV_ALARM_PORT_THRESHOLD_OVER, on);
}
int set_alarm_led_power_fail(int on) noexcept {
    return set_cause_led(GV_ALARM_POWER_FAIL, on);
}
int set_alarm_led_power_remove(int on) noexcept {
    return set_cause_led(GV_ALARM_POWER_REMOVE, on);
}
int set_alarm_led_temperature_high(int on) noexcept {
    return set_cause_led(GV_ALARM_TEMPERATURE_HIGH, on);
}
