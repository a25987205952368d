// Log types and syslog priorities by code and by name.
#include "gvutil/loglevel.h"

#include <array>
#include <cstring>

namespace {

struct LogType {
    int code;
    const char *name;
    const char *word; // what a typed name is recognised by
    int indexes;
};

// In the order texts are searched: "physical-entity" and "system" are found
// by their prefixes, "xgpon" as gpon, and a text holding both "sys" and
// "dhcp" is system. Callers rely on this order.
constexpr std::array<LogType, 9> kTypes = {{
    {1, "system", "sys", 8},
    {2, "physical-entity", "phy", 10},
    {4, "dhcp", "dhcp", 2},
    {3, "filter", "filter", 6},
    {5, "gpon", "gpon", 29},
    {6, "epon", "epon", 18},
    {7, "rmon", "rmon", 3},
    {8, "loop-detect", "loop-detect", 10},
    {9, "snmp", "snmp", 3},
}};

constexpr std::array<const char *, 8> kPriorities = {
    "emerg", "alert", "crit", "err", "warning", "notice", "info", "debug",
};

const LogType *type_named_in(const char *text) noexcept {
    for (const LogType &type : kTypes) {
        if (text != nullptr && std::strstr(text, type.word) != nullptr) {
            return &type;
        }
    }
    return nullptr;
}

} // namespace

const char *gv_get_loglevel_typestr(int type) noexcept {
    for (const LogType &known : kTypes) {
        if (known.code == type) {
            return known.name;
        }
    }
    return "unknown";
}

const char *gv_get_loglevel_priostr(int priority) noexcept {
    return priority >= 0 && priority < static_cast<int>(kPriorities.size())
               ? kPriorities[static_cast<std::size_t>(priority)]
               : "unknown";
}

int gv_get_loglevel_typeint(const char *text) noexcept {
    const LogType *type = type_named_in(text);
    return type != nullptr ? type->code : -1;
}

int gv_get_logindex_max(const char *text) noexcept {
    const LogType *type = type_named_in(text);
    return type != nullptr ? type->indexes : -1;
}
