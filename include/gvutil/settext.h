/*
 * Port, bridge and VLAN sets as text: bitmaps printed as range text
 * ("1/1-4,2/3", "1-3,10"), range text parsed back into bitmaps, and the
 * checks of one typed CLI argument.
 */
#ifndef GVUTIL_SETTEXT_H
#define GVUTIL_SETTEXT_H

#include <stdint.h>

#include "gvutil/export.h"
#include "gvutil/model.h"

GVUTIL_BEGIN_DECLS

struct cli_ctx;

/* Bridge and VLAN sets: ids 1..4094 in a 4096-bit area, id k at bit k-1. */
#define GV_ID_SET_WORDS 128
#define GV_ID_SET_MAX_ID 4094

/* Formatters: write NUL-terminated text into out (sized by the caller, never
 * checked) and answer how many members they found. */
GVUTIL_API int portset2str(char *out, int max, const portset_t *set) GVUTIL_NOEXCEPT;
GVUTIL_API int portset2str2(char *out, int max, const portset_t *set) GVUTIL_NOEXCEPT;
GVUTIL_API int portset2_if_str(char *out, int max, const portset_t *set) GVUTIL_NOEXCEPT;
GVUTIL_API int portset2str_wo_iftype(char *out, int max, const portset_t *set) GVUTIL_NOEXCEPT;
GVUTIL_API int brset2str(char *out, int max, const uint32_t *set) GVUTIL_NOEXCEPT;
GVUTIL_API int vlanset2str(char *out, int max, const uint32_t *set) GVUTIL_NOEXCEPT;
GVUTIL_API int vlanset2str2(char *out, int max, const uint32_t *set) GVUTIL_NOEXCEPT;
/* Members are indices 1..max with a non-zero byte; answers 0. */
GVUTIL_API int ports_array2str(const uint8_t *array, int max, char *out) GVUTIL_NOEXCEPT;

/* Port text of one pnum in a per-thread buffer the next call overwrites. */
GVUTIL_API char *_cnvt_port_num_to_str(int pnum) GVUTIL_NOEXCEPT;
/* "%d/%d" (user slot/port) of a pnum, type-B trunk pnums mapped first,
 * copied with a bounded copy of len bytes; answers out. */
GVUTIL_API char *convert_legarcy_pnum_to_slotport_str(int pnum, char *out, int len) GVUTIL_NOEXCEPT;

/* Parsers: answer the number of members set, 0 on error. */
GVUTIL_API int getportset(const char *text, int max, portset_t *set) GVUTIL_NOEXCEPT;
GVUTIL_API int getbrset(const char *text, int max, uint32_t *set) GVUTIL_NOEXCEPT;
/* One port token ("1/3", "0/2", "t/4"; a plain number without slots) to its
 * pnum; 0 when invalid. */
GVUTIL_API int make_port_number(const char *token) GVUTIL_NOEXCEPT;
GVUTIL_API int make_port_number_from_slot_start(const char *text) GVUTIL_NOEXCEPT;
GVUTIL_API int make_port_number_from_slot_end(const char *text) GVUTIL_NOEXCEPT;

/* ---- Argument checks --------------------------------------------------- */

/* Kinds of GVH_CHECK_ARG. */
enum gvh_arg_kind {
    GVH_ARG_INT = 0,       /* int32_t, bounds int32_t */
    GVH_ARG_UINT = 1,      /* uint32_t, bounds uint32_t */
    GVH_ARG_IP_ADDR = 2,   /* uint32_t, first octet most significant */
    GVH_ARG_IP_PREFIX = 3, /* struct gvh_ip_prefix */
    GVH_ARG_MAC_ADDR = 4   /* uint8_t[6], wire order */
};

/* An IPv4 prefix in host order; the address is already masked. */
struct gvh_ip_prefix {
    uint32_t address;
    uint32_t netmask;
};

/* Checks one typed argument; min/max point at bounds of the kind's type,
 * out (may be NULL) receives the value, message (may be NULL) replaces the
 * kind's message. 0 when valid; -1 after telling the operator through cli
 * (quietly when cli is NULL). */
GVUTIL_API int GVH_CHECK_ARG(struct cli_ctx *cli, int kind, const char *text, const void *min,
                             const void *max, void *out, const char *message) GVUTIL_NOEXCEPT;
GVUTIL_API int check_int_arg(const char *text, const void *min, const void *max,
                             void *out) GVUTIL_NOEXCEPT;
GVUTIL_API int check_uint_arg(const char *text, const void *min, const void *max,
                              void *out) GVUTIL_NOEXCEPT;
GVUTIL_API int check_ip_addr_arg(const char *text, const void *min, const void *max,
                                 void *out) GVUTIL_NOEXCEPT;
GVUTIL_API int check_ip_prefix_arg(const char *text, const void *min, const void *max,
                                   void *out) GVUTIL_NOEXCEPT;
GVUTIL_API int check_mac_addr_arg(const char *text, const void *min, const void *max,
                                  void *out) GVUTIL_NOEXCEPT;
/* Both print the pointed 32-bit value with "%d"; answer the length. */
GVUTIL_API int int2str(const void *value, char *out) GVUTIL_NOEXCEPT;
GVUTIL_API int uint2str(const void *value, char *out) GVUTIL_NOEXCEPT;

/* Name checks: 1 when every character qualifies, else 0. */
GVUTIL_API int check_valid_name(const char *text, int len) GVUTIL_NOEXCEPT;
GVUTIL_API int check_alphanum(const char *text) GVUTIL_NOEXCEPT;
GVUTIL_API int check_numeric(const char *text) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
