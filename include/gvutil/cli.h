/*
 * CLI tokens and output: the text forms of port numbers, and the parsers of
 * the slot, port and value tokens an operator types. Parsers print their operator
 * messages through the shell's output context (struct cli_ctx, platform.h);
 * a NULL context checks quietly.
 */
#ifndef GVUTIL_CLI_H
#define GVUTIL_CLI_H

#include <stdint.h>

#include "gvutil/export.h"
#include "gvutil/model.h"
#include "gvutil/porttext.h"

GVUTIL_BEGIN_DECLS

struct cli_ctx;

/* ---- Ranges produced by the token parsers ---------------------------- */

/* low..high inclusive; a single value has low == high. */
typedef struct value_range {
    uint16_t low;
    uint16_t high;
} value_range;

/* One slot's ports first..last inclusive (real slot numbers). */
typedef struct slot_port_range {
    uint16_t slot;
    uint16_t first_port;
    uint16_t last_port;
} slot_port_range;

typedef struct slot_port_pair {
    uint8_t slot;
    uint8_t port;
} slot_port_pair;

/* ---- Port clause ---------------------------------------------------- */

GVUTIL_API int gv_get_if_type(int pnum, int slot, int port, char *dest, int size) GVUTIL_NOEXCEPT;
/* The interface clause of a command (" gigabitethernet 1/1-4,2/3") for a
 * pnum list, which is sorted in place; 0, or -1 for a NULL or empty list. */
GVUTIL_API int gv_get_cli_format_string_from_plist(uint32_t *list, int count,
                                                   char *dest) GVUTIL_NOEXCEPT;

/* ---- Slot and port tokens --------------------------------------------- */

/* The limits get_slot_port_token_simple checks against; zero at load, set
 * by the caller that uses it. */
struct gv_simple_slot_port_limits {
    int32_t highest_slot;
    int32_t highest_port;
};
GVUTIL_API extern struct gv_simple_slot_port_limits simple_slot_port_limits;

/* Every parser below adds one to *errs for each rejected item (errs may be
 * NULL where a function takes it) and never lowers it. Output arrays are the
 * caller's and must hold every range the text can produce. */
