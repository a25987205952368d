// Port, bridge and VLAN sets printed as range text ("1/1-4,2/3", "1-3,10").
#include "gvutil/model.h"
#include "gvutil/platform.h"
#include "gvutil/porttext.h"
#include "gvutil/settext.h"
#include "model/model_record.h"
#include "sys/bit_runs.h"
#include "sys/items.h"
#include "sys/member_text.h"
#include "sys/runs.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

using gv::sys::bridge_name;
using gv::sys::Decimal;
using PortText = gv::sys::ConvertedText;
using gv::sys::Run;
using gv::sys::RunText;

// Without a bitmap there is nothing to walk: an empty text, no members.
bool nothing_to_walk(char *out, const void *set) noexcept {
    if (out != nullptr && set == nullptr) {
        out[0] = '\0';
    }
    return out == nullptr || set == nullptr;
}

int port_limit(int max) noexcept {
    return max < GV_PORTSET_MAX_PORT ? max : GV_PORTSET_MAX_PORT;
}

int id_limit(int max) noexcept {
    return max < GV_ID_SET_MAX_ID ? max : GV_ID_SET_MAX_ID;
}

// Members beyond the capacity are never read, whatever max says: the limits
// above keep every walk of the bitmap within it.
bool id_member(const uint32_t *set, int id) noexcept {
    return chk(set, id - 1) != 0;
}

char *slot_port_text(int pnum, char *dest, int) noexcept {
    // A pnum the legacy form does not name leaves the text empty.
    dest[0] = '\0';
    return convert_p_format_to_s_legacy_format(pnum, dest);
}

char *short_port_text(int pnum, char *dest, int size) noexcept {
    std::snprintf(dest, static_cast<std::size_t>(size), "%s", _cnvt_port_num_to_str(pnum));
    return dest;
}

// The common formatter: members 1..limit of the bitmap, each run written
// with one text per member.
template <typename MemberText>
int format_runs(char *out, const uint32_t *bits, int limit, MemberText member_text) noexcept {
    RunText text(out);
    return gv::sys::for_each_bit_run(bits, 1, limit,
                                     [&](Run run) noexcept { text.write(run, member_text); });
}

// Members 1..limit of the bitmap written as plain numbers.
int format_numbers(char *out, const uint32_t *bits, int limit) noexcept {
    RunText text(out);
    return gv::sys::for_each_bit_run(bits, 1, limit,
                                     [&](Run run) noexcept { text.write_numbers(run); });
}

// Beyond the physical slot ports: the channel-group ports.
bool is_second_port_group(int pnum) noexcept {
    using namespace gv::model;
    return port_count(kPhysicalPorts) < pnum && pnum <= port_count(kTotalPorts);
}

} // namespace

int portset2str(char *out, int max, const portset_t *set) noexcept {
    if (nothing_to_walk(out, set)) {
        return 0;
    }
    return format_runs(out, set->bits, port_limit(max), [](int pnum) noexcept {
        return PortText(pnum, sputil_mk_string_from_int_port);
    });
}

int portset2str2(char *out, int max, const portset_t *set) noexcept {
    if (nothing_to_walk(out, set)) {
        return 0;
    }
    return format_runs(out, set->bits, port_limit(max),
                       [](int pnum) noexcept { return PortText(pnum, short_port_text); });
}

int portset2_if_str(char *out, int max, const portset_t *set) noexcept {
    if (nothing_to_walk(out, set)) {
        return 0;
    }
    RunText text(out);
    // A run starts with the interface name and ends with the bare port number.
    return gv::sys::for_each_bit_run(set->bits, 1, port_limit(max), [&](Run run) noexcept {
        int slot = 0;
        int port = 0;
        char name[64] = {};
        get_logical_slot_port_from_virtual_port(run.first, &slot, &port);
        get_ifname(slot, port, name);
        text.open(name);
        if (!run.single()) {
            get_logical_slot_port_from_virtual_port(run.last, &slot, &port);
            text.close(Decimal(port));
        }
    });
}

int portset2str_wo_iftype(char *out, int max, const portset_t *set) noexcept {
    if (nothing_to_walk(out, set)) {
        return 0;
    }
    using namespace gv::model;
    // Only the slot ports and as many more as there are channel groups, and
    // never past the bitmap, whatever counts the model record holds.
    const long long walked =
        static_cast<long long>(port_count(kPhysicalPorts)) + port_count(kChannelGroups);
    const int limit = static_cast<int>(std::max(0LL, std::min<long long>(walked, port_limit(max))));
    // A port also counts when the bit `walked` places above its own is set.
    constexpr long long kMaxPort = static_cast<long long>(GV_PORTSET_WORDS) * 32;
    const auto is_member = [set, walked](int pnum) noexcept {
        const long long above = pnum + walked;
        return ps_isset(set, pnum) != 0 ||
               (above >= 1 && above <= kMaxPort && ps_isset(set, static_cast<int>(above)) != 0);
    };
    // A run never spans the slot ports and the ports beyond them.
    const auto splits_before = [](int pnum) noexcept {
        return is_second_port_group(pnum) && !is_second_port_group(pnum - 1);
    };
    RunText text(out);
    return gv::sys::for_each_run(1, limit, is_member, splits_before, [&](Run run) noexcept {
        text.write(run, [](int pnum) noexcept { return PortText(pnum, slot_port_text); });
    });
}

int brset2str(char *out, int max, const uint32_t *set) noexcept {
    if (nothing_to_walk(out, set)) {
        return 0;
    }
    const int limit = id_limit(max);
    const int found = format_numbers(out, set, limit);
    // The walk is closed against the id capacity rather than max: a lone last
    // member at a max below it is written a second time ("10,10"). Callers
    // parse this text back and depend on it.
    if (limit >= 1 && limit < GV_ID_SET_MAX_ID && id_member(set, limit) &&
        (limit == 1 || !id_member(set, limit - 1))) {
        char *end = out + std::strlen(out);
        std::snprintf(end, 16, ",%d", limit);
    }
    return found;
}

int vlanset2str(char *out, int max, const uint32_t *set) noexcept {
    if (nothing_to_walk(out, set)) {
        return 0;
    }
    return format_numbers(out, set, id_limit(max));
}

int vlanset2str2(char *out, int max, const uint32_t *set) noexcept {
    if (nothing_to_walk(out, set)) {
        return 0;
    }
    // VLAN 1 is the default bridge: written by name, and never part of a run.
    RunText text(out);
    return gv::sys::for_each_bit_run(set, 1, id_limit(max), [&](Run run) noexcept {
        if (run.first == 1 && !run.single()) {
            text.write(Run{1, 1}, bridge_name);
            run.first = 2;
        }
        text.write(run, bridge_name);
    });
}

int ports_array2str(const uint8_t *array, int max, char *out) noexcept {
    if (nothing_to_walk(out, array)) {
        return 0;
    }
    RunText text(out);
    gv::sys::for_each_run(
        1, max, [array](int index) noexcept { return array[index] != 0; }, gv::sys::kNoSplit,
        [&](Run run) noexcept { text.write_numbers(run); });
    return 0;
}
