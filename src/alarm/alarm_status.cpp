// The active-alarm table: which causes hold an alarm, and on what.
#include "alarm/alarm_state.h"

#include <cstdint>
#include <string_view>

namespace {

enum class Cause {
    unknown,
    all,
    fan_fail,
    fan_remove,
    memory_over,
    module_remove,
    port_link_down,
    port_remove,
    port_threshold_over,
    power_fail,
    power_remove,
    temperature_high,
};

char char_at(std::string_view name, std::size_t at) noexcept {
    return at < name.size() ? name[at] : '\0';
}

Cause fan_cause(std::string_view name) noexcept {
    switch (char_at(name, 4)) {
    case 'f':
        return Cause::fan_fail;
    case 'r':
        return Cause::fan_remove;
    default:
        return Cause::unknown;
    }
}

Cause port_or_power_cause(std::string_view name) noexcept {
    switch (char_at(name, 5)) {
    case 'l':
        return Cause::port_link_down;
    case 'r':
        return Cause::port_remove;
    case 't':
        return Cause::port_threshold_over;
    default:
        break;
    }
    switch (char_at(name, 6)) {
    case 'f':
        return Cause::power_fail;
    case 'r':
        return Cause::power_remove;
    default:
        return Cause::unknown;
    }
}

// Only these positions are looked at, so "fan_fail", "fan-fail" and
// "fan fail" are one cause, and "fanfail" is none.
Cause recognise(std::string_view name) noexcept {
    switch (char_at(name, 0)) {
    case 'a':
        return Cause::all;
    case 'f':
        return fan_cause(name);
    case 'm':
        return char_at(name, 1) == 'e'   ? Cause::memory_over
               : char_at(name, 1) == 'o' ? Cause::module_remove
                                         : Cause::unknown;
    case 'p':
        return port_or_power_cause(name);
    case 't':
        return Cause::temperature_high;
    default:
        return Cause::unknown;
    }
}

// Setting takes index & 63 and so sets nothing for 32-63, while clearing
// takes index & 31: callers depend on the asymmetry staying as it is.
void change_word(std::uint32_t &bits, int on, int index) noexcept {
    if (on == 1) {
        const unsigned bit = static_cast<unsigned>(index) & 63U;
        if (bit < 32) {
            bits |= std::uint32_t{1} << bit;
        }
    } else if (on == 0) {
        bits &= ~(std::uint32_t{1} << (static_cast<unsigned>(index) & 31U));
    }
}

void change_flag(std::uint32_t &flag, int on) noexcept {
    if (on == 1) {
        flag |= 1U;
    } else if (on == 0) {
        flag &= ~1U;
    }
}

// Index 0-62 is that bit of the low half, 63 and up bit (index - 63) of the
// high half: bit 63 of the low half is never used. Indexes that name no bit
// (negative, or past bit 63 of the high half) change nothing.
void change_halves(std::uint64_t (&halves)[2], int on, int index) noexcept {
    constexpr int kLowBits = 63;
    if (index < 0 || index >= kLowBits + 64 || (on != 0 && on != 1)) {
        return;
    }
    std::uint64_t &half = index < kLowBits ? halves[0] : halves[1];
    const std::uint64_t bit = std::uint64_t{1} << (index < kLowBits ? index : index - kLowBits);
    half = on == 1 ? (half | bit) : (half & ~bit);
}

void record(Cause cause, int on, int index) noexcept {
    alarm_severity_status_t &s = alarm_severity_status;
    switch (cause) {
    case Cause::fan_fail:
        change_word(s.fan_fail, on, index);
        break;
    case Cause::fan_remove:
        change_word(s.fan_remove, on, index);
        break;
    case Cause::memory_over:
        change_flag(s.memory_over, on);
        break;
    case Cause::module_remove:
        change_halves(s.module_remove, on, index);
        break;
    case Cause::port_link_down:
        change_halves(s.link_down, on, index);
        break;
    case Cause::port_remove:
        change_halves(s.port_remove, on, index);
        break;
    case Cause::port_threshold_over:
        change_halves(s.threshold, on, index);
        break;
    case Cause::power_fail:
        change_word(s.power_fail, on, index);
        break;
    case Cause::power_remove:
        change_word(s.power_remove, on, index);
        break;
    case Cause::temperature_high:
        change_flag(s.temperature, on);
        break;
    case Cause::all:
    case Cause::unknown:
        break;
    }
}

} // namespace

int set_alarm_status(const char *cause, int on, int index) noexcept {
    const Cause which = cause != nullptr ? recognise(cause) : Cause::unknown;
    if (which == Cause::unknown) {
        return -1;
    }
    readCurAlarmLedProc();
    record(which, on, index);
    // A file that cannot be written still answers 0: the alarm is recorded
    // in the table, and the next call writes it out.
    gv::alarm::write_active_file();
    return 0;
}

namespace gv::alarm {

bool cause_active(int cause) noexcept {
    const alarm_severity_status_t &s = alarm_severity_status;
    switch (cause) {
    case GV_ALARM_FAN_FAIL:
        return s.fan_fail != 0;
    case GV_ALARM_FAN_REMOVE:
        return s.fan_remove != 0;
    case GV_ALARM_MEMORY_OVER:
        return s.memory_over != 0;
    case GV_ALARM_MODULE_REMOVE:
        return (s.module_remove[0] | s.module_remove[1]) != 0;
    case GV_ALARM_PORT_LINK_DOWN:
        return (s.link_down[0] | s.link_down[1]) != 0;
    case GV_ALARM_PORT_REMOVE:
        return (s.port_remove[0] | s.port_remove[1]) != 0;
    case GV_ALARM_PORT_THRESHOLD_OVER:
        return (s.threshold[0] | s.threshold[1]) != 0;
    case GV_ALARM_POWER_FAIL:
        return s.power_fail != 0;
    case GV_ALARM_POWER_REMOVE:
        return s.power_remove != 0;
    case GV_ALARM_TEMPERATURE_HIGH:
        return s.temperature != 0;
    default:
        return false;
    }
}

} // namespace gv::alarm