GVUTIL_API int get_slot_token(const char *text, value_range *out,
                              struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
GVUTIL_API int is_slot_valid(int slot, int allow_trunk) GVUTIL_NOEXCEPT;
GVUTIL_API int check_input_slot_number(const char *token, struct cli_ctx *ctx,
                                       uint32_t *errs) GVUTIL_NOEXCEPT;
GVUTIL_API int get_logical_slot_port_num(int slot) GVUTIL_NOEXCEPT;
GVUTIL_API int get_logical_slot_port_max_num(int slot) GVUTIL_NOEXCEPT;
GVUTIL_API int build_slot_port_list(const char *item, slot_port_pair *pair, struct cli_ctx *ctx,
                                    uint32_t *errs) GVUTIL_NOEXCEPT;
GVUTIL_API int get_slot_port_token(const char *text, slot_port_range *out, struct cli_ctx *ctx,
                                   uint32_t *errs) GVUTIL_NOEXCEPT;
GVUTIL_API int get_slot_port_token_simple(const char *text, slot_port_range *out,
                                          struct cli_ctx *ctx, uint32_t *errs) GVUTIL_NOEXCEPT;
GVUTIL_API int get_port_token(const char *text, value_range *out, int max,
                              struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
GVUTIL_API int get_pon_port_token(const char *text, value_range *out, int max,
                                  struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
GVUTIL_API int get_port_list(const char *text, uint32_t *out, int max,
                             struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
GVUTIL_API int get_uni_port_list(const char *text, uint32_t *out, int max,
                                 struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
GVUTIL_API int get_port_list_not_cli_input(const char *text, uint32_t *out, int max,
                                           struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
GVUTIL_API int get_pon_port_list_not_cli_input(const char *text, uint32_t *out, int max,
                                               struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* Kept for its callers; answers no ports. */
GVUTIL_API int get_port_list_simple(const char *text, uint32_t *out, int max,
                                    struct cli_ctx *ctx) GVUTIL_NOEXCEPT;

/* ---- Value tokens ------------------------------------------------------ */

/* GEM ports first..last inclusive of one mapper. */
typedef struct mapper_gem_range {
    uint16_t mapper;
    uint8_t first_gem;
    uint8_t last_gem;
} mapper_gem_range;

/* A MAC address as get_mac_token stores it: its twelve hexadecimal digits
 * as typed, without separators and without a terminator. */
#define GV_MAC_TOKEN_SIZE 12
/* The module bitmap of get_gid_list (288 bits); cleared by every call. */
#define GV_GID_ARRAY_WORDS 9
GVUTIL_API extern uint32_t g_array[GV_GID_ARRAY_WORDS];

/* VLAN ids 1..4094: a list, "brN" or "default". 0 on any error but an id
 * above 4094 alone, which is skipped. br1 is refused. */
GVUTIL_API int get_vid_token(const char *text, value_range *out,
                             struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* get_vid_token's ids one by one (duplicates kept); answers how many. */
GVUTIL_API int get_br_list(const char *text, uint16_t *out, struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* ONU ids from the store's smallest ONU id to max; bad items are skipped. */
GVUTIL_API int get_onu_token(const char *text, value_range *out, int max,
                             struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
GVUTIL_API int get_onu_list(const char *text, uint8_t *out, int max,
                            struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* As get_port_token, with their own messages; a class of service may be 0. */
GVUTIL_API int get_range_token(const char *text, value_range *out, int max,
                               struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
GVUTIL_API int get_cos_token(const char *text, value_range *out, int max,
                             struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* As get_pon_port_token: the first bad item gives 0. */
GVUTIL_API int get_vrid_token(const char *text, value_range *out, int max,
                              struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
GVUTIL_API int get_interface_token(const char *text, value_range *out, int max,
                                   struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* Group ids 0..limit-1 (limit at most 288), ascending and each once. The
 * text is cut in place at its commas; a NULL text, out or ctx gives 0. */
GVUTIL_API int get_gid_list(char *text, uint32_t *out, int limit,
                            struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* GV_MAC_TOKEN_SIZE bytes an address; the first bad address gives 0. */
GVUTIL_API int get_mac_token(const char *text, char *out, struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* M/G, M/G-M2/G2 and M/G-G2 items, mappers 1..32, GEM ports 1..per. */
GVUTIL_API int get_mapper_gemport_token(const char *text, mapper_gem_range *out, uint32_t *errs,
                                        int per, struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* GEM indexes port + per * (mapper - 1), each once; 0 on any error. */
GVUTIL_API int get_mapper_gemport(const char *text, uint32_t *out, int max, int per,
                                  struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* The trunk distribution index of an operator's keyword ("srcmac"), or -1. */
GVUTIL_API int trunk_tag_to_index(const char *keyword) GVUTIL_NOEXCEPT;
/* "%d/%d/%d" text of an ONT number 1..1024 (1/1/1 .. 4/4/64), else
 * "Invalid ONTID"; answers the length written. */
GVUTIL_API int convert_int_ontid_to_str_ontid(uint32_t ontid, char *dest) GVUTIL_NOEXCEPT;

/* ---- Command string builders ------------------------------------------ */

/* Lists written back as the text an operator types: runs of consecutive
 * members as first-last, joined by ",". The destination is the caller's and
 * is not bounded; each builder answers the length of its text (0 and the
 * empty text for an empty list). */
GVUTIL_API int get_int_list_str(int *list, int count, char *dest) GVUTIL_NOEXCEPT;
/* Port texts of pnums ("GE1/1-GE1/4,GE2/3"); the list is sorted in place. */
GVUTIL_API int get_port_str(uint32_t *list, int count, char *dest) GVUTIL_NOEXCEPT;
/* The same in the caller's order, unsorted. */
GVUTIL_API int get_arragne_str(const uint32_t *list, int count, char *dest) GVUTIL_NOEXCEPT;
/* One id as "default" or "br<id>"; more as bare runs ("1-3,7"), unsorted. */
GVUTIL_API int get_br_str(const uint16_t *ids, int count, char *dest) GVUTIL_NOEXCEPT;
/* GEM indexes as "mapper/port" runs that never cross a mapper; sorted in place. */
GVUTIL_API int get_gemport_str(uint32_t *list, int count, char *dest, int per) GVUTIL_NOEXCEPT;
GVUTIL_API int get_onu_str(uint8_t *ids, int count, char *dest) GVUTIL_NOEXCEPT;
/* Prints the port texts of pnums (sorted in place) through the context. */
GVUTIL_API void pr_cli_str(int *list, int count, struct cli_ctx *ctx) GVUTIL_NOEXCEPT;

/* One run "first," or "first-last," written at dest; answer its length. */
GVUTIL_API int get_cmd_string(const uint32_t *first, const uint32_t *last,
                              char *dest) GVUTIL_NOEXCEPT;
GVUTIL_API int get_cmd_gemport_string(const uint32_t *first, const uint32_t *last, char *dest,
                                      int per) GVUTIL_NOEXCEPT;
GVUTIL_API int get_onu_cmd_string(const uint8_t *first, const uint8_t *last,
                                  char *dest) GVUTIL_NOEXCEPT;

/* Grouped configuration commands: entries sharing a value print as one
 * line. Each answers the number of lines; entries are marked as consumed. */
GVUTIL_API int get_br_info_cmds(br_info_t *pairs, int count, const char *word, const char *option,
                                const char *tail, struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
GVUTIL_API int get_info_port_cmds(port_info_t *entries, int count, const char *word,
                                  const char *option, const char *tail,
                                  struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* As get_info_port_cmds with the port text first; value -1 means none. */
GVUTIL_API int get_port_info_cmds(port_info_t *entries, int count, const char *word,
                                  const char *option, const char *tail,
                                  struct cli_ctx *handle) GVUTIL_NOEXCEPT;

/* A VLAN of a port with its value; port 255 marks a consumed entry. */
typedef struct vp_info {
    uint16_t br_id;
    uint8_t port;
    uint8_t spare;
    uint16_t value;
} vp_info_t;

#define GV_PVSI_TEXT_SIZE 257
#define GV_PVSI_GROUPS 256
#define GV_PVSI_TAKEN 255
/* The value get_vp_info_cmds leaves out of its lines. */
#define GV_PVSI_NO_VALUE 65531

/* The VLANs of one port that share a value, as VLAN text. */
typedef struct pvsi_info {
    uint8_t port;
    char br_text[GV_PVSI_TEXT_SIZE];
    uint16_t value;
} pvsi_info_t;

GVUTIL_API int get_vp_info_cmds(vp_info_t *entries, int count, const char *word, const char *option,
                                const char *tail, struct cli_ctx *ctx) GVUTIL_NOEXCEPT;
/* Takes the ports of the next set of groups with the same value and VLAN
 * text into out (at most count); current receives that value and text.
 * Answers how many; 0 when every group is taken. */
GVUTIL_API int select_port_from_pvsi(pvsi_info_t *groups, int count, uint32_t *out,
                                     pvsi_info_t *current) GVUTIL_NOEXCEPT;

/* "S/P" and "S/P-S2/P2" items into one range per slot: the number of
 * ranges, or -1 after "% Invalid range." for a bad item. */
GVUTIL_API int parse_slotif_range_string(struct cli_ctx *ctx, const char *text,
                                         slot_port_range *out) GVUTIL_NOEXCEPT;
/* "GE105" gives slot 1, port 5: 0; -1 for a NULL or empty name, -2 for a
 * name that is not FE or GE and digits. */
GVUTIL_API int get_slot_port_from_interface_name(const char *name,
                                                 slot_port_pair *out) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
