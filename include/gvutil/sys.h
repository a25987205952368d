/*
 * System utilities: text predicates shared by the token parsers, text
 * channels to the kernel modules, commands and console input, probes of the
 * running system, octet conversions, trunks, port data, mirroring, slot
 * liveness and debug logs.
 */
#ifndef GVUTIL_SYS_H
#define GVUTIL_SYS_H

#include <stdint.h>

#include "gvutil/export.h"

GVUTIL_BEGIN_DECLS

/* Look at exactly the first length characters; callers pass the text's length. */
GVUTIL_API int is_digit(const char *text, int length) GVUTIL_NOEXCEPT;
GVUTIL_API int is_digit_minus(const char *text, int length) GVUTIL_NOEXCEPT;
GVUTIL_API int is_hex(const char *text) GVUTIL_NOEXCEPT;
/* Non-negative decimal value of an all-digit text, or -1. */
GVUTIL_API int stoi(const char *text) GVUTIL_NOEXCEPT;
GVUTIL_API int is_br_range(int id) GVUTIL_NOEXCEPT;
GVUTIL_API int is_slot_range(int slot) GVUTIL_NOEXCEPT;

/*
 * Text channels to the kernel modules' /proc control entries.
 *
 * sioctl hands request to the entry at path with the private ioctl
 * (SIOCDEVPRIVATE) and flag; the text reply lands in reply, which must hold
 * GVUTIL_REPLY_SIZE bytes and is cleared first. An entry of another slot
 * (a path beginning with "/SLOT") is reached through "rsctrl -o FLAG -v PATH
 * REQUEST"; its reply is cut at the last whole line that fits.
 * Return: the driver's result; -1 with "%file open error : PATH (REASON)" or
 * "%ioctl open error (REASON)" in reply when the exchange fails, with the
 * remote command's "There is no system" line when the slot is empty, and
 * with an empty reply for a null path or request (nothing is written for a
 * null reply).
 *
 * str_ioctl runs the same exchange through one process-wide 16384-byte area
 * (request in its second half, cut to 8191 characters) and stores a pointer
 * to the reply in *reply when reply is not NULL; that reply stays valid
 * until the next str_ioctl. Return: as sioctl.
 */
#define GVUTIL_REPLY_SIZE 8192
GVUTIL_API int sioctl(const char *path, const char *request, char *reply, int flag) GVUTIL_NOEXCEPT;
GVUTIL_API int str_ioctl(const char *path, const char *request, char **reply,
                         int flag) GVUTIL_NOEXCEPT;

/* ioctl(request, argument) on /proc/strioctl: the driver's result, or -1
 * when the entry cannot be opened. The third argument is not read. */
GVUTIL_API int strioctl(unsigned long request, void *argument, int unused) GVUTIL_NOEXCEPT;

/* ---- Commands and console input ------------------------------------- */

/*
 * Runs program (searched on PATH) with the NULL-terminated list program,
 * arguments... as its argument vector and waits for it. A program that
 * cannot be started says "Can't execute REASON" on standard error and its
 * child exits with status 1; a failed fork says "Can't fork: REASON" and
 * ends the calling process with status 1. When the wait is interrupted (a
 * signal) the child gets 300 ms and then signal 9; it is always reaped.
 * context is not read. Return: 0.
 */
GVUTIL_API __attribute__((sentinel)) int
gv_execute_command(const void *context, const char *program, ...) GVUTIL_NOEXCEPT;

/* Reads a line after prompt into buffer, which must hold a whole line.
 * Return: its length (0 for an empty line), or -1 at the end of input. */
GVUTIL_API int input_string(const char *prompt, char *buffer) GVUTIL_NOEXCEPT;
/* Reads a number within low..high, asking again with "Input again within
 * range : LOW - HIGH\nPROMPT" until one fits. Return: the number,
 * default_value for an empty line, or -1 at the end of input. A text that is
 * not a number reads as -1. */
GVUTIL_API int input_value(const char *prompt, int low, int high,
                           int default_value) GVUTIL_NOEXCEPT;

/* ---- Probes ----------------------------------------------------------- */

/* 1 when the /.config file system (as /bin/df shows it) is 86% full or
 * more, else 0. */
GVUTIL_API int gv_check_config_mem(void) GVUTIL_NOEXCEPT;
/* Hours east of GMT from the first line of a time-zone file ("GMT+9" 9,
 * "GMT-5" -5); 0 for anything else or no file. */
GVUTIL_API int gv_get_timezone(const char *path) GVUTIL_NOEXCEPT;
/* The uptime of /proc/uptime in hundredths of a second; 0 when unreadable. */
GVUTIL_API uint64_t get_system_uptime(void) GVUTIL_NOEXCEPT;
/* Judges an FTP transfer log: message (empty when nothing failed) receives
 * "login failed", "can't find file", "no space left on device" or "error in
 * ftp service" for the first line that tells of a failure. Return: the size
 * of the last "213" reply before it, 0 when none or no log. */
