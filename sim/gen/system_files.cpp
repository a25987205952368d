#include "system_files.h"

#include "chassis_rules.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace gvsim {
namespace {

namespace fs = std::filesystem;

// Log types 1..9 and how many indexes each has.
constexpr int kLogIndexes[] = {8, 10, 6, 2, 29, 18, 3, 10, 3};
constexpr int kSfuCardType = 22;

// /proc/gv_loglevel. The thresholds live in sim/loglevel of the root, one
// "TYPE INDEX ENABLED PRIORITY" line each; indexes run from 0, and a
// threshold the file lacks reads as enabled at err (1 3).
constexpr std::string_view kLoglevelResponder = R"sh(#!/bin/sh
# /proc/gv_loglevel of the host chassis. "enable|disable TYPE INDEX PRIORITY"
# sets a threshold, "get TYPE INDEX" answers "ENABLED PRIORITY". Anything else
# gets the driver's error text and -1.
state="$(dirname "$0")/../sim/loglevel"
set -f
set -- $1
refuse() { echo "% $*"; exit 255; }
is_number() { case $1 in ''|*[!0-9]*) return 1;; esac; [ ${#1} -le 4 ]; }
indexes() {
    case $1 in
    1) echo 8;; 2) echo 10;; 3) echo 6;; 4) echo 2;; 5) echo 29;;
    6) echo 18;; 7) echo 3;; 8) echo 10;; 9) echo 3;; *) echo 0;;
    esac
}
case "$1:$#" in
get:3|enable:4|disable:4) ;;
*) refuse "Invalid log level request : $*";;
esac
verb=$1 type=$2 index=$3 priority=$4
is_number "$type" && [ "$(indexes "$type")" -gt 0 ] || refuse "Invalid log type : $type"
max=$(indexes "$type")
is_number "$index" && [ "$index" -lt "$max" ] ||
    refuse "Invalid log index : $index (type $type has 0-$((max - 1)))"
if [ "$verb" = get ]; then
    awk -v t="$type" -v i="$index" '$1 == t + 0 && $2 == i + 0 { print $3, $4; found = 1; exit }
        END { if (!found) print "1 3" }' "$state" 2>/dev/null || echo "1 3"
    exit 0
fi
is_number "$priority" && [ "$priority" -le 7 ] || refuse "Invalid priority : $priority"
enabled=0
[ "$verb" = enable ] && enabled=1
{ [ -f "$state" ] && cat "$state"; } |
    awk -v t="$type" -v i="$index" -v e="$enabled" -v p="$priority" '
        $1 == t + 0 && $2 == i + 0 { if (!done) print t, i, e, p; done = 1; next }
        { print }
        END { if (!done) print t, i, e, p }' > "$state.$$" && mv "$state.$$" "$state"
)sh";

// rsctrl: a request on another slot's entry. The entry is this root's own
// (a responder or a reply file), as the board in that slot would answer.
constexpr std::string_view kRsctrl = R"sh(#!/bin/sh
# rsctrl -o FLAG -v /SLOT<n>/PATH REQUEST...: runs REQUEST on PATH as the board
# in slot n and answers "FLAG n RESULT" and the reply; "There is no system"
# (status 1) when proc/all_info shows no board in slot n.
root="$(cd "$(dirname "$0")/.." && pwd)"
flag=0 path=
while getopts o:v: option; do
    case $option in
    o) flag=$OPTARG;;
    v) path=$OPTARG;;
    *) echo "usage: rsctrl -o FLAG -v /SLOTn/PATH REQUEST" >&2; exit 2;;
    esac
