/*
 * Text forms of a port number: interface names, slot/port text, channel-group
 * names and GEM indexes. The set-text formatters, the id-range text and the
 * CLI token parsers all print ports through these.
 */
#ifndef GVUTIL_PORTTEXT_H
#define GVUTIL_PORTTEXT_H

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

/* Interface name of a pnum (the platform's name, or "CG%d"). */
GVUTIL_API void convert_p_format_to_s_format(int pnum, char *dest) GVUTIL_NOEXCEPT;
/* "%d/%d" (user slot/port) or "CG%d"; answers dest. */
GVUTIL_API char *convert_p_format_to_s_legacy_format(int pnum, char *dest) GVUTIL_NOEXCEPT;
/* pnum of a real slot and port; 0 when there is none. */
GVUTIL_API int convert_s_format_to_p_format(int slot, int port) GVUTIL_NOEXCEPT;
GVUTIL_API char *sputil_mk_string_from_int_port(int pnum, char *dest, int size) GVUTIL_NOEXCEPT;
/* dest is 64 bytes; a chassis without slots answers text itself. */
GVUTIL_API const char *sputil_mk_string_from_str_port(const char *text, char *dest) GVUTIL_NOEXCEPT;
/* "mapper/port" of a GEM index, per GEM ports to a mapper. */
GVUTIL_API char *sputil_mk_string_from_int_gemport(int index, char *dest, int size,
                                                   int per) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_get_slot_number_from_log_pnum(int pnum) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_get_slotport_number_from_log_pnum(int pnum) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