GVUTIL_API int parse_ftp_error(const char *path, char *message) GVUTIL_NOEXCEPT;
/* 1 and the first IPv4 address of host in dotted form in out (16 bytes),
 * or 0 when the name does not resolve. */
GVUTIL_API int get_ip_from_host(const char *host, char *out) GVUTIL_NOEXCEPT;

/* ---- Bridge names and VLAN ranges ------------------------------------ */

/* 1 for "br" followed by digits only, else 0. */
GVUTIL_API int is_valid_vname(const char *name) GVUTIL_NOEXCEPT;
/* A VLAN "N" or "FIRST-LAST" within low..high: 1 with pair[0..1] = {first,
 * last} ({N, N}), 0 when invalid (also FIRST >= LAST), -1 for a text that
 * ends in '-'. pair may be NULL. */
GVUTIL_API int is_valid_vrange(const char *text, int low, int high, int *pair) GVUTIL_NOEXCEPT;
/* 1 for "default..."; the number after "br" (strtoul, any base) when it is
 * 1..4094; else 0. */
GVUTIL_API int gv_get_vid_from_br(const char *name) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_get_max_vlan(void) GVUTIL_NOEXCEPT;

/* ---- Octets and numbers ----------------------------------------------- */

/* The first min(count, 4) octets as a big-endian number. Return: 0. */
GVUTIL_API int convert_octet2int(const unsigned char *octets, int count,
                                 uint32_t *value) GVUTIL_NOEXCEPT;
/* The low min(count, 4) bytes of value, big-endian. Return: 0. */
GVUTIL_API int convert_int2octet(unsigned char *octets, int count, uint32_t value) GVUTIL_NOEXCEPT;
/* Groups of four octets fill words[word_count-1] back to words[0]; octet j of
 * a group, bit-reversed, is bits 8j..8j+7. Return: 0. */
GVUTIL_API int convert_octet2int_ext(const unsigned char *octets, int count, uint32_t *words,
                                     int word_count) GVUTIL_NOEXCEPT;
/* The inverse: from the last word back, each word's bytes from the low end,
 * bit-reversed, at most size-1 of them; out[size-1] = 0. Return: the length
 * of out read as a text (up to its first zero octet). */
GVUTIL_API int convert_int2octet_ext(const uint32_t *words, int word_count, unsigned char *out,
                                     int size) GVUTIL_NOEXCEPT;
/* Reverses the bit order inside each octet (0x01 -> 0x80). */
GVUTIL_API void reverse_bit(unsigned char *bytes, int count) GVUTIL_NOEXCEPT;

/* Decimal text of value ('-' for negatives) into out (12 bytes). */
GVUTIL_API void itoa(int value, char *out) GVUTIL_NOEXCEPT;
/* Reverses a text in place. */
GVUTIL_API void reverse(char *text) GVUTIL_NOEXCEPT;
/* Reverses count (at most 264) bytes in place; more are left alone.
 * Return: bytes. */
GVUTIL_API char *m_strrev(char *bytes, int count) GVUTIL_NOEXCEPT;
/* The part of path after its last '/', inside path itself. */
GVUTIL_API char *get_file_from_path(const char *path) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_get_time(int minutes, int seconds) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_get_time_min(int seconds) GVUTIL_NOEXCEPT;
GVUTIL_API int gv_get_time_sec(int seconds) GVUTIL_NOEXCEPT;

/* ---- Shared words ----------------------------------------------------- */

/* Zero at load, for the callers; the library never touches them. */
GVUTIL_API extern int32_t mate_sfu_index;
GVUTIL_API extern int32_t mate_sfu_count;
GVUTIL_API extern int32_t sleColorMarkAction;
GVUTIL_API extern int32_t sleColorMarkType;
GVUTIL_API extern int32_t sleColorMarkDpColor;
GVUTIL_API extern int32_t sleColorMarkMode;
GVUTIL_API extern int32_t sleColorMarkAwareMode;

/*
 * Debug output. printd and dlog write one formatted line to /dev/console;
 * flog appends it to /tmp/log after file_size_check. A line holds at most
 * 1027 characters; the rest is cut off.
 */
GVUTIL_API GVUTIL_PRINTF(1, 2) void printd(const char *format, ...) GVUTIL_NOEXCEPT;
GVUTIL_API GVUTIL_PRINTF(1, 2) void dlog(const char *format, ...) GVUTIL_NOEXCEPT;
GVUTIL_API GVUTIL_PRINTF(1, 2) void flog(const char *format, ...) GVUTIL_NOEXCEPT;
/* Removes /tmp/log once it holds more than 100000 bytes. Answers the last
 * step's result: -1 when the file cannot be examined (after saying so on
 * standard output), 0 when it is small enough, else the removal's status. */
GVUTIL_API int file_size_check(void) GVUTIL_NOEXCEPT;

GVUTIL_END_DECLS

#endif
