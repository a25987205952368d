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
