/*
 * Interface names: type codes and their two spellings, the predicates that
 * classify a name by its prefix, conversion between the operator's names
 * (full type word, user slot) and internal names (short prefix, real slot),
 * and the texts the running configuration prints for them.
 *
 * An internal name is a short prefix and "slot/port" (GE3/1) or, for channel
 * groups and the management port, a number (CG2). The prefix of a name is
 * everything before its first decimal digit.
 */
#ifndef GVUTIL_IFNAME_H
#define GVUTIL_IFNAME_H

#include <stdint.h>

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

/* Interface type codes; 0 is no interface. */
#define GV_IF_FE 1
#define GV_IF_GE 2
#define GV_IF_XE 3
#define GV_IF_CE 5
#define GV_IF_EPON 50
#define GV_IF_XEPON 51
#define GV_IF_GPON 52
#define GV_IF_XGPON 53
#define GV_IF_XGSPON 54
#define GV_IF_NGPON 55
#define GV_IF_MGMT 100
#define GV_IF_BRIDGE 101
#define GV_IF_CHANNEL_GROUP 102
#define GV_IF_LOOPBACK 103
#define GV_IF_DEFAULT_BRIDGE 104
#define GV_IF_TUNNEL 105

/* Prefix buffers hold 32 bytes: longer prefixes are cut to 31 characters. */
#define GV_IF_PREFIX_SIZE 32

/* ---- Types and prefixes ------------------------------------------------ */

/* The prefix of name into prefix (size bytes, cleared first, cut to fit): 0,
 * or -1 for a NULL or empty name or a NULL buffer. */
GVUTIL_API int get_interface_type(const char *name, char *prefix, int size) GVUTIL_NOEXCEPT;
/* 1 when name holds one interface: no "/", or only digits after the first. */
GVUTIL_API int is_interface_string_type(const char *name) GVUTIL_NOEXCEPT;
/* Exact, case-sensitive lookups; 0 when unknown. "vlan" reads back as 101. */
GVUTIL_API int get_interface_type_from_prefix(const char *prefix) GVUTIL_NOEXCEPT;
GVUTIL_API int get_interface_type_from_full_prefix(const char *word) GVUTIL_NOEXCEPT;
/* Writes the short prefix (at most 8 bytes); nothing for 105 and unknown
 * codes. Always 0. */
GVUTIL_API int get_interface_prefix_from_type(int type, char *prefix) GVUTIL_NOEXCEPT;
/* Clears the first 4 bytes (within size), then writes the full word in at
 * most size bytes; nothing more for unknown codes and 105. -1 for a NULL
 * buffer, else 0. */
GVUTIL_API int get_interface_prefix_for_run_config_from_type(int type, char *word,
                                                             int size) GVUTIL_NOEXCEPT;
/* "%s%d/%d" (short prefix, slot, port), or "%s%d" (prefix, port) for codes
 * 100 and 102, into name (at most 32 bytes). Always 0. */
GVUTIL_API int create_interface_name(int slot, int port, int type, char *name) GVUTIL_NOEXCEPT;

/* ---- Predicates ------------------------------------------------------
 * 1 when the prefix of the name begins, in any letter case, with one of:
 *   fast_ethernet FE; gigabit_ethernet GE, EPON; ten_gigabit_ethernet XE and
 *   the 10G PONs (XEPON, XGPON, XGSPON, NGPON); hundred_gigabit_ethernet CE;
 *   each PON its own prefix; pon every PON; ethernet every Ethernet and PON
 *   prefix (not the full words); vlan default, br; aggregator and cg CG;
 *   ethXX eth; port ethernet or CG; port_n_vlan ethernet, CG or vlan.
 */
