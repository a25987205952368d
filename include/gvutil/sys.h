/* System utilities: text predicates shared by the token parsers. */
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

GVUTIL_END_DECLS

#endif
