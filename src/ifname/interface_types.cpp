// Interface type codes, their short prefixes and full words, and the
// predicates that classify a name by its prefix.
#include "ifname/name_text.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <initializer_list>

using gv::ifname::begins_with_letters;

namespace {

struct TypeName {
    int type;
    std::string_view short_prefix; // internal names
    std::string_view full_word;    // operator input and running configuration
};

// 101 comes before 104, so "vlan" reads back as a bridge.
constexpr TypeName kTypes[] = {
    {GV_IF_FE, "FE", "fastethernet"},
    {GV_IF_GE, "GE", "gigabitethernet"},
    {GV_IF_XE, "XE", "tengigabitethernet"},
    {GV_IF_CE, "CE", "hundredgigabitethernet"},
    {GV_IF_EPON, "EPON", "epon"},
    {GV_IF_XEPON, "XEPON", "xepon"},
    {GV_IF_GPON, "GPON", "gpon"},
    {GV_IF_XGPON, "XGPON", "xgpon"},
    {GV_IF_XGSPON, "XGSPON", "xgspon"},
    {GV_IF_NGPON, "NGPON", "ngpon"},
    {GV_IF_MGMT, "mgmt", "management"},
    {GV_IF_BRIDGE, "br", "vlan"},
    {GV_IF_CHANNEL_GROUP, "CG", "channelgroup"},
    {GV_IF_LOOPBACK, "lo", "loopback"},
    {GV_IF_DEFAULT_BRIDGE, "default", "vlan"},
    {GV_IF_TUNNEL, "", "tunnel"}, // internal tunnel names are "Tunnel%d"
};

const TypeName *find_type(int type) noexcept {
    const auto *found = std::find_if(std::begin(kTypes), std::end(kTypes),
                                     [type](const TypeName &t) { return t.type == type; });
    return found != std::end(kTypes) ? found : nullptr;
}

// 1 when the name's prefix begins, in any letter case, with one of heads.
int prefix_begins_with(const char *name, std::initializer_list<std::string_view> heads) noexcept {
    char prefix[GV_IF_PREFIX_SIZE];
    if (get_interface_type(name, prefix, sizeof prefix) != 0) {
        return 0;
    }
    for (const std::string_view head : heads) {
        if (begins_with_letters(prefix, head)) {
            return 1;
        }
    }
    return 0;
}

} // namespace

namespace gv::ifname {

std::string_view short_prefix(int type) noexcept {
    const TypeName *found = find_type(type);
    return found != nullptr ? found->short_prefix : std::string_view{};
}

void put_prefix(char *out, std::string_view text) noexcept {
    text = text.substr(0, GV_IF_PREFIX_SIZE - 1);
    std::memcpy(out, text.data(), text.size());
    out[text.size()] = '\0';
}

} // namespace gv::ifname

int get_interface_type_from_prefix(const char *prefix) noexcept {
    if (prefix == nullptr) {
        return 0;
    }
    const std::string_view text(prefix);
    for (const TypeName &t : kTypes) {
        if (!t.short_prefix.empty() && text == t.short_prefix) {
            return t.type;
        }
    }
    return text.starts_with("tunnel") ? GV_IF_TUNNEL : 0;
}

int get_interface_type_from_full_prefix(const char *word) noexcept {
    if (word == nullptr) {
        return 0;
    }
    for (const TypeName &t : kTypes) {
        if (word == t.full_word) {
            return t.type;
        }
    }
    return 0;
}

int get_interface_prefix_from_type(int type, char *prefix) noexcept {
    const std::string_view text = gv::ifname::short_prefix(type);
    if (prefix != nullptr && !text.empty()) {
        gv::ifname::put_prefix(prefix, text);
    }
    return 0;
}

int get_interface_prefix_for_run_config_from_type(int type, char *word, int size) noexcept {
    if (word == nullptr) {
        return -1;
    }
    // Only the first word of the buffer is cleared; callers rely on no more.
    std::memset(word, 0, static_cast<std::size_t>(std::clamp(size, 0, 4)));
    const TypeName *found = find_type(type);
    if (found != nullptr && type != GV_IF_TUNNEL && size > 0) {
        std::snprintf(word, static_cast<std::size_t>(size), "%.*s",
                      static_cast<int>(found->full_word.size()), found->full_word.data());
    }
    return 0;
}

int create_interface_name(int slot, int port, int type, char *name) noexcept {
    if (name == nullptr) {
        return 0;
    }
    const std::string_view prefix = gv::ifname::short_prefix(type);
    const int length = static_cast<int>(prefix.size());
    if (type == GV_IF_MGMT || type == GV_IF_CHANNEL_GROUP) {
        std::snprintf(name, GV_IF_PREFIX_SIZE, "%.*s%d", length, prefix.data(), port);
    } else {
        std::snprintf(name, GV_IF_PREFIX_SIZE, "%.*s%d/%d", length, prefix.data(), slot, port);
    }
    return 0;
}

// The speed classes are the system's own: EPON counts as gigabit, every 10G
// PON family as ten-gigabit, and GPON belongs to none.
int is_fast_ethernet_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"FE"});
}
int is_gigabit_ethernet_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"GE", "EPON"});
}
int is_ten_gigabit_ethernet_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"XEPON", "XGPON", "XGSPON", "NGPON", "XE"});
}
int is_hundred_gigabit_ethernet_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"CE"});
}
int is_epon_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"EPON"});
}
int is_xepon_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"XEPON"});
}
int is_gpon_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"GPON"});
}
int is_xgpon_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"XGPON"});
}
int is_xgspon_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"XGSPON"});
}
int is_ngpon_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"NGPON"});
}
int is_pon_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"EPON", "GPON", "XEPON", "XGPON", "NGPON", "XGSPON"});
}
int is_ethernet_interface(const char *name) noexcept {
    return prefix_begins_with(
        name, {"EPON", "GPON", "XEPON", "XGPON", "FE", "GE", "XE", "XGSPON", "NGPON", "CE"});
}
int is_vlan_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"default", "br"});
}
int is_aggregator_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"CG"});
}
int is_cg_interface(const char *name) noexcept {
    return is_aggregator_interface(name);
}
int is_ethXX_interface(const char *name) noexcept {
    return prefix_begins_with(name, {"eth"});
}
int is_port_interface(const char *name) noexcept {
    return is_ethernet_interface(name) != 0 || is_aggregator_interface(name) != 0 ? 1 : 0;
}
int is_port_n_vlan_interface(const char *name) noexcept {
    return is_port_interface(name) != 0 || is_vlan_interface(name) != 0 ? 1 : 0;
}
