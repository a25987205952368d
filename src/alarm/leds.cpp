// The three LEDs: switched through the sensor driver, read back from it and
// mirrored into the board controller.
#include "alarm/alarm_state.h"
#include "os/os.h"
#include "sys/channel.h"
#include "sys/scan.h"

#include "gvutil/platform.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace {

constexpr const char *kSensor = "/proc/sensor";
constexpr const char *kStatusQuery = "alarm-led status all";
constexpr std::size_t kTextLimit = 512;
// The sensor driver keeps each LED in two registers.
constexpr std::array<int, 2> kLedRegisters = {30, 31};

gv::sys::ExchangeArea sensor_area;

const char *led_name(int led) noexcept {
    switch (led) {
    case GV_ALARM_CRITICAL:
        return "crit-led";
    case GV_ALARM_MAJOR:
        return "maj-led";
    default:
        return "min-led";
    }
}

const char *query_sensor() noexcept {
    gv::sys::exchange(sensor_area, kSensor, kStatusQuery, 0);
    return sensor_area.reply();
}

// The board controller's value: critical 1, major 2, minor 4. An LED whose
// state does not read counts as off.
int mirror_value(const char *status) noexcept {
    std::array<int, 3> leds{};
    gv::sys::scan_ints(status, "%d%d%d", leds);
    return ((leds[0] == 1 ? 1 : 0) + (leds[1] == 1 ? 2 : 0)) | (leds[2] == 1 ? 4 : 0);
}

} // namespace

namespace gv::alarm {

void drive_led(int led, int state) noexcept {
    if (led >= GV_ALARM_CRITICAL && led <= GV_ALARM_MINOR && state < 2) {
        for (const int reg : kLedRegisters) {
            char command[64];
            std::snprintf(command, sizeof command, "scontrol -f /proc/sensor %s %d %d",
                          led_name(led), reg, state);
            gv::os::run_command(command);
        }
    }
    char command[64];
    std::snprintf(command, sizeof command, "echo write 9 12 9 %d > /proc/ibc",
                  mirror_value(query_sensor()));
    gv::os::run_command(command);
}

} // namespace gv::alarm

int get_alarm_led_status(char *buf) noexcept {
    const char *reply = query_sensor();
    const std::size_t length = std::strlen(reply);
    if (length > 0 && buf != nullptr) {
        const std::size_t copied = std::min(length, kTextLimit);
        std::memcpy(buf, reply, copied);
        buf[copied] = '\0';
    }
    return static_cast<int>(length);
}

int is_after_config(void) noexcept {
    char *reply = nullptr;
    swch_sioctl("/proc/switch/misc/ctrl", "get config", &reply, 0);
    std::array<int, 1> value{};
    if (reply != nullptr) {
        gv::sys::scan_ints(reply, "%d", value);
    }
    return value[0];
}
