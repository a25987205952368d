// The library's one door to the outside world. Everything that opens a path,
// issues an ioctl, runs a command or reads the clock goes through here, so a
// host build can re-root the chassis under GVUTIL_ROOT without the callers
// knowing.
#pragma once

#include <cstddef>
#include <span>

namespace gv::os {

// The path to open for an absolute chassis path: the path itself on the
// chassis, the same path under $GVUTIL_ROOT when a host root is set. False
// when the result does not fit in out.
bool resolve_path(const char *path, std::span<char> out) noexcept;

// open(2) on the resolved path; -1 on failure.
int open_path(const char *path, int flags) noexcept;
void close_fd(int fd) noexcept;

// A request whose reply the driver writes into reply (reply.size() bytes at
// most). Under a host root the descriptor is a regular file holding the
// reply's bytes. The reply is zeroed first, so a short reply reads as zeros.
int ioctl_reply(int fd, unsigned long request, std::span<std::byte> reply) noexcept;

} // namespace gv::os
