/*
 * The host chassis: what the simulated platform services answer and the
 * controls tests and tools use. Every service reads the chassis from the root
 * that GVUTIL_ROOT names (made by gvsim-mkroot); with no root set there is no
 * chassis, and the services answer as a chassis with nothing fitted would.
 *
 * Switch services and redundancy controller
 *   getModel()                       model code of the root's description, -1 without one
 *   gv_hal_get_port_number_per_slot  ports of a real slot 1..slot count, else 0
 *   gv_board_is_K7400A_SFU()         1 when the board identity is "K7400A_SFU"
 *   get_pnum_from_type_b_trunk_pnum  the working PON port behind a type-b trunk, see below
 *   redctrl_get_boardid()            which switch-fabric unit this board is (1 or 2), 0 without one
 *   redctrl_is_mate_detected()       1 when the other switch-fabric unit is fitted
 *
 * Port names and places (pnums as the root's model record numbers them)
 *   get_ifname(slot, port, name)     the internal name of a real slot's port, with
 *                                    the short prefix of the interface its card
 *                                    carries there (GPON1/3, XE3/1, GE3/1 on the
 *                                    K7400A SFU), or CG<n> for group n of the
 *                                    logical slot (slot count + 1); 0. Anything
 *                                    else: the empty name and -1. A card type that
 *                                    names no interface gives "<slot>/<port>".
 *                                    At most 31 characters.
 *   get_logical_slot_port_from_virtual_port(pnum, &slot, &port)
 *                                    a physical port's real slot and port, (logical
 *                                    slot, group) for a channel group, the working
 *                                    port behind a type-b trunk; 0. Interlink pnums
 *                                    and pnums beyond the chassis: -1 with zeros.
 *   get_logical_slot_port_from_sfu_port(pnum, &slot, &port)
 *                                    the real slot and port of a physical pnum; 0,
 *                                    else -1 with zeros.
 *   get_pnum_from_type_b_trunk_pnum  the working PON port behind a type-b trunk:
 *                                    trunk k (the k-th logical port after the
 *                                    channel groups) pairs the (2k-1)-th and 2k-th
 *                                    PON ports in pnum order and answers the first.
 *                                    Every other pnum, a trunk without such a port,
 *                                    and any pnum without a root answer themselves.
 *                                    On test3 trunks 43..48 answer 1, 3, ..., 11.
 *   A slotless box numbers its front-panel ports slot 0, port = pnum, and names
 *   them slot 1 (GPON1/5); its logical slot is slot 1.
 *
 * Equipment manager
 *   EqmGlobalInfo (eqm_get_global_info())  the record filled from the root on each
 *                                    look: slot_max = the slot count (0 on a slotless
 *                                    box), card_type[s] = the card in real slot s
 *                                    (0 when empty); NULL without a root.
 *   _get_max_port_by_type(card, slot)  the slot's ports (gv_hal_get_port_number_per_slot)
 *                                    when the equipment record shows that card in
 *                                    that slot, else 0.
 *
 * SNMP sub-agent
 *   snmp_oid_compare(a, n, b, m)     -1, 0 or 1: sub-identifiers in order, then the
 *                                    shorter OID first.
 *
 * Clock (gv_check_update_period and the library's clock in a host build)
 *   gvsim_now() is the system's time until a test holds it with
 *   gvsim_clock_set; gvsim_clock_advance moves a held clock (holding it at
 *   the current time first), gvsim_clock_release gives the system's time
 *   back. gv_check_update_period(&stamp, s) answers 1 and renews the stamp
 *   when s seconds have passed since it, or when the stamp lies ahead of the
 *   clock; else 0.
 *
 * Text channels (swch_sioctl, and the library's private-ioctl channel under
 * a root)
 *   A control entry of the root is an executable responder or a plain file.
 *   A responder runs with the request as its one argument, GVSIM_NOW in its
 *   environment (the clock above, in seconds) and standard input from
 *   /dev/null; its standard output is the reply (cut to fit, the rest read
 *   and dropped) and its exit status, taken as a signed byte (255 is -1), is
 *   the result. A plain file's content answers every request with result 0.
 *   A responder still running after the channel timeout (5 s unless
 *   gvsim_channel_timeout says otherwise) is killed: -1 with ETIMEDOUT.
 *   swch_sioctl(path, command, &reply, flag) runs the exchange on the root's
 *   entry into one static 8192-byte reply; -1 and an empty reply without a
 *   root or entry.
 *
 * Driver control entries of every generated root (state in the root's var/)
 *   /proc/switch/pstat/ctrl  "interface-snmp N", "rmon-snmp N" for pnums 1..total:
 *                       "Name : value Name : value" lines. With t = GVSIM_NOW:
 *                       in ucast t(1000+n), mcast t(20+n), bcast t(5+n), nucast
 *                       mcast+bcast, octets 400 ucast + 100 nucast, discards
 *                       t/(50+n), errors t/(500+n); out ucast t(800+n), mcast
 *                       t(10+n), bcast t(2+n), octets 500 ucast + 90 nucast,
 *                       discards t/(70+n), errors t/(700+n); last change 100n+7.
 *                       RMON: pkts in ucast+nucast, octets, bcast, mcast, drop
 *                       events (in discards), CRC (in errors) from the in side;
 *                       undersize t/(1000+n), oversize t/(1500+n), fragments
 *                       t/(2000+n), jabbers t/(3000+n), collisions 0; sizes
 *                       64: pkts/4, 65-127: pkts/5, 128-255 and 256-511: pkts/8,
 *                       512-1023: pkts/10, 1024-1518 the rest. Other requests
 *                       and pnums: no reply, result -1.
 *   /proc/sensor        "alarm-led status all": "crit maj min r31", the three LED
 *                       states (register 30) and the register-31 states as bits
 *                       (crit 1, maj 2, min 4), from var/sensor/leds.
 *   bin/scontrol        scontrol -f .../proc/sensor LED 30|31 0|1 sets one register
 *                       (LED crit-led, maj-led, min-led) and logs "LED REG STATE"
 *                       to var/sensor/scontrol.log; anything else exits 1.
 *   /proc/ibc           a plain file: the board controller's last write.
 *   /proc/switch/misc/ctrl  "get config": var/switch/config_applied (1 as made).
 *
 * Balanced tree (avl_*)
 *   A red-black tree. Items are ordered by compare(new or sought item, held
 *   item); an item comparing equal to a held one is refused by avl_Insert
 *   (-1) and stays the caller's. avl_Next walks by the tree's own order, so
 *   it also works for comparators that do not agree with themselves.
 *
 * Tracked allocator
 *   mfh_malloc keeps every block with its source name; memmgr_free of a block
 *   it did not hand out (or a second time) reports it and aborts.
 *
 * Interface-range services (internal names: short prefix, "slot/port", or a
 * number for channel groups)
 *   intf_ranges_set, gv_imish_set_ifrange  parse "GE1/2", "GE1/2-4", "GE1/2-1/4",
 *                                          "CG1", "CG1-3"; no check of the chassis
 *   gv_get_ifname       accepts any letter case of the short prefix and writes
 *                       its usual spelling; slot 0 becomes real slot 3
 *   gv_is_correct_interface  1 for a port of the root's chassis named with the
 *                       interface its card carries there (GE1/2 on a GE card),
 *                       or CG1..CGn for the chassis' channel groups. A slotless
 *                       box names its front-panel ports slot 1, port = pnum
 *                       (GPON1/1, GE1/17 on the K3100X).
 *
 * Command shell output
 *   gv_cli_out(ctx, format, ...)  formats the text with vsnprintf (any length) and
 *                       hands it to ctx->out_func(ctx->out_arg, "%s", text); answers
 *                       what out_func answers, 0 without a context or output
 *                       function, -1 when the text cannot be formatted.
 *
 * Plain heap (the library's own blocks: range nodes, zeroed work buffers)
 *   gvsim_heap_alloc(size, zeroed)  malloc, or calloc when zeroed; counted while
 *                       live, and refused (NULL) once the budget that
 *                       gvsim_heap_fail_after set is spent.
 *   gvsim_heap_free(block)          free; NULL is ignored.
 *
 * Type-b trunks (get_pnum_from_type_b_trunk_pnum)
 *   The logical slot (pnums after the interlink ports) holds the channel
 *   groups first, then the trunk ports; a trunk port is a type-b trunk, a PON
 *   protection pair. Trunk k (the k-th logical port after the channel groups,
 *   from 1) pairs the (2k-1)-th and 2k-th PON ports of the chassis, counted in
 *   pnum order over EPON, 10G-EPON, GPON, XGS-PON and NG-PON ports; the
 *   service answers the pnum of the first, working, member: an ordinary pnum.
 *   Every other pnum (physical, interlink, channel group, beyond the chassis,
 *   or a trunk with no working PON port) answers itself, and so does every
 *   pnum without a chassis root. On test3 (8 GPON in slot 1, 8 EPON in slot 2,
 *   8 channel groups) trunk pnums 43..48 answer 1, 3, 5, 7, 9 and 11.
 */
