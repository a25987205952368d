#include "driver_responders.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace gvsim {
namespace {

namespace fs = std::filesystem;

// The statistics control of the switch driver. Counters grow with the
// clock t (GVSIM_NOW, seconds) at rates set by the pnum n, so a test that
// holds the clock knows every value; gvsim.h lists the formulas.
constexpr std::string_view kPstat = R"sh(#!/bin/sh
# Switch driver statistics: "interface-snmp N" and "rmon-snmp N" for the
# pnums 1..@TOTAL@ of this chassis; anything else gets no reply.
set -f
set -- $1
[ $# -eq 2 ] || exit 255
n=$2
case $n in '' | 0* | *[!0-9]*) exit 255 ;; esac
[ ${#n} -le 5 ] && [ "$n" -le @TOTAL@ ] || exit 255
t=${GVSIM_NOW:-0}
case $t in '' | *[!0-9]*) t=0 ;; esac

in_ucast=$((t * (1000 + n)))
in_mcast=$((t * (20 + n)))
in_bcast=$((t * (5 + n)))
in_nucast=$((in_mcast + in_bcast))
in_octets=$((in_ucast * 400 + in_nucast * 100))
in_discards=$((t / (50 + n)))
in_errors=$((t / (500 + n)))

pair() { printf '%-16s: %-20s %-22s: %s\n' "$1" "$2" "$3" "$4"; }

case $1 in
interface-snmp)
    out_ucast=$((t * (800 + n)))
    out_mcast=$((t * (10 + n)))
    out_bcast=$((t * (2 + n)))
    out_nucast=$((out_mcast + out_bcast))
    pair IfInOctets $in_octets IfOutOctets $((out_ucast * 500 + out_nucast * 90))
    pair IfInUcastPkts $in_ucast IfOutUcastPkts $out_ucast
    pair IfInNUcastPkts $in_nucast IfOutNUcastPkts $out_nucast
    pair IfInMcastPkts $in_mcast IfOutMcastPkts $out_mcast
    pair IfInBcastPkts $in_bcast IfOutBcastPkts $out_bcast
    pair IfInDiscards $in_discards IfOutDiscards $((t / (70 + n)))
    pair IfInErrors $in_errors IfOutErrors $((t / (700 + n)))
    printf '%-16s: %s\n' IfLastChange $((100 * n + 7))
    ;;
rmon-snmp)
    pkts=$((in_ucast + in_nucast))
    p64=$((pkts / 4))
    p65=$((pkts / 5))
    p128=$((pkts / 8))
    p256=$((pkts / 8))
    p512=$((pkts / 10))
    pair DropEvents $in_discards Jabbers $((t / (3000 + n)))
    pair Octets $in_octets Collisions 0
    pair Pkts $pkts Pkts64Octets $p64
    pair BroadcastPkts $in_bcast Pkts65to127Octets $p65
    pair MulticastPkts $in_mcast Pkts128to255Octets $p128
    pair CRCAlignErrors $in_errors Pkts256to511Octets $p256
    pair UndersizePkts $((t / (1000 + n))) Pkts512to1023Octets $p512
    pair OversizePkts $((t / (1500 + n))) Pkts1024to1518Octets \
        $((pkts - p64 - p65 - p128 - p256 - p512))
    printf '%-16s: %s\n' Fragments $((t / (2000 + n)))
    ;;
*) exit 255 ;;
esac
)sh";

// The sensor driver: register 30 of each LED is its state; register 31 is
// answered as a bit set (critical 1, major 2, minor 4).
constexpr std::string_view kSensor = R"sh(#!/bin/sh
# Sensor driver: "alarm-led status all" answers the critical, major and
# minor LED states and the LEDs' second registers as a bit set.
leds=${0%/proc/sensor}/var/sensor/leds
case $1 in
"alarm-led status all")
    c=0 m=0 n=0 c2=0 m2=0 n2=0
    [ -f "$leds" ] && read -r c m n c2 m2 n2 <"$leds"
    echo "$c $m $n $((c2 + 2 * m2 + 4 * n2))"
    ;;
