// Probes of the running system: free configuration space, the time zone,
// the uptime and host names. Each answers 0 when its file or command is
// missing or says something else.
#include "gvutil/sys.h"
#include "os/os.h"
#include "os/resolver.h"
#include "sys/scan.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

constexpr std::size_t kProbeLine = 256;
constexpr int kConfigFullPercent = 86;

bool is_blank(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The n-th (from 0) blank-separated word of a line; empty when it has fewer.
std::string_view word_at(std::string_view line, int n) noexcept {
    for (int index = 0;; ++index) {
        std::size_t at = 0;
        while (at < line.size() && is_blank(line[at])) {
            ++at;
        }
        std::size_t end = at;
        while (end < line.size() && !is_blank(line[end])) {
            ++end;
        }
        if (index == n || end == at) {
            return line.substr(at, end - at);
        }
        line.remove_prefix(end);
    }
}

// Digits at the front of text, as an unsigned number; false when none.
bool take_digits(std::string_view &text, std::uint64_t &value) noexcept {
    std::size_t at = 0;
    value = 0;
    while (at < text.size() && text[at] >= '0' && text[at] <= '9') {
        value = value * 10 + static_cast<std::uint64_t>(text[at] - '0');
        ++at;
    }
    text.remove_prefix(at);
    return at > 0;
}

} // namespace

int gv_check_config_mem(void) noexcept {
    std::FILE *df = gv::os::open_pipe("/bin/df", "r");
    if (df == nullptr) {
        return 0;
    }
    int percent = 0;
    std::array<char, kProbeLine> line{};
    while (std::fgets(line.data(), line.size(), df) != nullptr) {
        if (std::strstr(line.data(), ".config") != nullptr) {
            // The fifth column is the use percentage ("86%").
            percent = gv::sys::read_int(word_at(line.data(), 4));
            break;
        }
    }
    gv::os::close_pipe(df);
    return percent >= kConfigFullPercent ? 1 : 0;
}

int gv_get_timezone(const char *path) noexcept {
    std::FILE *file = path != nullptr ? gv::os::open_stream(path, "r") : nullptr;
    if (file == nullptr) {
        return 0;
    }
    std::array<char, kProbeLine> line{};
    const bool read = std::fgets(line.data(), line.size(), file) != nullptr;
    std::fclose(file);
    if (!read) {
        return 0;
    }
    if (const char *east = std::strstr(line.data(), "GMT+"); east != nullptr) {
        return gv::sys::read_int(east + 4);
    }
    if (const char *west = std::strstr(line.data(), "GMT-"); west != nullptr) {
        return -gv::sys::read_int(west + 4);
    }
    return 0;
}

std::uint64_t get_system_uptime(void) noexcept {
    std::FILE *file = gv::os::open_stream("/proc/uptime", "r");
    if (file == nullptr) {
        return 0;
    }
    std::array<char, kProbeLine> line{};
    const bool read = std::fgets(line.data(), line.size(), file) != nullptr;
    std::fclose(file);
    std::string_view text(line.data());
    while (!text.empty() && is_blank(text.front())) {
        text.remove_prefix(1);
    }
    std::uint64_t seconds = 0;
    std::uint64_t hundredths = 0;
    // "12345.67 ...": the file gives hundredths as two digits after the point.
    if (!read || !take_digits(text, seconds) || !text.starts_with('.')) {
        return 0;
    }
    text.remove_prefix(1);
    return take_digits(text, hundredths) ? seconds * 100 + hundredths : 0;
}

int get_ip_from_host(const char *host, char *out) noexcept {
    std::array<char, 16> dotted{};
    if (host == nullptr || out == nullptr || !gv::os::host_address(host, dotted)) {
        return 0;
    }
    std::memcpy(out, dotted.data(), std::strlen(dotted.data()) + 1);
    return 1;
}