#ifndef GVSIM_H
#define GVSIM_H

#include "gvutil/platform.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The host clock: the system's time, or the time a test holds. */
time_t gvsim_now(void);
void gvsim_clock_set(time_t now);
void gvsim_clock_advance(long seconds);
void gvsim_clock_release(void);

/* One text-channel exchange on a host path (a responder or a reply file):
 * 0 with the channel's result in *result, or -1 with errno when there was no
 * exchange. The reply is cleared first and always ends in a NUL within size
 * bytes. */
int gvsim_channel_exchange(const char *path, const char *request, char *reply, size_t size,
                           int *result);
/* How long a responder may run; 0 or less restores the default 5000 ms. */
void gvsim_channel_timeout(int milliseconds);

/* Blocks of the tracked allocator not yet freed: all, or those of one source. */
long gvsim_live_allocations(void);
long gvsim_live_allocations_from(const char *source);
/* After successes more allocations, every mfh_malloc fails; negative: never. */
void gvsim_allocator_fail_after(long successes);
/* The nth mfh_malloc from now (1 is the next) fails and the others succeed;
 * 0 or less: none. */
void gvsim_allocator_fail_nth(long nth);

/* The plain heap the library takes its own blocks from in a host build. */
void *gvsim_heap_alloc(size_t size, int zeroed);
void gvsim_heap_free(void *block);
/* Blocks of that heap not yet freed. */
long gvsim_heap_live_blocks(void);
/* After successes more allocations, the heap refuses every one; negative: never. */
void gvsim_heap_fail_after(long successes);

/* Trees created and not yet destroyed. */
long gvsim_live_trees(void);
/* The next count avl_Create calls fail. */
void gvsim_tree_fail_creates(int count);

#ifdef __cplusplus
}
#endif

#endif