done
shift $((OPTIND - 1))
slot=${path#/SLOT}
slot=${slot%%/*}
entry=${path#/SLOT"$slot"}
alive=
case $slot in
''|*[!0-9]*) ;;
*) alive=$(awk -v s="$slot" '$1 == s + 0 && NF > 1 { print ($2 != "-"); exit }' \
       "$root/proc/all_info" 2>/dev/null);;
esac
if [ "$alive" != 1 ]; then
    echo "There is no system"
    exit 1
fi
reply="$root/tmp/.rsctrl.$$"
trap 'rm -f "$reply"' EXIT
if [ -f "$root$entry" ] && [ -x "$root$entry" ]; then
    "$root$entry" "$*" > "$reply"
    result=$?
    [ "$result" -gt 127 ] && result=$((result - 256))
elif [ -f "$root$entry" ]; then
    cat "$root$entry" > "$reply"
    result=0
else
    echo "%file open error : $entry (No such file or directory)" > "$reply"
    result=-1
fi
echo "$flag $slot $result"
cat "$reply"
)sh";

// df: the board's flash file systems; the saved configuration is on /.config.
constexpr std::string_view kDf = R"sh(#!/bin/sh
echo 'Filesystem           1K-blocks      Used Available Use% Mounted on'
echo '/dev/root                65536     47104     18432  72% /'
echo 'tmpfs                   127224        84    127140   0% /tmp'
echo '/dev/mtdblock5           16384      5632     10752  34% /.config'
)sh";

constexpr std::string_view kUptime = "93784.52 180102.33\n";

// A line card's name as the slot list shows it: the SFU, or its first
// port's interface and its port count ("GPON16").
std::string board_name(const SlotDesc &slot, bool k7400a) {
    if (slot.card_type == kSfuCardType) {
        return "SFU";
    }
    const char *prefix = interface_prefix(card_port_interface(slot.card_type, 1, k7400a));
    return (prefix != nullptr ? std::string(prefix) : "CARD" + std::to_string(slot.card_type)) +
           std::to_string(slot.ports);
}

// One three-character column per physical port: the pnums, or "-" for each.
std::string column_line(const ChassisDesc &desc, bool ruler) {
    std::string line;
    for_each_physical_port(desc, [&](int pnum, int, int) {
        char column[16];
        std::snprintf(column, sizeof column, "%-3d", pnum);
        line += ruler ? std::string(column) : "-  ";
    });
    while (!line.empty() && line.back() == ' ') {
        line.pop_back();
    }
    return line + "\n";
}

class Writer {
  public:
    Writer(const std::string &dir, std::string &error) : root_(dir), error_(error) {}

    bool file(const std::string &relative, std::string_view text, bool program = false) {
        const fs::path path = root_ / relative;
        std::error_code ec;
        fs::create_directories(path.parent_path(), ec);
        std::FILE *out = ec ? nullptr : std::fopen(path.c_str(), "wb");
        if (out == nullptr) {
            return fail(path, ec ? ec.value() : errno);
        }
        const bool written = std::fwrite(text.data(), 1, text.size(), out) == text.size();
        if (std::fclose(out) != 0 || !written) {
            return fail(path, errno);
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

} // namespace

std::string loglevel_state_text() {
    std::string text;
    for (int type = 1; type <= 9; ++type) {
        for (int index = 0; index < kLogIndexes[type - 1]; ++index) {
            text += std::to_string(type) + " " + std::to_string(index) + " 1 3\n";
        }
    }
    return text;
}

// A header line, then one line per real slot; a slotless box is slot 1.
std::string all_info_text(const ChassisDesc &desc) {
    std::string text = "slot  board     ports  state\n";
    char line[96];
    if (desc.slot_count == 0) {
        std::snprintf(line, sizeof line, "%2d    %-9s %-6d %s\n", 1, desc.real_model_name.c_str(),
                      desc.kind[1], "running");
        return text + line;
    }
    const bool k7400a = is_k7400a_board(desc);
    for (int s = 1; s <= desc.slot_count; ++s) {
        const SlotDesc &slot = desc.slots[static_cast<std::size_t>(s - 1)];
        const bool fitted = slot.card_type != 0;
        std::snprintf(line, sizeof line, "%2d    %-9s %-6d %s\n", s,
                      fitted ? board_name(slot, k7400a).c_str() : "-", slot.ports,
                      fitted ? "running" : "-");
        text += line;
    }
    return text;
}

// Mirroring off: line 1 the state, line 6 the receive side and line 9 the
// transmit side, one three-character column per source port.
std::string mirror_text(const ChassisDesc &desc) {
    const std::string dashes = column_line(desc, false);
    return "mirror     disabled\nanalyzer   -\n\n"
           "ingress (rx): analyzer port of each source port\n" +
           column_line(desc, true) + dashes + "\negress (tx): analyzer port of each source port\n" +
           dashes;
}

// Learned addresses: more than one channel reply holds (over 8192 bytes).
std::string mac_table_text(const ChassisDesc &desc) {
    const int ports = desc.kind[1] > 0 ? desc.kind[1] : 1;
    std::string text = " vid  mac address        pnum\n";
    char line[64];
    for (int entry = 0; entry < 300; ++entry) {
        std::snprintf(line, sizeof line, "%4d  00:1b:2c:%02x:%02x:%02x  %d\n", 1 + entry % 8,
                      entry / 256, entry % 256, (entry * 7) % 256, 1 + entry % ports);
        text += line;
    }
    return text;
}

bool write_system_files(const ChassisDesc &desc, const std::string &dir, std::string &error) {
    Writer root(dir, error);
    return root.file("proc/gv_loglevel", kLoglevelResponder, true) &&
           root.file("sim/loglevel", loglevel_state_text()) &&
           root.file("bin/rsctrl", kRsctrl, true) && root.file("bin/df", kDf, true) &&
           root.file("proc/all_info", all_info_text(desc)) &&
           root.file("proc/switch/mirror", mirror_text(desc)) &&
           root.file("proc/switch/mac_table", mac_table_text(desc)) &&
           root.file("proc/uptime", kUptime);
}

} // namespace gvsim
