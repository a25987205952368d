/* Platform model: slot/port numbering, port bitmaps and list selection. */
#ifndef GVUTIL_MODEL_H
#define GVUTIL_MODEL_H

#include <stdint.h>

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

/* Number of line-card slot entries the model record describes. */
#define GV_MODEL_SLOT_ENTRIES 33

/*
 * The model record, a byte-for-byte copy of the switch module's reply
 * (308 bytes). Integers are 32-bit big-endian whatever the host, so read
 * them through the accessors below rather than through these bytes.
 */
typedef struct gv_model_info {
    char model_name[42];
    char real_model_name[22];
    uint8_t l3_enabled;
    uint8_t dual_os;
    uint8_t reserved[70];
    /* port counts of kinds 0, 1, 2, 4, 5, 7, 6, 8, 9 in that order */
    uint8_t port_count[9][4];
    uint8_t slot_count[4];
    uint8_t ports_per_slot[GV_MODEL_SLOT_ENTRIES][4];
} gv_model_info_t;

GVUTIL_API extern gv_model_info_t g_model;
GVUTIL_API extern int hal_num_logical_ports;
GVUTIL_API extern int hal_num_physical_ports;
GVUTIL_API extern int hal_num_trunk_port;

/* Loading and identity */
GVUTIL_API int init_switch_model_info(void) GVUTIL_NOEXCEPT;
GVUTIL_API char *get_model_name(void) GVUTIL_NOEXCEPT;
GVUTIL_API char *get_real_model_name(void) GVUTIL_NOEXCEPT;
GVUTIL_API int is_enable_l3(void) GVUTIL_NOEXCEPT;

/* Counts */
GVUTIL_API int get_port_num(unsigned int kind) GVUTIL_NOEXCEPT;
GVUTIL_API int get_slot_number(void) GVUTIL_NOEXCEPT;
GVUTIL_API int get_start_slot(void) GVUTIL_NOEXCEPT;
GVUTIL_API int get_port_number_per_slot(int slot_index) GVUTIL_NOEXCEPT;
GVUTIL_API int get_max_slotport_cnt(void) GVUTIL_NOEXCEPT;
GVUTIL_API int trunk_port_max5(void) GVUTIL_NOEXCEPT;
GVUTIL_API int trunk_port_max14(void) GVUTIL_NOEXCEPT;
GVUTIL_API int is_support_ingress_rate_limit(void) GVUTIL_NOEXCEPT;

/* pnum <-> slot/port */
GVUTIL_API int get_start_port_number_from_slot(int slot) GVUTIL_NOEXCEPT;
GVUTIL_API int get_end_port_number_from_slot(int slot) GVUTIL_NOEXCEPT;
GVUTIL_API int get_port_number_from_slotport(int slot, int port) GVUTIL_NOEXCEPT;
GVUTIL_API int get_port_number_from_real_slotport(int slot, int port) GVUTIL_NOEXCEPT;
GVUTIL_API int get_slot_number_from_pnum(int pnum) GVUTIL_NOEXCEPT;
GVUTIL_API int get_slotport_number_from_pnum(int pnum) GVUTIL_NOEXCEPT;
GVUTIL_API int check_slot_port(int slot, int port) GVUTIL_NOEXCEPT;
GVUTIL_API int is_interlink_port(int pnum) GVUTIL_NOEXCEPT;
GVUTIL_API int get_slot_index_by_pnum(int pnum) GVUTIL_NOEXCEPT;
GVUTIL_API int get_frame_index_by_pnum(int pnum) GVUTIL_NOEXCEPT;

/* User slot 0 is the switch-fabric unit in real slot 3. */
GVUTIL_API int get_real_slot_by_user_slot(int user_slot) GVUTIL_NOEXCEPT;
GVUTIL_API int get_user_slot_by_real_slot(int real_slot) GVUTIL_NOEXCEPT;

/* Port bitmap: port p (1-based) is bit (p-1)%32 of word (p-1)/32. */
#define GV_PORTSET_WORDS 48
#define GV_PORTSET_MAX_PORT (GV_PORTSET_WORDS * 32)

typedef struct portset {
    uint32_t bits[GV_PORTSET_WORDS];
} portset_t;

GVUTIL_API portset_t *ps_zero(portset_t *set) GVUTIL_NOEXCEPT;
GVUTIL_API void ps_set(portset_t *set, int port) GVUTIL_NOEXCEPT;
GVUTIL_API void ps_clear(portset_t *set, int port) GVUTIL_NOEXCEPT;
GVUTIL_API int ps_isset(const portset_t *set, int port) GVUTIL_NOEXCEPT;
GVUTIL_API void ps_or(portset_t *dst, const portset_t *src) GVUTIL_NOEXCEPT;

/* Bit n (0-based) of any word array. chk answers the masked bit, not 1. */
GVUTIL_API void set(uint32_t *words, int n) GVUTIL_NOEXCEPT;
GVUTIL_API void clr(uint32_t *words, int n) GVUTIL_NOEXCEPT;
GVUTIL_API uint32_t chk(const uint32_t *words, int n) GVUTIL_NOEXCEPT;

/* Ascending comparators for qsort: 1, 0 or -1. */
GVUTIL_API int compare_br_id(const void *a, const void *b) GVUTIL_NOEXCEPT;
GVUTIL_API int compare_onuid(const void *a, const void *b) GVUTIL_NOEXCEPT;
GVUTIL_API int compare_gemport(const void *a, const void *b) GVUTIL_NOEXCEPT;
GVUTIL_API int compare_port(const void *a, const void *b) GVUTIL_NOEXCEPT;
GVUTIL_API int compare_int(const void *a, const void *b) GVUTIL_NOEXCEPT;

/* Selection records: a taken record is marked in its member field. */
#define GV_BR_INFO_TAKEN 4095
#define GV_PORT_INFO_TAKEN 255

typedef struct br_info {
    uint16_t br_id;
    uint16_t key;
} br_info_t;

typedef struct port_info {
    uint8_t port;
    int32_t key;
    uint16_t value;
} port_info_t;

GVUTIL_API int select_br_info(br_info_t *list, int count, uint16_t *out,
                              br_info_t *group) GVUTIL_NOEXCEPT;
GVUTIL_API int select_port_info(port_info_t *list, int count, uint32_t *out,
                                port_info_t *group) GVUTIL_NOEXCEPT;
GVUTIL_API int select_port(port_info_t *list, int count, uint32_t *out,
                           uint32_t *key) GVUTIL_NOEXCEPT;

/* is_port_set answers 1 when present; id_in_list answers 0 when present. */
GVUTIL_API int is_port_set(const uint32_t *list, int count, uint32_t value) GVUTIL_NOEXCEPT;
GVUTIL_API int id_in_list(const int32_t *list, int count, int32_t value) GVUTIL_NOEXCEPT;

/* Host addresses typed by the operator, in network byte order. */
GVUTIL_API int check_general_ip(const uint32_t *addr) GVUTIL_NOEXCEPT;
GVUTIL_API int check_general_ipv6(const uint32_t *addr) GVUTIL_NOEXCEPT;

/* Trunk load-balance modes */
GVUTIL_API const char *trunk_index_to_user_tag(int index) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
