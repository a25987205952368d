// Text forms of a port number: interface names, slot/port text, GEM indexes.
#include "gvutil/platform.h"
#include "gvutil/porttext.h"
#include "porttext/pnum_forms.h"
#include "sys/scan.h"

#include <cstdio>
#include <cstring>

namespace gv::porttext {

void map_type_b_trunk(int pnum, int &slot, int &port) noexcept {
    slot = 0;
    port = 0;
    const int fabric_port = get_pnum_from_type_b_trunk_pnum(pnum) & 0xFFFF;
    (void)get_logical_slot_port_from_sfu_port(fabric_port, &slot, &port);
}

void put_text(char *dest, const char *text) noexcept {
    std::memcpy(dest, text, std::strlen(text) + 1);
}

} // namespace gv::porttext

using gv::porttext::PnumCounts;
using gv::porttext::put_text;

namespace {

void put_slot_port(char *dest, int slot, int port) noexcept {
    char text[32];
    std::snprintf(text, sizeof text, "%d/%d", slot, port);
    put_text(dest, text);
}

void put_channel_group(char *dest, int group) noexcept {
    char text[32];
    std::snprintf(text, sizeof text, "CG%d", group);
    put_text(dest, text);
}

} // namespace

void convert_p_format_to_s_format(int pnum, char *dest) noexcept {
    if (dest == nullptr) {
        return;
    }
    const PnumCounts counts = PnumCounts::load();
    if (counts.is_physical(pnum)) {
        get_ifname(get_slot_number_from_pnum(pnum), get_slotport_number_from_pnum(pnum), dest);
        return;
    }
    if (counts.is_beyond(pnum)) {
        get_ifname(0, 0, dest);
        return;
    }
    const int n = counts.logical_number(pnum);
    // Tested against the pnum itself, not the group number, and with "<" where
    // the legacy form has "<=": both tests are relied on as they stand.
    if (n <= counts.groups && pnum < counts.capacity) {
        put_channel_group(dest, n);
        return;
    }
    if (gv::model::wrap_sub(n, counts.groups) < 1) {
        return; // interlink and channel-group pnums name nothing here
    }
    int slot = 0;
    int port = 0;
    gv::porttext::map_type_b_trunk(pnum, slot, port);
    get_ifname(slot, port, dest);
}

char *convert_p_format_to_s_legacy_format(int pnum, char *dest) noexcept {
    if (dest == nullptr) {
        return dest;
    }
    const PnumCounts counts = PnumCounts::load();
    if (counts.is_physical(pnum)) {
        put_slot_port(dest, get_user_slot_by_real_slot(get_slot_number_from_pnum(pnum)),
                      get_slotport_number_from_pnum(pnum));
        return dest;
    }
    if (counts.is_beyond(pnum)) {
        put_slot_port(dest, get_user_slot_by_real_slot(0), 0);
        return dest;
    }
    const int n = counts.logical_number(pnum);
    if (n <= counts.groups && pnum <= counts.capacity) {
        put_channel_group(dest, n);
        return dest;
    }
    if (gv::model::wrap_sub(n, counts.groups) < 1) {
        return dest;
    }
    int slot = 0;
    int port = 0;
    gv::porttext::map_type_b_trunk(pnum, slot, port);
    // The trunk's port is shown in real slot numbers, unlike a physical port.
    put_slot_port(dest, slot, port);
    return dest;
}

int convert_s_format_to_p_format(int slot, int port) noexcept {
    if (slot == 0) {
        return port; // a chassis without slots numbers its ports directly
    }
    const int slots = get_slot_number();
    if (slot > slots) {
        return slot == gv::model::logical_slot()
                   ? gv::model::wrap_add(port, PnumCounts::load().physical)
                   : 0;
    }
    return get_port_number_from_slotport(slot, port);
}

char *sputil_mk_string_from_int_port(int pnum, char *dest, int size) noexcept {
    if (dest == nullptr) {
        return dest;
    }
    if (size > 0) {
        std::memset(dest, 0, static_cast<std::size_t>(size));
    }
    if (get_slot_number() != 0) {
        convert_p_format_to_s_format(pnum, dest);
    } else if (size > 0) {
        std::snprintf(dest, static_cast<std::size_t>(size), "%d", pnum);
    }
    return dest;
}

const char *sputil_mk_string_from_str_port(const char *text, char *dest) noexcept {
    if (get_slot_number() == 0 || dest == nullptr) {
        return text;
    }
    constexpr std::size_t kDestSize = 64;
    std::memset(dest, 0, kDestSize);
    convert_p_format_to_s_format(text != nullptr ? gv::sys::read_int(text) : 0, dest);
    return dest;
}

char *sputil_mk_string_from_int_gemport(int index, char *dest, int size, int per) noexcept {
    if (dest == nullptr || size <= 0) {
        return dest;
    }
    std::memset(dest, 0, static_cast<std::size_t>(size));
    if (per <= 0) {
        return dest; // no mapper holds a GEM port: nothing to name
    }
    // The inverse of index = port + per * (mapper - 1).
    const int rest = index % per;
    const int mapper = index / per + (rest != 0 ? 1 : 0);
    const int port = rest != 0 ? rest : per;
    std::snprintf(dest, static_cast<std::size_t>(size), "%d/%d", mapper, port);
    return dest;
}

int gv_get_slot_number_from_log_pnum(int pnum) noexcept {
    const PnumCounts counts = PnumCounts::load();
    if (counts.is_physical(pnum)) {
        return get_slot_number_from_pnum(pnum);
    }
    return counts.is_beyond(pnum) ? 0 : gv::model::logical_slot();
}

int gv_get_slotport_number_from_log_pnum(int pnum) noexcept {
    const PnumCounts counts = PnumCounts::load();
    if (counts.is_physical(pnum)) {
        return get_slotport_number_from_pnum(pnum);
    }
    return counts.is_beyond(pnum) ? 0 : counts.logical_number(pnum);
}
