// Reading and setting one threshold through the log-level channel. The
// requests and replies share one process-wide exchange area.
#include "gvutil/loglevel.h"
#include "sys/channel.h"
#include "sys/scan.h"

#include <array>
#include <cstdio>
#include <cstring>

namespace {

constexpr const char *kChannel = "/proc/gv_loglevel";

gv::sys::ExchangeArea area;

int send(const char *request) noexcept {
    return gv::sys::exchange(area, kChannel, request, 0);
}

// The reply to "get TYPE INDEX", in the exchange area.
const char *get_reply(int type, int index) noexcept {
    std::array<char, 64> request{};
    std::snprintf(request.data(), request.size(), "get %d %d", type, index);
    send(request.data());
    return area.reply();
}

} // namespace

int gv_set_loglevel_priority(int enable, int type, int index, int priority) noexcept {
    std::array<char, 64> request{};
    std::snprintf(request.data(), request.size(), "%s %d %d %d", enable == 1 ? "enable" : "disable",
                  type, index, priority);
    return send(request.data());
}

int gv_get_loglevel_info(int type, int index, char *out) noexcept {
    const char *reply = get_reply(type, index);
    if (reply[0] == '\0') {
        return -1;
    }
    if (out != nullptr) {
        // The caller's output holds a whole reply (8192 bytes).
        std::memcpy(out, reply, std::strlen(reply) + 1);
    }
    return 0;
}

int gv_get_loglevel_priority(int type, int index) noexcept {
    // "%*d %d": the second number. An error text has none and reads as 0.
    std::array<int, 2> numbers{};
    return gv::sys::scan_ints(get_reply(type, index), "%d%d", numbers) == 2 ? numbers[1] : 0;
}
