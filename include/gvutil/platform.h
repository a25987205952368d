/*
 * Services the library imports from the rest of the chassis: the switch
 * services, the balanced-tree library, the tracked allocator, the redundancy
 * controller, the equipment manager's shared record, the command shell and
 * the SNMP sub-agent. On the chassis they come from the system's own
 * libraries; a host build takes them from libgvsim.
 */
#ifndef GVUTIL_PLATFORM_H
#define GVUTIL_PLATFORM_H

#include <stddef.h>
#include <stdint.h>
#include <time.h>

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

/* ---- Command shell ---------------------------------------------------- */

/* printf-like; receives the context's out_arg first. */
typedef int (*cli_out_func)(void *out_arg, const char *format, ...);

/* The shell's output context. The library uses these two members only. */
struct cli_ctx {
    cli_out_func out_func;
    void *out_arg;
};

/* Prints a formatted line through the context's output function. */
int gv_cli_out(struct cli_ctx *ctx, const char *format, ...);

/* A heap line without its newline, or NULL at end of input; caller frees. */
char *readline(const char *prompt);

/* One element of an interface range ("GE1/1-4"); slot 0 for names without
 * one ("CG1-3"). */
struct intf_range {
    char prefix[16];
    int slot;
    int first_port;
    int last_port;
};

/* Parses a comma-separated internal name list into at most max ranges;
 * answers 1 when the list does not parse (or holds more), else 0 with *count
 * ranges. */
int intf_ranges_set(const char *list, int max, struct intf_range *ranges, int *count);
/* Parses one element into prefix (16 bytes), slot and port range: 0, or -1. */
int gv_imish_set_ifrange(const char *element, char *prefix, int *slot, int *first_port,
                         int *last_port);
/* Resolves one interface name into the name the platform uses, in at most
 * size bytes: 0, or -1 when it names no interface or does not fit. */
int gv_get_ifname(const char *name, char *resolved, int size);
/* 1 when the named interface exists on this chassis, else 0. */
int gv_is_correct_interface(const char *name);

/* ---- Switch services -------------------------------------------------- */

/* Writes command to a switch control file; *reply receives the text reply. */
int swch_sioctl(const char *path, const char *command, char **reply, int flag);
/* Interface name of a real slot and port (at most 31 characters); 0, or -1
 * with the empty name when there is no such port. */
int get_ifname(int slot, int port, char *name);
int get_pnum_from_type_b_trunk_pnum(int pnum);
/* The real slot and port of a fabric port (a pnum); 0, or -1 with zeros. */
int get_logical_slot_port_from_sfu_port(int sfu_port, int *slot, int *port);
/* The slot and port that name a pnum: a physical port's own, the logical
 * slot and group of a channel group, the working port behind a type-b trunk;
 * 0, or -1 with zeros. */
int get_logical_slot_port_from_virtual_port(int pnum, int *slot, int *port);
int _get_max_port_by_type(int card_type, int slot);
int gv_hal_get_port_number_per_slot(int slot);
/* Model code of the chassis (0 K7100, 4 K7200, 6/9 K7400, 7/8 K7500). */
int getModel(void);
int gv_board_is_K7400A_SFU(void);
/* 1 and *stamp renewed when seconds have passed since *stamp, else 0. */
int gv_check_update_period(time_t *stamp, int seconds);

/* ---- Balanced tree ---------------------------------------------------- */

typedef struct avl_tree avl_tree;
typedef int (*avl_compare_func)(const void *a, const void *b);
typedef int (*avl_free_func)(void *item);

/* Trees order items by compare(new or sought item, item held). The items
 * stay the caller's until avl_Destroy hands them to its destroy function. */
avl_tree *avl_Create(avl_compare_func compare);
/* 0 when inserted, -1 when not: an item comparing equal to one the tree
 * already holds is refused and stays the caller's. */
int avl_Insert(avl_tree *tree, void *item);
void *avl_Find(avl_tree *tree, const void *key);
void *avl_First(avl_tree *tree);
/* The item after item in the tree's order, or NULL after the last. */
void *avl_Next(avl_tree *tree, const void *item);
/* Frees the tree, handing every item to destroy when it is not NULL. */
void avl_Destroy(avl_tree *tree, avl_free_func destroy);

/* ---- Tracked allocator ------------------------------------------------ */

/* The source name and line are kept with the block for leak tracking. */
void *mfh_malloc(size_t size, int flags, const char *source, int line);
void memmgr_free(int flags, void *ptr, const char *source, int line);

/* ---- Redundancy controller -------------------------------------------- */

int redctrl_get_boardid(void);
int redctrl_is_mate_detected(void);

/* ---- Equipment manager ------------------------------------------------ */

#define EQM_SLOT_ENTRIES 34

/* The equipment manager's shared record. */
struct eqm_global_info {
    uint16_t slot_max;                    /* highest slot number shown to the operator */
    uint16_t card_type[EQM_SLOT_ENTRIES]; /* by real slot; 0 for an empty slot */
};
/* The record as the equipment manager publishes it now; NULL while it has
 * published none. Read it as EqmGlobalInfo (EqmGlobalInfo->slot_max). */
struct eqm_global_info *eqm_get_global_info(void);
#define EqmGlobalInfo (eqm_get_global_info())

/* ---- SNMP sub-agent --------------------------------------------------- */

typedef unsigned long oid;
#define GV_MAX_OID_LEN 128

struct variable;
typedef int(write_method_func)(int action, unsigned char *var_val, unsigned char var_val_type,
                               size_t var_val_len, unsigned char *statP, oid *name, size_t length);
typedef unsigned char *(find_var_func)(struct variable *vp, oid *name, size_t *length, int exact,
                                       size_t *var_len, write_method_func **write_method);

/* One column of a registered table. */
struct variable {
    unsigned char magic;
    char type;
    unsigned short acl;
    find_var_func *find_var;
    unsigned char namelen;
    oid name[GV_MAX_OID_LEN];
};

/* Step through a table's index: mode 0 exact, 1 first, 2 next. */
typedef int (*get_key_step_func)(void *index, int mode);

void init_variable_oid(struct variable *variables, int count);
int smux_register_mib(int connection, const char *name, struct variable *variables,
                      size_t variable_size, int count, const oid *base, size_t base_length);
/* Parses the index after vp's OID and steps through the table: 0, or -1. */
int get_key(struct variable *vp, oid *name, size_t *length, int exact, void *index,
            get_key_step_func step);
int snmp_oid_compare(const oid *a, size_t a_length, const oid *b, size_t b_length);
extern long sle_long_ret;
int snmp_odm_get_proc_vendor_name(char *name, int size);
int snmp_odm_is_gavron_oid(int which);

GVUTIL_END_DECLS

#endif
