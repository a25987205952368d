/*
 * Kernel log levels: the kernel modules log through a priority threshold per
 * log type and index, read and set through the text channel
 * "/proc/gv_loglevel".
 *
 * Types: 1 system, 2 physical-entity, 3 filter, 4 dhcp, 5 gpon, 6 epon,
 * 7 rmon, 8 loop-detect, 9 snmp. Priorities: the syslog scale, 0 emerg to
 * 7 debug.
 */
#ifndef GVUTIL_LOGLEVEL_H
#define GVUTIL_LOGLEVEL_H

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

/* The name of a type ("gpon"), "unknown" for any other code. */
GVUTIL_API const char *gv_get_loglevel_typestr(int type) GVUTIL_NOEXCEPT;
/* The name of a priority ("debug"), "unknown" for any other code. */
GVUTIL_API const char *gv_get_loglevel_priostr(int priority) GVUTIL_NOEXCEPT;
/* The type a text names: the first of "sys", "phy", "dhcp", "filter",
 * "gpon", "epon", "rmon", "loop-detect", "snmp" found in it; -1 for none. */
GVUTIL_API int gv_get_loglevel_typeint(const char *text) GVUTIL_NOEXCEPT;
/* How many log indexes the type a text names has; -1 for none. */
GVUTIL_API int gv_get_logindex_max(const char *text) GVUTIL_NOEXCEPT;

/* Sends "enable TYPE INDEX PRIORITY" (enable 1) or "disable ..." (any other
 * value). Return: the channel's result (-1 when it fails). */
GVUTIL_API int gv_set_loglevel_priority(int enable, int type, int index,
                                        int priority) GVUTIL_NOEXCEPT;
/* Copies the reply to "get TYPE INDEX" into out, which must hold 8192 bytes
 * (the driver's error text when it refuses). Return: 0, or -1 for an empty
 * reply. */
GVUTIL_API int gv_get_loglevel_info(int type, int index, char *out) GVUTIL_NOEXCEPT;
/* The priority the reply to "get TYPE INDEX" gives as its second number;
 * 0 when the reply is empty or has none. */
GVUTIL_API int gv_get_loglevel_priority(int type, int index) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
