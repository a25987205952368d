/*
 * SNMP BER for the sub-agent: tag-length headers, 32-bit integers and
 * octet strings. Every function works on a cursor into the caller's buffer
 * and the count of octets remaining from it, which it updates, and answers
 * the cursor after what it wrote or read: NULL when it fails, and for every
 * null pointer argument.
 *
 * Lengths have the one-octet (short) form only, so contents are at most 127
 * octets. A first length octet of 0x80 or more is read as a plain count, and
 * a length of 128 or more is written as nothing at all.
 */
#ifndef GVUTIL_BER_H
#define GVUTIL_BER_H

#include <stdint.h>

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

/* The integer functions take the size of the value; only 4 is accepted. */
#define GV_BER_INT_SIZE 4

/* *len = the octet at p; answers p + 1. */
GVUTIL_API const uint8_t *snmp_parse_length(const uint8_t *p, uint32_t *len) GVUTIL_NOEXCEPT;

/* len 0..127: one octet (NULL when *remaining < 1). len 128 or more: writes
 * nothing and answers p with *remaining unchanged. A negative len is NULL. */
GVUTIL_API uint8_t *snmp_build_length(uint8_t *p, int32_t *remaining, int32_t len) GVUTIL_NOEXCEPT;

/* The type and the content length of a TLV that fits in *remaining; answers
 * the content's start and leaves the content length in *remaining. */
GVUTIL_API const uint8_t *snmp_parse_header(const uint8_t *p, int32_t *remaining,
                                            uint8_t *type) GVUTIL_NOEXCEPT;

/* The type octet, then the length as snmp_build_length writes it. */
GVUTIL_API uint8_t *snmp_build_header(uint8_t *p, int32_t *remaining, uint8_t type,
                                      int32_t len) GVUTIL_NOEXCEPT;

/* A TLV of at most 4 content octets, sign-extended into *value; *remaining
 * decreases by the whole TLV. */
GVUTIL_API const uint8_t *snmp_parse_int(const uint8_t *p, int32_t *remaining, uint8_t *type,
                                         int32_t *value, int size) GVUTIL_NOEXCEPT;

/* *value in the fewest two's-complement octets (1..4) behind its header. */
GVUTIL_API uint8_t *snmp_build_int(uint8_t *p, int32_t *remaining, uint8_t type,
                                   const int32_t *value, int size) GVUTIL_NOEXCEPT;

/* The header with len, then len octets of src. */
GVUTIL_API uint8_t *snmp_build_string(uint8_t *p, int32_t *remaining, uint8_t type,
                                      const uint8_t *src, int32_t len) GVUTIL_NOEXCEPT;

/* Copies the content (no terminator) into out, which holds *out_size octets;
 * *out_size becomes the content length, *remaining decreases by the TLV. */
GVUTIL_API const uint8_t *snmp_parse_string(const uint8_t *p, int32_t *remaining, uint8_t *type,
                                            uint8_t *out, int32_t *out_size) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
