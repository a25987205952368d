/*
 * Id ranges and instances: lists such as 1-5,8,10-12 kept as doubly linked
 * range nodes, and numbered instances each owning such a list. Every node
 * comes from p_malloc; whoever holds a head owns the list and gives it back
 * with free_id_range or release_instance.
 */
#ifndef GVUTIL_RANGE_H
#define GVUTIL_RANGE_H

#include <stddef.h>
#include <stdint.h>

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

struct cli_ctx;

/* start..end inclusive; a parsed list never has end < start. */
typedef struct id_range {
    struct id_range *prev; /* NULL at the head */
    struct id_range *next; /* NULL at the tail */
    uint16_t start;
    uint16_t end;
} id_range;

/* An instance and its members, as 1-based member positions. */
typedef struct id_instance {
    struct id_instance *prev;
    struct id_instance *next;
    uint32_t id;
    id_range *ranges;
} id_instance;

/* Reserved: an id that did not read while parsing. */
#define GV_INVALID_ID 65535
/* One element of list text fits 15 characters and its terminator. */
#define GV_RANGE_ELEMENT_SIZE 16

/* ---- Parsing and checking text ---------------------------------------- */

/* Lists of digits, ',' and '-' only; NULL for anything malformed. */
GVUTIL_API id_range *get_id_list(const char *text) GVUTIL_NOEXCEPT;
GVUTIL_API id_range *get_port_list_br(const char *text) GVUTIL_NOEXCEPT;
/* Elements may also be "default" (bridge 1) or "br<digits>". */
GVUTIL_API id_range *get_br_list_br(const char *text) GVUTIL_NOEXCEPT;

/* Copies the element at text (up to ',' or the end) into out, 16 bytes; an
 * element of 16 characters or more is copied as the empty text. Answers the
 * position after the ',' or the end of the text. */
GVUTIL_API const char *get_range(const char *text, char *out) GVUTIL_NOEXCEPT;

/* Where get_id_data stopped: the terminator it wrote in out, and the text
 * after the '-' (the end of the element when there is none). */
typedef struct id_data_pos {
    char *out_end;
    const char *next;
} id_data_pos;
GVUTIL_API id_data_pos get_id_data(const char *element, char *out) GVUTIL_NOEXCEPT;

/* 1 when every character is a digit (the empty text too), else 0. */
GVUTIL_API int is_all_num(const char *text) GVUTIL_NOEXCEPT;
/* 1 when every character is a digit, ',' or '-', else 0. */
GVUTIL_API int is_all_num_list(const char *text) GVUTIL_NOEXCEPT;
/* 1 when text is all digits and low <= its value <= high, else 0. */
GVUTIL_API int check_digit_range(const char *text, long low, long high) GVUTIL_NOEXCEPT;

/* ---- Building and reading lists ---------------------------------------- */

/* One node per run of consecutive ids (ascending input). */
GVUTIL_API id_range *get_list_to_range(const uint16_t *ids, int count) GVUTIL_NOEXCEPT;
/* Every id of every range, in order, at most capacity; answers how many. */
GVUTIL_API int get_range_to_list(const id_range *list, uint16_t *out, int capacity) GVUTIL_NOEXCEPT;
/* Inverted sense: 0 when some range holds id, 1 when none does. */
GVUTIL_API int id_in_range(const id_range *list, int id) GVUTIL_NOEXCEPT;
/* "1-5,8" in out of size bytes: 0 when complete, 1 when it stopped early. */
GVUTIL_API int make_range_str(const id_range *list, char *out, int size) GVUTIL_NOEXCEPT;
/* The same with each end written as the port text of a pnum. */
GVUTIL_API int make_range_str_port(const id_range *list, char *out, int size) GVUTIL_NOEXCEPT;
/* Prints "label text\n" through gv_cli_out: 1, or 0 when the text buffer
 * cannot be had. */
GVUTIL_API int out_range(struct cli_ctx *ctx, const id_range *list,
                         const char *label) GVUTIL_NOEXCEPT;

/* ---- Instances ---------------------------------------------------------- */

/* ids[k-1] is the instance of member k. make_instance answers the instances
 * sorted by id, make_instance32 in order of first appearance. */
GVUTIL_API id_instance *make_instance(const uint16_t *ids, int count) GVUTIL_NOEXCEPT;
GVUTIL_API id_instance *make_instance32(const uint32_t *ids, int count) GVUTIL_NOEXCEPT;
/* Sort the nodes themselves and answer the new head. */
GVUTIL_API id_instance *sort_instance_by_id(id_instance *list) GVUTIL_NOEXCEPT;
GVUTIL_API id_instance *sort_instance_by_range(id_instance *list) GVUTIL_NOEXCEPT;

/* 0 when acceptable, 1 after telling the operator why not. */
GVUTIL_API int check_instance(struct cli_ctx *ctx, const id_instance *list,
                              uint32_t id) GVUTIL_NOEXCEPT;
GVUTIL_API int check_ports(struct cli_ctx *ctx, const id_range *list, int low,
                           int high) GVUTIL_NOEXCEPT;
GVUTIL_API int check_vlans(struct cli_ctx *ctx, const id_range *list) GVUTIL_NOEXCEPT;

GVUTIL_API void release_instance(id_instance *list) GVUTIL_NOEXCEPT;
GVUTIL_API void free_id_range(id_range *list) GVUTIL_NOEXCEPT;
GVUTIL_API void *p_malloc(size_t size) GVUTIL_NOEXCEPT;
GVUTIL_API void p_free(void *ptr) GVUTIL_NOEXCEPT;

/* ---- Interface indexes ------------------------------------------------- */

/* 1 when 1000001 <= ifindex < 50010000, else 0. */
GVUTIL_API int is_ethernet_interface_by_ifindex(int ifindex) GVUTIL_NOEXCEPT;
/* 1 for the management interface's index 540003, else 0. */
GVUTIL_API int is_mgmt_interface_by_ifindex(int ifindex) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
