/*
 * ONU option store: per-PON and per-ONU options that the shell, the SNMP
 * sub-agent and the other daemons share through one System V shared-memory
 * segment, guarded by one System V semaphore. Integers are in the processor's
 * own byte order.
 *
 * Start-up: the creating process calls gv_opt_format_create_shm,
 * gv_opt_format_attach_shm, gv_opt_format_create_sem and gv_opt_format_init_db;
 * every other process calls the first three only. A failing IPC call at
 * start-up prints the system error and ends the process with status 0.
 *
 * Results: 0 for success, -1 for a refused argument (the store is left as it
 * was). Per-PON and per-ONU operations take a flat port number; its PON index
 * (pnum - 1, after type-b trunk translation) must be 0..31. ONU ids run from
 * the stored minimum up to 129 inclusive.
 */
#ifndef GVUTIL_ONUOPT_H
#define GVUTIL_ONUOPT_H

#include <stddef.h>
#include <stdint.h>

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

#define GV_OPT_FORMAT_KEY 3458 /* key of the segment and of the semaphore set */
#define GV_OPT_FORMAT_SHM_SIZE 3815688
#define GV_OPT_FORMAT_PONS 32
#define GV_OPT_FORMAT_ONU_RECORDS 129 /* records 0..128 of each PON */
#define GV_OPT_FORMAT_MAX_ONU_ID 129  /* highest ONU id the operations accept */
#define GV_OPT_FORMAT_UNIS 24
#define GV_OPT_FORMAT_DESC_SIZE 129     /* description field, terminator included */
#define GV_OPT_FORMAT_DESC_OUT_SIZE 128 /* bytes a description getter writes */
#define GV_OPT_FORMAT_UNI_DESC_SIZE 32
#define GV_OPT_FORMAT_PN_SIZE 16
#define GV_OPT_FORMAT_MAC_SIZE 6

/* Redundancy pairing of a PON; mode 0 means no pairing. */
typedef struct pon_red_info {
    uint32_t mode;
    uint32_t user_word1; /* kept for the caller */
    uint32_t master_pon;
    uint32_t partner_pon;
    uint32_t user_word2; /* kept for the caller */
} pon_red_info_t;

/* One ONU (924 bytes). */
typedef struct opt_format_onu {
    int32_t pon;
    int32_t onu_id;
    uint8_t ident_addr[GV_OPT_FORMAT_MAC_SIZE]; /* what the look-ups by address compare */
    uint8_t unused[2];
    int32_t num_of_uni;
    uint8_t learning_method;
    char description[GV_OPT_FORMAT_DESC_SIZE];
    uint8_t mac[GV_OPT_FORMAT_MAC_SIZE];
    char uni_description[GV_OPT_FORMAT_UNIS][GV_OPT_FORMAT_UNI_DESC_SIZE];
} opt_format_onu_t;

/* One PON (119240 bytes). */
typedef struct opt_format_pon {
    int32_t pon;
    pon_red_info_t red;
    char module_pn[GV_OPT_FORMAT_PN_SIZE]; /* not necessarily terminated */
    uint8_t unused[4];
    opt_format_onu_t onu[GV_OPT_FORMAT_ONU_RECORDS];
} opt_format_pon_t;

/* The whole segment. */
typedef struct opt_format_db {
    int32_t min_onu_id;
    uint32_t display_sn; /* readers use its low 8 bits */
    opt_format_pon_t pon[GV_OPT_FORMAT_PONS];
} opt_format_db_t;

/* Start-up */
GVUTIL_API int gv_opt_format_create_shm(void) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_attach_shm(int shm_id) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_create_sem(void) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_init_db(void) GVUTIL_NOEXCEPT;

/* Global options */
GVUTIL_API int gv_opt_format_set_min_onu_id(int32_t id) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_get_min_onu_id(void) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_set_onu_display_sn(uint32_t mode) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_get_onu_display_sn(void) GVUTIL_NOEXCEPT;
/* sn: 4 vendor characters and 4 bytes; snprintf-style length, or -1. */
GVUTIL_API int gv_opt_format_get_onu_display_sn_str(const uint8_t *sn, char *out,
                                                    size_t size) GVUTIL_NOEXCEPT;

/* Per PON, by port */
GVUTIL_API int gv_opt_format_set_pon_module_pn(int port, const char *pn) GVUTIL_NOEXCEPT;
/* Writes GV_OPT_FORMAT_PN_SIZE bytes, zero-padded, unterminated when full. */
GVUTIL_API int gv_opt_format_get_pon_module_pn(int port, char *pn) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_set_pon_red_info(int port, uint32_t mode, uint32_t user_word1,
                                              uint32_t master_pon, uint32_t partner_pon,
                                              uint32_t user_word2) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_get_pon_red_info(int port, pon_red_info_t *info) GVUTIL_NOEXCEPT;

/* OLT redundancy, by PON number 1..32 */
GVUTIL_API int gv_opt_format_set_olt_red(uint32_t mode, int master_pon,
                                         int partner_pon) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_get_olt_red_master_id(int pon) GVUTIL_NOEXCEPT;

/* Per ONU, by port and ONU id */
GVUTIL_API int gv_opt_format_set_onu_info(int port, int onu_id,
                                          const opt_format_onu_t *onu) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_get_onu_info(int port, int onu_id,
                                          opt_format_onu_t *onu) GVUTIL_NOEXCEPT;
/* Copies up to length characters; the length is not held to the field. */
GVUTIL_API int gv_opt_format_set_onu_description(int port, int onu_id, const char *text,
                                                 int length) GVUTIL_NOEXCEPT;
/* Writes GV_OPT_FORMAT_DESC_OUT_SIZE bytes. */
GVUTIL_API int gv_opt_format_get_onu_description(int port, int onu_id, char *out) GVUTIL_NOEXCEPT;
/* A NULL address stores zeros. */
GVUTIL_API int gv_opt_format_set_onu_mac_address(int port, int onu_id,
                                                 const uint8_t *mac) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_get_onu_mac_address(int port, int onu_id,
                                                 uint8_t *mac) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_set_onu_num_of_uni(int port, int onu_id, int count) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_get_onu_num_of_uni(int port, int onu_id, int *count) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_get_onu_learning_method(int port, int onu_id,
                                                     int *method) GVUTIL_NOEXCEPT;
/* selector must be 0; a NULL text clears; a text is GV_OPT_FORMAT_UNI_DESC_SIZE bytes. */
GVUTIL_API int gv_opt_format_set_onu_uni_description(int port, int onu_id, int selector, int uni,
                                                     const char *text) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_get_onu_uni_description(int port, int onu_id, int selector, int uni,
                                                     char *out) GVUTIL_NOEXCEPT;
/* Clears the description and the UNI descriptions; always 0. */
GVUTIL_API int gv_opt_format_db_delete_onu(int port, int onu_id) GVUTIL_NOEXCEPT;

/* Look-ups by identity address (6 bytes, not all zero) within one PON */
GVUTIL_API int gv_opt_format_get_onu_id(int port, const uint8_t *addr, int *onu_id) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_opt_format_get_onu_description_by_mac(int port, const uint8_t *addr,
                                                        char *out) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
