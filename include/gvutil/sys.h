/* System utilities: text predicates shared by the token parsers, debug logs. */
#ifndef GVUTIL_SYS_H
#define GVUTIL_SYS_H

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

/* Look at exactly the first length characters; callers pass the text's length. */
GVUTIL_API int is_digit(const char *text, int length) GVUTIL_NOEXCEPT;
GVUTIL_API int is_digit_minus(const char *text, int length) GVUTIL_NOEXCEPT;
GVUTIL_API int is_hex(const char *text) GVUTIL_NOEXCEPT;
/* Non-negative decimal value of an all-digit text, or -1. */
GVUTIL_API int stoi(const char *text) GVUTIL_NOEXCEPT;
GVUTIL_API int is_br_range(int id) GVUTIL_NOEXCEPT;
GVUTIL_API int is_slot_range(int slot) GVUTIL_NOEXCEPT;

/*
 * Text channels to the kernel modules' /proc control entries.
 *
 * sioctl hands request to the entry at path with the private ioctl
 * (SIOCDEVPRIVATE) and flag; the text reply lands in reply, which must hold
 * GVUTIL_REPLY_SIZE bytes and is cleared first. An entry of another slot
 * (a path beginning with "/SLOT") is reached through "rsctrl -o FLAG -v PATH
 * REQUEST"; its reply is cut at the last whole line that fits.
 * Return: the driver's result; -1 with "%file open error : PATH (REASON)" or
 * "%ioctl open error (REASON)" in reply when the exchange fails, with the
 * remote command's "There is no system" line when the slot is empty, and
 * with an empty reply for a null path or request (nothing is written for a
 * null reply).
 *
 * str_ioctl runs the same exchange through one process-wide 16384-byte area
 * (request in its second half, cut to 8191 characters) and stores a pointer
 * to the reply in *reply when reply is not NULL; that reply stays valid
 * until the next str_ioctl. Return: as sioctl.
 */
#define GVUTIL_REPLY_SIZE 8192
GVUTIL_API int sioctl(const char *path, const char *request, char *reply, int flag) GVUTIL_NOEXCEPT;
GVUTIL_API int str_ioctl(const char *path, const char *request, char **reply,
                         int flag) GVUTIL_NOEXCEPT;

/*
 * Debug output. printd and dlog write one formatted line to /dev/console;
 * flog appends it to /tmp/log after file_size_check. A line holds at most
 * 1027 characters; the rest is cut off.
 */
GVUTIL_API GVUTIL_PRINTF(1, 2) void printd(const char *format, ...) GVUTIL_NOEXCEPT;
GVUTIL_API GVUTIL_PRINTF(1, 2) void dlog(const char *format, ...) GVUTIL_NOEXCEPT;
GVUTIL_API GVUTIL_PRINTF(1, 2) void flog(const char *format, ...) GVUTIL_NOEXCEPT;
/* Removes /tmp/log once it holds more than 100000 bytes. Answers the last
 * step's result: -1 when the file cannot be examined (after saying so on
 * standard output), 0 when it is small enough, else the removal's status. */
GVUTIL_API int file_size_check(void) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
