/*
 * The front panel's three alarm LEDs (critical, major, minor) and the ten
 * alarm causes that drive them.
 *
 * Two state files in /tmp hold the state between calls and processes; every
 * call reads them afresh and nothing is cached:
 *   "/tmp/.alarm_led"      which causes drive which LED (alarm_severity):
 *                          one line of 44 numbers, written "%u", read "%d";
 *   "/tmp/.alarm_cur_led"  the active alarms (alarm_severity_status): one
 *                          line "%u %u %u %llu %llu %llu %llu %llu %llu %llu
 *                          %llu %u %u %u", read with "%d" and "%lld".
 * Both are replaced whole (a temporary file and rename), so a writer killed
 * at any moment leaves the old line or the new one.
 *
 * The LEDs are switched with "scontrol -f /proc/sensor <led> 30|31 <state>",
 * read back through "alarm-led status all" on "/proc/sensor", and mirrored
 * into the board controller with "echo write 9 12 9 <value> > /proc/ibc".
 *
 * A cause setter switches the LED of the first enabled severity (critical,
 * major, minor) the cause is configured for. It does not touch the active
 * alarms: callers call set_alarm_status first, so that clearing counts the
 * other causes still holding the LED.
 */
#ifndef GVUTIL_ALARM_H
#define GVUTIL_ALARM_H

#include <stdint.h>

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

/* Causes, in their fixed order: a cause's number is its word in a group. */
#define GV_ALARM_FAN_FAIL 0
#define GV_ALARM_FAN_REMOVE 1
#define GV_ALARM_MEMORY_OVER 2
#define GV_ALARM_MODULE_REMOVE 3
#define GV_ALARM_PORT_LINK_DOWN 4
#define GV_ALARM_PORT_REMOVE 5
#define GV_ALARM_PORT_THRESHOLD_OVER 6
#define GV_ALARM_POWER_FAIL 7
#define GV_ALARM_POWER_REMOVE 8
#define GV_ALARM_TEMPERATURE_HIGH 9
#define GV_ALARM_CAUSES 10
/* Word 10 of a group: non-zero when that LED is not driven. */
#define GV_ALARM_DISABLED 10
#define GV_ALARM_GROUP_WORDS 11

/* Severity groups; group 0 is not consulted. */
#define GV_ALARM_CRITICAL 1
#define GV_ALARM_MAJOR 2
#define GV_ALARM_MINOR 3
#define GV_ALARM_GROUPS 4

/* get_alarm_led_status and get_alarm_led_cur_status copy at most 512
 * characters and a terminator. */
#define GV_ALARM_TEXT_SIZE 513

/* Which causes drive which LED: alarm_severity[group][cause] is 1 when the
 * cause drives the group's LED. Zero at load. */
GVUTIL_API extern uint32_t alarm_severity[GV_ALARM_GROUPS][GV_ALARM_GROUP_WORDS];

/* The active alarms. Two-half bit sets: index 0-62 is that bit of the low
 * half, 63 and up bit (index - 63) of the high half. */
typedef struct gv_alarm_status {
    uint32_t fan_fail;         /* one bit per fan */
    uint32_t fan_remove;       /* one bit per fan */
    uint32_t memory_over;      /* bit 0 */
    uint64_t module_remove[2]; /* low half, high half */
    uint64_t link_down[2];
    uint64_t port_remove[2];
    uint64_t threshold[2];
    uint32_t power_fail;   /* one bit per power supply */
    uint32_t power_remove; /* one bit per power supply */
    uint32_t temperature;  /* bit 0 */
} alarm_severity_status_t;

GVUTIL_API extern alarm_severity_status_t alarm_severity_status;

/* Kept for the callers (68 bytes each, zero at load); the library does not
 * use them. */
GVUTIL_API extern uint32_t last_install_state[17];
GVUTIL_API extern uint32_t last_module_state[17];

/*
 * Records or clears one active alarm and rewrites "/tmp/.alarm_cur_led".
 * The cause is known by a few characters: 'a' all (nothing changes, the
 * file is rewritten); 'f' with fifth 'f' fan fail, 'r' fan remove; 'm' with
 * second 'e' memory over, 'o' module remove; 'p' with sixth 'l' port link
 * down, 'r' port remove, 't' port threshold over, else seventh 'f' power
 * fail, 'r' power remove; 't' temperature high. on 1 sets bit index (memory
 * and temperature: bit 0), on 0 clears it, anything else changes nothing.
 * The 32-bit sets take index & 63 when setting (32-63 set nothing) and index
 * & 31 when clearing; two-half sets ignore indexes outside 0-126.
 * 0, or -1 for an unknown cause (the file untouched).
 */
GVUTIL_API int set_alarm_status(const char *cause, int on, int index) GVUTIL_NOEXCEPT;

/*
 * The cause setters. on 1: the LED of the first enabled severity that the
 * cause drives is switched on; 0 after switching, 3 when the walk reaches a
 * minor severity that has the cause but is disabled, else readAlarmLedProc's
 * result. on 0: with the first enabled severity that has the cause, the
 * count of its active alarms when non-zero (the LED stays on), else 0 after
 * switching it off; readAlarmLedProc's result when none. Anything else: 0.
 */
GVUTIL_API int set_alarm_led_fan_fail(int on) GVUTIL_NOEXCEPT;
GVUTIL_API int set_alarm_led_fan_remove(int on) GVUTIL_NOEXCEPT;
GVUTIL_API int set_alarm_led_memory_over(int on) GVUTIL_NOEXCEPT;
GVUTIL_API int set_alarm_led_module_remove(int on) GVUTIL_NOEXCEPT;
GVUTIL_API int set_alarm_led_port_link_down(int on) GVUTIL_NOEXCEPT;
GVUTIL_API int set_alarm_led_port_remove(int on) GVUTIL_NOEXCEPT;
GVUTIL_API int set_alarm_led_port_threshold_over(int on) GVUTIL_NOEXCEPT;
GVUTIL_API int set_alarm_led_power_fail(int on) GVUTIL_NOEXCEPT;
GVUTIL_API int set_alarm_led_power_remove(int on) GVUTIL_NOEXCEPT;
GVUTIL_API int set_alarm_led_temperature_high(int on) GVUTIL_NOEXCEPT;

/* alarm_severity from or to "/tmp/.alarm_led": 0, or -1 when the file
 * cannot be read (the table is left as it was) or written. */
GVUTIL_API int readAlarmLedProc(void) GVUTIL_NOEXCEPT;
GVUTIL_API int writeAlarmLedProc(void) GVUTIL_NOEXCEPT;
/* alarm_severity_status from "/tmp/.alarm_cur_led": 0, or -1. */
GVUTIL_API int readCurAlarmLedProc(void) GVUTIL_NOEXCEPT;

/* The sensor driver's "alarm-led status all" reply (critical, major and
 * minor state, then a fourth number of the driver's): at most 512
 * characters of a non-empty reply and a terminator into buf
 * (GV_ALARM_TEXT_SIZE bytes); answers the reply's whole length, 0 when it
 * is empty (buf untouched). */
GVUTIL_API int get_alarm_led_status(char *buf) GVUTIL_NOEXCEPT;
/* The first non-empty line of "/tmp/.alarm_cur_led" without its line end,
 * the same way; 0 when the file is missing or holds no such line. */
GVUTIL_API int get_alarm_led_cur_status(char *buf) GVUTIL_NOEXCEPT;

/* The number at the start of the switch's "get config" reply on
 * "/proc/switch/misc/ctrl"; 0 for an empty reply or one that does not begin
 * with a number. */
GVUTIL_API int is_after_config(void) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
