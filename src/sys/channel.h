// Text channels to the kernel modules' /proc control entries. The callers
// that keep a process-wide exchange area (str_ioctl, the log levels, the
// sensor queries) each own one ExchangeArea and go through exchange().
#pragma once

#include <array>
#include <cstddef>

namespace gv::sys {

// A channel reply is at most this many bytes, its terminator included.
inline constexpr std::size_t kReplySize = 8192;

// The request goes in the second half and the reply comes back in the first.
struct ExchangeArea {
    std::array<char, 2 * kReplySize> bytes;

    char *reply() noexcept { return bytes.data(); }
    char *request() noexcept { return bytes.data() + kReplySize; }
};

// Clears the area, copies the request into its second half (cut to fit) and
// runs sioctl with the reply in the first half. The reply stays in the area
// until the next exchange.
int exchange(ExchangeArea &area, const char *path, const char *request, int flag) noexcept;

} // namespace gv::sys
