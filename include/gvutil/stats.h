/*
 * Interface, extended-interface and RMON counters of the ports, as the SNMP
 * sub-agent asks for them: one 64-bit counter of one port at a time, by
 * table and column.
 *
 * The counters come as text from the switch driver's statistics control
 * file "/proc/switch/pstat/ctrl": "interface-snmp N" and "rmon-snmp N" for
 * the flat port number N. Each reply is parsed into a per-port record, and
 * the records are kept in one process-wide balanced tree keyed by (slot,
 * port). The three cached getters rebuild the whole tree at most every 5
 * seconds (gv_check_update_period); gv_if_get_stats_by_pnum throws the tree
 * away and keeps one freshly read record, so it empties the cached getters'
 * cache until their next rebuild is due. Callers rely on that.
 *
 * Records come from the tracked allocator, tagged GV_IF_STATS_SOURCE and
 * freed when the tree is thrown away. Every failure is silent: getters
 * answer 0 for anything not found.
 */
#ifndef GVUTIL_STATS_H
#define GVUTIL_STATS_H

#include <stddef.h>
#include <stdint.h>

#include "gvutil/export.h"
#include "gvutil/platform.h"

GVUTIL_BEGIN_DECLS

/* The tracked allocator's source name and the size of each record. */
#define GV_IF_STATS_SOURCE "gv_interface_stats.c"
#define GV_IF_STATS_RECORD_SIZE 584

/* ---- Tables and columns ---------------------------------------------- */

#define GV_STATS_TABLE_IF 1   /* interface table 1.3.6.1.2.1.2.2.1 */
#define GV_STATS_TABLE_IFX 2  /* extended interface table 1.3.6.1.2.1.31.1.1.1 */
#define GV_STATS_TABLE_RMON 3 /* RMON Ethernet statistics 1.3.6.1.2.1.16.1.1.1 */

/* Table 1 */
#define GV_IF_COL_LAST_CHANGE 9
#define GV_IF_COL_IN_OCTETS 10
#define GV_IF_COL_IN_UCAST_PKTS 11
#define GV_IF_COL_IN_NUCAST_PKTS 12
#define GV_IF_COL_IN_DISCARDS 13
#define GV_IF_COL_IN_ERRORS 14
#define GV_IF_COL_IN_UNKNOWN_PROTOS 15 /* always 0 */
#define GV_IF_COL_OUT_OCTETS 16
#define GV_IF_COL_OUT_UCAST_PKTS 17
#define GV_IF_COL_OUT_NUCAST_PKTS 18
#define GV_IF_COL_OUT_DISCARDS 19
#define GV_IF_COL_OUT_ERRORS 20

/* Table 2: the 32-bit and high-capacity multicast and broadcast columns
 * answer the same counter. */
#define GV_IFX_COL_IN_MULTICAST_PKTS 2
#define GV_IFX_COL_IN_BROADCAST_PKTS 3
#define GV_IFX_COL_OUT_MULTICAST_PKTS 4
#define GV_IFX_COL_OUT_BROADCAST_PKTS 5
#define GV_IFX_COL_HC_IN_OCTETS 6
#define GV_IFX_COL_HC_IN_UCAST_PKTS 7
#define GV_IFX_COL_HC_IN_MULTICAST_PKTS 8
#define GV_IFX_COL_HC_IN_BROADCAST_PKTS 9
#define GV_IFX_COL_HC_OUT_OCTETS 10
#define GV_IFX_COL_HC_OUT_UCAST_PKTS 11
#define GV_IFX_COL_HC_OUT_MULTICAST_PKTS 12
#define GV_IFX_COL_HC_OUT_BROADCAST_PKTS 13

/* Table 3 */
#define GV_RMON_COL_DROP_EVENTS 3
#define GV_RMON_COL_OCTETS 4
#define GV_RMON_COL_PKTS 5
#define GV_RMON_COL_BROADCAST_PKTS 6
#define GV_RMON_COL_MULTICAST_PKTS 7
#define GV_RMON_COL_CRC_ALIGN_ERRORS 8
#define GV_RMON_COL_UNDERSIZE_PKTS 9
#define GV_RMON_COL_OVERSIZE_PKTS 10
#define GV_RMON_COL_FRAGMENTS 11
#define GV_RMON_COL_JABBERS 12
#define GV_RMON_COL_COLLISIONS 13
#define GV_RMON_COL_PKTS_64_OCTETS 14
#define GV_RMON_COL_PKTS_65_TO_127_OCTETS 15
#define GV_RMON_COL_PKTS_128_TO_255_OCTETS 16
#define GV_RMON_COL_PKTS_256_TO_511_OCTETS 17
#define GV_RMON_COL_PKTS_512_TO_1023_OCTETS 18
#define GV_RMON_COL_PKTS_1024_TO_1518_OCTETS 19