GVUTIL_API int is_fast_ethernet_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_gigabit_ethernet_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_ten_gigabit_ethernet_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_hundred_gigabit_ethernet_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_epon_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_xepon_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_gpon_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_xgpon_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_xgspon_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_ngpon_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_pon_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_ethernet_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_vlan_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_aggregator_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_cg_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_ethXX_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_port_interface(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int is_port_n_vlan_interface(const char *name) GVUTIL_NOEXCEPT;

/* ---- One name ---------------------------------------------------------- */

/* Slot and port read as "%d/%d" after the prefix; zeros for what is absent.
 * -1 only for a NULL or empty name. */
GVUTIL_API int get_slot_port_no_from_ifstr(const char *name, int *slot, int *port) GVUTIL_NOEXCEPT;
/* The same, also copying the prefix (32 bytes; may be NULL); a name without
 * digits gives its whole text as prefix. */
GVUTIL_API int get_type_slot_port_no_from_ifstr(const char *name, char *prefix, int *slot,
                                                int *port) GVUTIL_NOEXCEPT;
/* Splits "GE0/5", "GE0/5-2" or "GE0/5-0/2" into slot, smaller and larger port
 * and the normalised name "GE3/2-5" (at most 67 bytes): 0, or -1 with the
 * outputs untouched. The first variant translates the user slot into the
 * real one; the user variant keeps it. A last port of 0 counts as absent. */
GVUTIL_API int get_interface_name_separation_from_ifname(const char *name, int *slot,
                                                         int *first_port, int *last_port,
                                                         char *normalised) GVUTIL_NOEXCEPT;
GVUTIL_API int get_user_interface_name_separation_from_ifname(const char *name, int *slot,
                                                              int *first_port, int *last_port,
                                                              char *normalised) GVUTIL_NOEXCEPT;
/* The number of a "CG%d" name, or -1. */
GVUTIL_API int get_group_id_from_ifname(const char *name) GVUTIL_NOEXCEPT;

/* ---- Lists of names ---------------------------------------------------- */

/* One element of a list being sorted (268 bytes, from the tracked allocator). */
typedef struct ifname_sort_info {
    int32_t slot;
    int32_t first_port;
    int32_t last_port; /* equal to first_port for a single port */
    char name[256];    /* normalised element name */
} ifname_sort_info_t;

/*
 * The internal list for a full type word and an operator's element list
 * (at most 99 characters; NULL for the type alone) into out (256 bytes):
 * "gigabitethernet" with "0/3,1/2-4" gives GE1/2-4,GE3/3. Ethernet-class
 * lists are sorted (slot by slot) and a bare port takes the slot of the
 * element before it; bridge and channel-group lists keep their order.
 * "vlan" with "1" is "default"; a tunnel word gives "Tunnel" and its number.
 * 0, or -1 (out untouched) for a NULL word, an unknown word, a list over 99
 * characters, a channel group with "/", a tunnel number missing or above
 * 1023, or a result longer than 255 characters. The first variant
 * translates user slots into real ones; the user variant keeps them.
 */
GVUTIL_API int convert_interface_name(const char *word, const char *list,
                                      char *out) GVUTIL_NOEXCEPT;
GVUTIL_API int convert_user_interface_name(const char *word, const char *list,
                                           char *out) GVUTIL_NOEXCEPT;
/*
 * Sorts a ","-separated list of internal names by slot, then port, and
 * appends it to out (whose size is the caller's affair). names is split in
 * place. Elements without "/" are left out (and shown on the debug console).
 * Two elements of one slot and first port are one element unless the later
 * one ends later: the later one is then dropped, so a port named twice is
 * listed once (GE1/1-4,GE1/1-2 gives GE1/1-4; GE1/1-2,GE1/1-4 keeps both).
 * 0, or -1 when an element does not separate, the list holds more than 512
 * elements or the sort tree cannot be made; out is then untouched. Every
 * sort record is freed before the call returns. The first variant
 * translates user slots into real ones.
 */
GVUTIL_API int de_convert_inter_name_sort(char *names, char *out) GVUTIL_NOEXCEPT;
GVUTIL_API int de_convert_user_inter_name_sort(char *names, char *out) GVUTIL_NOEXCEPT;
/* The order of the sort: slot, then first port, then 1 when a ends after b
 * ends, 0 when a ends at or after b's first port, else -1. NULL sorts first. */
GVUTIL_API int compare_ifname_sort_info(const void *a, const void *b) GVUTIL_NOEXCEPT;
/* Frees a sort record through the tracked allocator; always 0. */
GVUTIL_API int remove_ifname_sort_info(void *info) GVUTIL_NOEXCEPT;

/*
 * The slot before the first "/" of each element translated, user to real or
 * real to user (GE0/1,XE2/3 <-> GE3/1,XE2/3); the rest of each element is
 * copied as it stands. The result holds at most 127 characters (cut there).
 * NULL names give the empty text. convert_user_ifname_from_real_ifname splits
 * names in place and, without out, answers a static buffer that the next
 * call overwrites; with empty or NULL names and no out it answers names.
 */
GVUTIL_API char *convert_real_ifname_from_user_ifname(const char *names, char *out) GVUTIL_NOEXCEPT;
GVUTIL_API char *convert_user_ifname_from_real_ifname(char *names, char *out) GVUTIL_NOEXCEPT;

/* "%s%d/%d" with the prefix of a line card's port into out (at most 30
 * bytes): 0, or -1 with no prefix for card types that name no ports. */
GVUTIL_API int convert_interface_name_from_cardtype_slot_port(int card_type, int slot, int port,
                                                              char *out) GVUTIL_NOEXCEPT;
/* The list's slot/port ranges without letters b-y and B-Y, a range within
 * one slot shortened (GE1/1-GE1/4,XE2/1 gives 1/1-4,2/1), appended to out,
 * which needs room for the length of names and a terminator after what it
 * holds; answers out, or NULL when either is NULL. */
GVUTIL_API char *convert_multi_slotport_range_from_multi_ifname(const char *names,
                                                                char *out) GVUTIL_NOEXCEPT;
/* 1 when a "tengigabitethernet" list names slot 3 (the switch-fabric unit by
 * its real number); max is the most ranges the list may hold (at most 64). */
GVUTIL_API int is_sfu_real_slot(const char *word, const char *list, int max) GVUTIL_NOEXCEPT;

/*
 * Checks an internal list port by port against the chassis: 1 with *code 0
 * when every port exists, else 0 with *code -1 (NULL list), -2 (an element
 * does not parse, or a channel group with "/"), -3 (not a port list, or a
 * port that does not exist), -4 (more than 1000 elements) or -5 (a range
 * running backwards).
 */
GVUTIL_API int check_interface_list(const char *list, int *code) GVUTIL_NOEXCEPT;
/* Copies list to out (at most max + 1 bytes) when it converts and every
 * port exists: 0; -1 for NULL arguments or a list over max characters, -2
 * when it does not convert, else the negative code of check_interface_list. */
GVUTIL_API int get_port_str_by_interface_name(const char *word, const char *list, int max,
                                              char *out) GVUTIL_NOEXCEPT;

/* ---- Running configuration ------------------------------------------------ */

/* Configuration text of one internal name, user slot shown ("GE3/5" gives
 * "gigabitethernet 0/5"); empty for "mgmt1" and unknown prefixes. Answers a
 * static 128-byte buffer that the next call overwrites. */
GVUTIL_API char *get_interface_string_for_run_config_from_ifstr(const char *name) GVUTIL_NOEXCEPT;
/* One range line for a list of internal names (" gigabitethernet 1/1,1/3,
 * tengigabitethernet 2/1"), up to the first name that is no port; slots as
 * they stand. At most 127 characters of the list are read and 127 written,
 * into a static buffer that the next call overwrites. */
GVUTIL_API char *
get_interface_range_string_for_run_config_from_ifranstr(const char *names) GVUTIL_NOEXCEPT;
/* Slot, first and last port of "GE1/1-4", "GE1/1-1/4", "GE1/1", "CG1-3" or
 * "CG2" (slot 0); zeros for other classes and names without digits. The
 * prefix (32 bytes) is copied when prefix is not NULL and the name has a
 * digit. 0, or -1 with zeros. */
GVUTIL_API int get_slot_and_port_range_from_ifstr(const char *name, char *prefix, int *slot,
                                                  int *first_port, int *last_port) GVUTIL_NOEXCEPT;

/* A port of an interface range: slot and port, and two words of the caller's. */
typedef struct ifrange_port {
    int32_t slot;
    int32_t port;
    int32_t data[2];
} ifrange_port_t;

/* Sorts the records by slot and port (in place) and rewrites name from its
 * first digit on as their ranges: GE with 1/1, 1/2, 1/3, 1/5 becomes
 * GE1/1-3,5. The caller's buffer must hold the result. A name without a
 * digit, or no records, leaves name as it is. */
GVUTIL_API void get_interface_range_prompt_string(char *name, int count,
                                                  ifrange_port_t *records) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
