// The library's one door to the outside world. Everything that opens a path,
// issues an ioctl, runs a command or reads the clock goes through here, so a
// host build can re-root the chassis under GVUTIL_ROOT without the callers
// knowing.
#pragma once

#include <cstddef>
#include <cstdio>
#include <ctime>
#include <span>
#include <string_view>

namespace gv::os {

// $GVUTIL_ROOT of a host build; null on the chassis or when it is not set.
const char *host_root() noexcept;

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

// ioctl(2) with the caller's argument as it stands: the driver's result, or
// -1 with errno.
int device_control(int fd, unsigned long request, void *argument) noexcept;

// fopen(3) on the resolved path; null on failure.
std::FILE *open_stream(const char *path, const char *mode) noexcept;

// stat(2) on the resolved path: 0 with its size in *size, -1 when the path
// cannot be examined.
int file_size(const char *path, long long *size) noexcept;

// Writes all of text to fd; false when the descriptor takes less.
bool write_all(int fd, std::string_view text) noexcept;

// Replaces the file at the resolved path with text as a whole: a temporary
// file in the same folder, then rename. False when the file is left as it was.
bool replace_file(const char *path, std::string_view text) noexcept;

// system(3) on a command line. Under a host root, absolute /proc, /etc and
// /tmp paths in the line are re-rooted, an absolute /bin program that the
// root's bin/ holds runs from there, and $GVUTIL_ROOT/bin comes first in
// PATH; a line that cannot be re-rooted whole is not run (-1).
int run_command(const char *command) noexcept;

// popen(3) of a command line, re-rooted as run_command re-roots it; null
// when it cannot be started. close_pipe answers pclose(3)'s status.
std::FILE *open_pipe(const char *command, const char *mode) noexcept;
int close_pipe(std::FILE *pipe) noexcept;

// The private request of a /proc control entry (SIOCDEVPRIVATE): the request
// line goes in, the driver writes a text reply of at most reply.size() bytes.
// True with the driver's result word in *result; false with errno when the
// request itself fails. Under a host root an entry that is a regular file is
// a responder program or a reply file. The reply always ends in a NUL.
bool text_channel(int fd, const char *path, int flag, const char *request, std::span<char> reply,
                  int *result) noexcept;

// The time in seconds; a host build answers the simulation's clock, which
// tests hold and advance.
std::time_t now() noexcept;

// One line to the system log at error priority.
__attribute__((format(printf, 1, 2))) void log_error(const char *format, ...) noexcept;

// Sleeps for at least this many milliseconds, signals or not. Real in every
// build: what waits on another process's progress waits in real time.
void nap(unsigned milliseconds) noexcept;

// Heap blocks the library owns for a while (range nodes, zeroed work
// buffers, the VLAN group table). On the chassis these are malloc, calloc
// and free; a host build takes them from the host chassis' heap, which
// counts them and can be told to refuse, so every failure path is exercised.
void *heap_alloc(std::size_t size) noexcept;
void *heap_alloc_zeroed(std::size_t size) noexcept;
void heap_free(void *block) noexcept;

} // namespace gv::os