/* ---- The per-port record ---------------------------------------------- */

typedef struct gv_if_stats {
    int32_t slot;  /* 0 for records keyed by flat port number */
    int32_t port;  /* the port within the slot, or the flat port number */
    char name[32]; /* "%d/%d" of slot and port, for records built per slot */

    /* interface */
    uint64_t in_octets;
    uint64_t in_ucast_pkts;
    uint64_t in_nucast_pkts;
    uint64_t in_discards;
    uint64_t in_errors;
    uint64_t in_unknown_protos; /* never filled */
    uint64_t out_octets;
    uint64_t out_ucast_pkts;
    uint64_t out_nucast_pkts;
    uint64_t out_discards;
    uint64_t out_errors;

    /* RMON */
    uint64_t drop_events;
    uint64_t multicast_pkts;
    uint64_t broadcast_pkts;
    uint64_t undersize_pkts;
    uint64_t fragments;
    uint64_t pkts_64_octets;
    uint64_t pkts_65_to_127_octets;
    uint64_t pkts_128_to_255_octets;
    uint64_t pkts_256_to_511_octets;
    uint64_t pkts_512_to_1023_octets;
    uint64_t pkts_1024_to_1518_octets;
    uint64_t oversize_pkts;
    uint64_t jabbers;
    uint64_t octets;
    uint64_t pkts;
    uint64_t collisions;
    uint64_t crc_align_errors;

    /* extended */
    uint64_t hc_in_octets; /* copy of in_octets */
    uint64_t in_pkts;      /* in unicast + in non-unicast; no column answers it */
    uint64_t hc_in_ucast_pkts;
    uint64_t in_multicast_pkts;
    uint64_t in_broadcast_pkts;
    uint64_t hc_out_octets;
    uint64_t out_pkts; /* out unicast + out non-unicast; no column answers it */
    uint64_t hc_out_ucast_pkts;
    uint64_t out_multicast_pkts;
    uint64_t out_broadcast_pkts;
    uint64_t last_change;

    uint64_t reserved[29]; /* zero; the record is 584 bytes */
} gv_if_stats_t;

/* ---- Functions --------------------------------------------------------- */

/* Creates the empty tree (a tree made earlier is thrown away with its
 * records); NULL when it cannot be made. */
GVUTIL_API avl_tree *gv_if_stats_regist(void) GVUTIL_NOEXCEPT;

/* One port read fresh: the tree is thrown away and rebuilt holding the
 * record (0, pnum) only, then looked up when ifname parses as a slot/port
 * name. 0 for pnum 0 (the tree is then left alone). */
GVUTIL_API uint64_t gv_if_get_stats_by_pnum(int pnum, const char *ifname, int table,
                                            int column) GVUTIL_NOEXCEPT;
/* Cached: the record (0, pnum) for a channel-group name, else the (slot,
 * port) of the name. 0 for pnum 0. */
GVUTIL_API uint64_t gv_if_get_stats_all(int pnum, const char *ifname, int table,
                                        int column) GVUTIL_NOEXCEPT;
/* Cached: the record (ifindex / 1000000, or 3 when that is 0; ifindex %
 * 10000). */
GVUTIL_API uint64_t gv_if_get_stats_by_ifindex(int ifindex, int table, int column) GVUTIL_NOEXCEPT;
/* Cached: the record (slot, port) read from the name ("GE3/1" is (3, 1)). */
GVUTIL_API uint64_t gv_if_get_stats_by_type(const char *ifname, int table,
                                            int column) GVUTIL_NOEXCEPT;

/* Reads the RMON counters of a flat port number into record: 0, or -1 with
 * the record untouched for an empty driver reply or a NULL record. */
GVUTIL_API int gv_rmon_stats_parse(int pnum, gv_if_stats_t *record) GVUTIL_NOEXCEPT;

/* Classifies a request OID of 11 or 12 sub-identifiers: 0 with the row
 * index, table and column, or -1. The index of an RMON or extended-table
 * OID is its 12th sub-identifier (0 when it has only 11); of an interface
 * table OID its 11th. NULL outputs are skipped. */
GVUTIL_API int gv_is_rmon_monitor_oid(const oid *name, size_t length, int *index, int *table,
                                      int *column) GVUTIL_NOEXCEPT;
/* "label 1.3.6.1..." and a newline on standard error. */
GVUTIL_API void gv_display_oid_dump(const char *label, const oid *name,
                                    size_t length) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