*) exit 255 ;;
esac
)sh";

constexpr std::string_view kScontrol = R"sh(#!/bin/sh
# Sensor control: scontrol -f DEVICE LED REGISTER STATE sets one LED
# register of the sensor driver (crit-led, maj-led or min-led; 30 or 31;
# 0 or 1). Each change is logged to var/sensor/scontrol.log.
dir=${0%/bin/scontrol}/var/sensor
fail() { echo "scontrol: $*" >&2; exit 1; }
[ $# -eq 5 ] && [ "$1" = -f ] || fail "usage: scontrol -f DEVICE LED REGISTER STATE"
case $2 in */proc/sensor) ;; *) fail "$2: not a sensor device" ;; esac
case $3 in crit-led) i=1 ;; maj-led) i=2 ;; min-led) i=3 ;; *) fail "unknown LED $3" ;; esac
case $4 in 30) ;; 31) i=$((i + 3)) ;; *) fail "unknown register $4" ;; esac
case $5 in 0 | 1) ;; *) fail "bad state $5" ;; esac
r1=0 r2=0 r3=0 r4=0 r5=0 r6=0
[ -f "$dir/leds" ] && read -r r1 r2 r3 r4 r5 r6 <"$dir/leds"
eval "r$i=$5"
mkdir -p "$dir"
echo "$r1 $r2 $r3 $r4 $r5 $r6" >"$dir/leds.$$" && mv "$dir/leds.$$" "$dir/leds"
echo "$3 $4 $5" >>"$dir/scontrol.log"
)sh";

// The switch's misc control: "get config" answers whether the start-up
// configuration has been applied.
constexpr std::string_view kMiscControl = R"sh(#!/bin/sh
# Switch misc control: "get config" answers 1 once the start-up
# configuration is applied (var/switch/config_applied), else 0.
state=${0%/proc/switch/misc/ctrl}/var/switch/config_applied
case $1 in
"get config") if [ -f "$state" ]; then cat "$state"; else echo 0; fi ;;
*) exit 255 ;;
esac
)sh";

class Writer {
  public:
    Writer(const std::string &dir, std::string &error) : root_(dir), error_(error) {}

    bool file(std::string_view relative, std::string_view text, bool program = false) {
        const fs::path path = root_ / relative;
        std::error_code ec;
        fs::create_directories(path.parent_path(), ec);
        if (ec) {
            return fail(path.parent_path(), ec.value());
        }
        std::FILE *out = std::fopen(path.c_str(), "wb");
        if (out == nullptr) {
            return fail(path, errno);
        }
        const bool written = std::fwrite(text.data(), 1, text.size(), out) == text.size();
        const int code = errno;
        if (std::fclose(out) != 0 || !written) {
            return fail(path, written ? errno : code);
        }
        if (program) {
            fs::permissions(path,
                            fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                                fs::perms::others_read | fs::perms::others_exec,
                            ec);
        }
        return ec ? fail(path, ec.value()) : true;
    }

  private:
    bool fail(const fs::path &path, int code) {
        error_ = "cannot write " + path.string() + ": " + std::strerror(code);
        return false;
    }

    fs::path root_;
    std::string &error_;
};

std::string with_total(std::string_view script, int total) {
    std::string text(script);
    const std::string mark = "@TOTAL@";
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark)) {
        text.replace(at, mark.size(), std::to_string(total));
    }
    return text;
}

} // namespace

bool write_driver_responders(const ChassisDesc &desc, const std::string &dir, std::string &error) {
    Writer root(dir, error);
    return root.file("proc/switch/pstat/ctrl", with_total(kPstat, desc.kind[0]), true) &&
           root.file("proc/sensor", kSensor, true) && root.file("bin/scontrol", kScontrol, true) &&
           root.file("proc/switch/misc/ctrl", kMiscControl, true) && root.file("proc/ibc", "") &&
           root.file("var/sensor/leds", "0 0 0 0 0 0\n") &&
           root.file("var/switch/config_applied", "1\n");
}

} // namespace gvsim
