// The two alarm state files and the tables they hold. Each call reads the
// files afresh; the tables are what the last read or change left.
#include "alarm/alarm_state.h"
#include "os/os.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <string_view>

uint32_t alarm_severity[GV_ALARM_GROUPS][GV_ALARM_GROUP_WORDS] = {};
alarm_severity_status_t alarm_severity_status = {};
uint32_t last_install_state[17] = {};
uint32_t last_module_state[17] = {};

static_assert(sizeof last_install_state == 68 && sizeof last_module_state == 68,
              "callers keep 68 bytes of state in each");
static_assert(sizeof alarm_severity == 44 * sizeof(uint32_t), "44 words in four groups");

namespace {

constexpr const char *kLedFile = "/tmp/.alarm_led";
constexpr const char *kActiveFile = "/tmp/.alarm_cur_led";
constexpr std::size_t kTextLimit = 512;

bool is_space(int c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// One number as "%d" (bits 32) or "%lld" (bits 64) reads it into a field of
// that width. The writer used "%u" and "%llu", so a number up to the
// field's unsigned maximum is taken as those bits, as is a negative one down
// to the signed minimum; anything wider is not a number for this field.
// False at the end of the file or at something else; the character that
// ended the number is left for the next read.
bool read_number(std::FILE *in, int bits, std::uint64_t &value) noexcept {
    int c = std::fgetc(in);
    while (is_space(c)) {
        c = std::fgetc(in);
    }
    const bool negative = c == '-';
    if (c == '-' || c == '+') {
        c = std::fgetc(in);
    }
    if (c < '0' || c > '9') {
        return false;
    }
    const std::uint64_t largest = bits == 32 ? UINT32_MAX : UINT64_MAX;
    const std::uint64_t limit = negative ? largest / 2 + 1 : largest;
    std::uint64_t magnitude = 0;
    bool fits = true;
    for (; c >= '0' && c <= '9'; c = std::fgetc(in)) {
        const auto digit = static_cast<std::uint64_t>(c - '0');
        fits = fits && magnitude <= (limit - digit) / 10;
        magnitude = fits ? magnitude * 10 + digit : magnitude;
    }
    if (c != EOF) {
        std::ungetc(c, in);
    }
    if (!fits) {
        return false;
    }
    value = (negative ? 0 - magnitude : magnitude) & largest;
    return true;
}

// A field of the active-alarm table as the file holds it.
struct ActiveField {
    std::uint32_t *word;
    std::uint64_t *half;
};

std::array<ActiveField, 14> active_fields() noexcept {
    alarm_severity_status_t &s = alarm_severity_status;
    return {{{&s.fan_fail, nullptr},
             {&s.fan_remove, nullptr},
             {&s.memory_over, nullptr},
             {nullptr, &s.module_remove[0]},
             {nullptr, &s.module_remove[1]},
             {nullptr, &s.link_down[0]},
             {nullptr, &s.link_down[1]},
             {nullptr, &s.port_remove[0]},
             {nullptr, &s.port_remove[1]},
             {nullptr, &s.threshold[0]},
             {nullptr, &s.threshold[1]},
             {&s.power_fail, nullptr},
             {&s.power_remove, nullptr},
             {&s.temperature, nullptr}}};
}

} // namespace

// Words are taken in order up to the first that does not read; the rest
// keep their values.
int readAlarmLedProc(void) noexcept {
    std::FILE *in = gv::os::open_stream(kLedFile, "r");
    if (in == nullptr) {
        return -1;
    }
    for (auto &group : alarm_severity) {
        for (std::uint32_t &word : group) {
            std::uint64_t value = 0;
            if (!read_number(in, 32, value)) {
                std::fclose(in);
                return 0;
            }
            word = static_cast<std::uint32_t>(value);
        }
    }
    std::fclose(in);
    return 0;
}

int writeAlarmLedProc(void) noexcept {
    std::array<char, 44 * 11 + 2> line{};
    std::size_t length = 0;
    for (const auto &group : alarm_severity) {
        for (const std::uint32_t word : group) {
            const int put = std::snprintf(line.data() + length, line.size() - length,
                                          length == 0 ? "%u" : " %u", word);
            length += static_cast<std::size_t>(put);
        }
    }
    line[length++] = '\n';
    return gv::os::replace_file(kLedFile, std::string_view(line.data(), length)) ? 0 : -1;
}

int readCurAlarmLedProc(void) noexcept {
    std::FILE *in = gv::os::open_stream(kActiveFile, "r");
    if (in == nullptr) {
        return -1;
    }
    for (const ActiveField &field : active_fields()) {
        std::uint64_t value = 0;
        if (!read_number(in, field.word != nullptr ? 32 : 64, value)) {
            break;
        }
        if (field.word != nullptr) {
            *field.word = static_cast<std::uint32_t>(value);
        } else {
            *field.half = value;
        }
    }
    std::fclose(in);
    return 0;
}

namespace gv::alarm {

bool write_active_file() noexcept {
    const alarm_severity_status_t &s = alarm_severity_status;
    using U = unsigned long long;
    char line[256];
    const int length = std::snprintf(
        line, sizeof line, "%u %u %u %llu %llu %llu %llu %llu %llu %llu %llu %u %u %u\n",
        s.fan_fail, s.fan_remove, s.memory_over, U{s.module_remove[0]}, U{s.module_remove[1]},
        U{s.link_down[0]}, U{s.link_down[1]}, U{s.port_remove[0]}, U{s.port_remove[1]},
        U{s.threshold[0]}, U{s.threshold[1]}, s.power_fail, s.power_remove, s.temperature);
    return length > 0 && static_cast<std::size_t>(length) < sizeof line &&
           gv::os::replace_file(kActiveFile,
                                std::string_view(line, static_cast<std::size_t>(length)));
}

} // namespace gv::alarm

int get_alarm_led_cur_status(char *buf) noexcept {
    std::FILE *in = gv::os::open_stream(kActiveFile, "r");
    if (in == nullptr) {
        return 0;
    }
    // Lines of any length: the length counts all of the line, the copy
    // stops at the limit.
    std::size_t length = 0;
    for (int c = std::fgetc(in); c != EOF; c = std::fgetc(in)) {
        if (c == '\n' || c == '\r') {
            if (length > 0) {
                break;
            }
            continue;
        }
        if (buf != nullptr && length < kTextLimit) {
            buf[length] = static_cast<char>(c);
        }
        ++length;
    }
    std::fclose(in);
    if (buf != nullptr && length > 0) {
        buf[length < kTextLimit ? length : kTextLimit] = '\0';
    }
    return static_cast<int>(length);
}
