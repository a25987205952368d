/*
 * System services that stand on port numbering: port bitmaps as octet
 * strings, trunk membership, port-data files, slot liveness and port
 * mirroring.
 */
#ifndef GVUTIL_SYSPORT_H
#define GVUTIL_SYSPORT_H

#include <stdint.h>

#include "gvutil/export.h"
#include "gvutil/model.h"

GVUTIL_BEGIN_DECLS

/* ---- Port bitmaps as octets ------------------------------------------- */

/* A big-endian octet string (at most 192 octets) whose lowest bit is pnum 1
 * into the first (length+3)/4 words of set. Return: that word count; 0 for
 * NULL or a longer string. */
GVUTIL_API int convert_octet2portset_t(const unsigned char *octets, int length,
                                       portset_t *set) GVUTIL_NOEXCEPT;
/* The inverse over the whole set, without leading zero octets, then a zero
 * octet when it fits. size must be at least 192. Return: the octets
 * written; 0 for an empty set. */
GVUTIL_API int convert_portset_t2octet(const portset_t *set, unsigned char *out,
                                       int size) GVUTIL_NOEXCEPT;
/* ---- Trunks, port data, slots and mirroring --------------------------- */

/* 1 when the first byte of one of count 12-byte trunk-table entries is
 * port, else 0. The two names are one test. */
GVUTIL_API int is_port_in_trunk(const void *table, int count, int port) GVUTIL_NOEXCEPT;
GVUTIL_API int is_port_under_trunk(const void *table, int count, int port) GVUTIL_NOEXCEPT;

/* One port-data record: the port as a byte and its text. */
typedef struct sp_data {
    unsigned char port;
    char data[256];
} sp_data;

/*
 * Port-data files hold "Port %-2d : TEXT" lines sorted by port, then text.
 * Existing lines are never read back, so set_port_data writes a file of
 * exactly the given ports (at most 256, compared as a byte) with text (cut
 * to 255 characters). Return: the records written, 0 when none or the file
 * cannot be replaced. del_port_data: 0 without the file, else 1 and the file
 * left alone. Both replace the file whole.
 */
GVUTIL_API int set_port_data(const int *ports, int count, const char *text,
                             const char *path) GVUTIL_NOEXCEPT;
GVUTIL_API int del_port_data(const int *ports, int count, const char *path) GVUTIL_NOEXCEPT;
/* qsort order of sp_data records: port, then text. */
GVUTIL_API int compare_sp_data(const void *a, const void *b) GVUTIL_NOEXCEPT;

/* 1 when /proc/all_info shows a board in the slot (a name other than "-"). */
GVUTIL_API int is_alive_slot(int slot) GVUTIL_NOEXCEPT;

/* A mirrored source port and the number /proc/switch/mirror shows for it. */
typedef struct mirror_entry {
    int32_t port;
    int32_t number;
} mirror_entry;

/* Reads /proc/switch/mirror: *enabled, and the receive-side (first) and
 * transmit-side (second) entries; each list needs room for get_port_num(1)
 * entries. Return: the sum of both counts; 0 without the file or for a NULL
 * argument. */
GVUTIL_API int get_mirror_info(mirror_entry *first, int *first_count, mirror_entry *second,
                               int *second_count, int *enabled) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
