// alarm: the cause-to-LED configuration, the active alarms and the three
// LEDs; raise and clear a cause as the chassis' alarm reporting does.
#include "commands.h"

#include "gvutil/alarm.h"
#include "gvutil/sys.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

namespace gvtool {

namespace {

struct Cause {
    const char *name; // also the name set_alarm_status knows it by
    int (*setter)(int on);
};

constexpr std::array<Cause, GV_ALARM_CAUSES> kCauses = {{
    {"fan-fail", set_alarm_led_fan_fail},
    {"fan-remove", set_alarm_led_fan_remove},
    {"memory-over", set_alarm_led_memory_over},
    {"module-remove", set_alarm_led_module_remove},
    {"port-link-down", set_alarm_led_port_link_down},
    {"port-remove", set_alarm_led_port_remove},
    {"port-threshold-over", set_alarm_led_port_threshold_over},
    {"power-fail", set_alarm_led_power_fail},
    {"power-remove", set_alarm_led_power_remove},
    {"temperature-high", set_alarm_led_temperature_high},
}};

constexpr std::array<const char *, GV_ALARM_GROUPS> kSeverities = {"", "critical", "major",
                                                                   "minor"};

int find_cause(const char *name) {
    for (std::size_t i = 0; i < kCauses.size(); ++i) {
        if (std::strcmp(kCauses[i].name, name) == 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

int find_severity(const std::string &name) {
    for (int g = GV_ALARM_CRITICAL; g <= GV_ALARM_MINOR; ++g) {
        if (name == kSeverities[static_cast<std::size_t>(g)]) {
            return g;
        }
    }
    return -1;
}

// Indexes as set_alarm_status takes them.
void append_bits(std::string &text, std::uint64_t bits, int first_index) {
    for (int bit = 0; bit < 64; ++bit) {
        if ((bits >> bit & 1U) != 0) {
            text += (text.empty() ? "" : ",") + std::to_string(first_index + bit);
        }
    }
}

std::string active_text(int cause) {
    const alarm_severity_status_t &s = alarm_severity_status;
    std::string text;
    const std::uint64_t *halves = nullptr;
    switch (cause) {
    case GV_ALARM_FAN_FAIL:
        append_bits(text, s.fan_fail, 0);
        break;
    case GV_ALARM_FAN_REMOVE:
        append_bits(text, s.fan_remove, 0);
        break;
    case GV_ALARM_POWER_FAIL:
        append_bits(text, s.power_fail, 0);
        break;
    case GV_ALARM_POWER_REMOVE:
        append_bits(text, s.power_remove, 0);
        break;
    case GV_ALARM_MEMORY_OVER:
        return s.memory_over != 0 ? "yes" : "";
    case GV_ALARM_TEMPERATURE_HIGH:
        return s.temperature != 0 ? "yes" : "";
    case GV_ALARM_MODULE_REMOVE:
        halves = s.module_remove;
        break;
    case GV_ALARM_PORT_LINK_DOWN:
        halves = s.link_down;
        break;
    case GV_ALARM_PORT_REMOVE:
        halves = s.port_remove;
        break;
    default:
        halves = s.threshold;
        break;
    }
    if (halves != nullptr) {
        append_bits(text, halves[0], 0);
        append_bits(text, halves[1], 63);
    }
    return text;
}

void print_leds() {
    char status[GV_ALARM_TEXT_SIZE] = {};
    if (get_alarm_led_status(status) == 0) {
        std::printf("LEDs          the sensor driver gives no answer\n");
        return;
    }
    int leds[3] = {};
    if (std::sscanf(status, "%d %d %d", &leds[0], &leds[1], &leds[2]) != 3) {
        std::printf("LEDs          the sensor driver answers: %s", status);
        return;
    }
    std::printf("LEDs          critical %s, major %s, minor %s\n", leds[0] == 1 ? "ON" : "off",
                leds[1] == 1 ? "ON" : "off", leds[2] == 1 ? "ON" : "off");
}

int show() {
    const bool configured = readAlarmLedProc() == 0;
    const bool recorded = readCurAlarmLedProc() == 0;
    std::printf("%-22s %-9s %-9s %-9s %s\n", "cause", "critical", "major", "minor",
                "active (indexes)");
    for (int c = 0; c < GV_ALARM_CAUSES; ++c) {
        std::printf("%-22s", kCauses[static_cast<std::size_t>(c)].name);
        for (int g = GV_ALARM_CRITICAL; g <= GV_ALARM_MINOR; ++g) {
            std::printf(" %-9s", alarm_severity[g][c] == 1 ? "x" : ".");
        }
        std::printf(" %s\n", active_text(c).c_str());
    }
    std::printf("%-22s", "(LED disabled)");
    for (int g = GV_ALARM_CRITICAL; g <= GV_ALARM_MINOR; ++g) {
        std::printf(" %-9s", alarm_severity[g][GV_ALARM_DISABLED] != 0 ? "yes" : "no");
    }
    std::printf("\n\n");
    if (!configured) {
        std::printf("configuration /tmp/.alarm_led is missing: no cause drives an LED\n");
    }
    if (!recorded) {
        std::printf("active alarms /tmp/.alarm_cur_led is missing: none recorded\n");
    }
    print_leds();
    return 0;
}

int raise_or_clear(bool raise, Args args) {
    if (args.empty() || args.size() > 2) {
        return usage_error("alarm");
    }
    const int cause = find_cause(args[0]);
    const int index = args.size() == 2 ? stoi(args[1]) : 0;
    if (cause < 0 ||
        (args.size() == 2 && !is_digit(args[1], static_cast<int>(std::strlen(args[1]))))) {
        std::fprintf(stderr, "gvutil: unknown cause or index: %s\n", args[0]);
        return 2;
    }
    const Cause &c = kCauses[static_cast<std::size_t>(cause)];
    set_alarm_status(c.name, raise ? 1 : 0, index);
    const int result = c.setter(raise ? 1 : 0);
    std::printf("%s %s, index %d: setter answers %d", raise ? "raised" : "cleared", c.name, index,
                result);
    if (!raise && result > 0) {
        std::printf(" (%d active cause%s still hold%s the LED)", result, result == 1 ? "" : "s",
                    result == 1 ? "s" : "");
    } else if (raise && result == 3) {
        std::printf(" (its minor LED is disabled)");
    } else if (result == -1) {
        std::printf(" (no configuration file)");
    }
    std::printf("\n");
    print_leds();
    return 0;
}

// route CAUSE critical,major | none: the configuration side's part.
int route(Args args) {
    const int cause = args.size() == 2 ? find_cause(args[0]) : -1;
    if (cause < 0) {
        return usage_error("alarm");
    }
    readAlarmLedProc();
    for (int g = GV_ALARM_CRITICAL; g <= GV_ALARM_MINOR; ++g) {
        alarm_severity[g][cause] = 0;
    }
    const std::string list = args[1];
    for (std::size_t at = 0; list != "none" && at <= list.size();) {
        const std::size_t comma = std::min(list.find(',', at), list.size());
        const int severity = find_severity(list.substr(at, comma - at));
        if (severity < 0) {
            std::fprintf(stderr, "gvutil: unknown severity in %s\n", list.c_str());
            return 2;
        }
        alarm_severity[severity][cause] = 1;
        at = comma + 1;
    }
    return writeAlarmLedProc() == 0 ? show() : 1;
}

int enable(bool on, Args args) {
    const int severity = args.size() == 1 ? find_severity(args[0]) : -1;
    if (severity < 0) {
        return usage_error("alarm");
    }
    readAlarmLedProc();
    alarm_severity[severity][GV_ALARM_DISABLED] = on ? 0 : 1;
    return writeAlarmLedProc() == 0 ? show() : 1;
}

} // namespace

int run_alarm(Args args) {
    const std::string verb = args.empty() ? "show" : args[0];
    const Args rest = args.empty() ? args : args.subspan(1);
    if (verb == "show" && rest.empty()) {
        return show();
    }
    if (verb == "leds" && rest.empty()) {
        print_leds();
        return 0;
    }
    if (verb == "raise" || verb == "clear") {
        return raise_or_clear(verb == "raise", rest);
    }
    if (verb == "route") {
        return route(rest);
    }
    if (verb == "enable" || verb == "disable") {
        return enable(verb == "enable", rest);
    }
    return usage_error("alarm");
}

} // namespace gvtool
