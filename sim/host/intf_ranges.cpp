// The command shell's interface-range services on the host chassis. Names are
// internal names: a short prefix, then "slot/port" or, for channel groups, a
// number. Which ports exist is read from the chassis of the current root.
#include "gvsim/gvsim.h"
#include "host/root_chassis.h"

#include "chassis_rules.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string_view>
#include <strings.h>

namespace {

constexpr int kChannelGroup = 102;
constexpr std::size_t kPrefixMax = sizeof(intf_range::prefix) - 1;
constexpr std::array kPortCodes = {
    gvsim::kIfFe,    gvsim::kIfGe,   gvsim::kIfXe,    gvsim::kIfCe,     gvsim::kIfEpon,
    gvsim::kIfXepon, gvsim::kIfGpon, gvsim::kIfXgpon, gvsim::kIfXgspon, gvsim::kIfNgpon};

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

// Prefixes compare without regard to letter case, as the shell types them.
bool same_letters(std::string_view a, std::string_view b) {
    return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

// An unsigned decimal number at the front of text, consumed.
std::optional<int> take_number(std::string_view &text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || text.empty() || !is_digit(text.front())) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return value;
}

bool take(std::string_view &text, char c) {
    if (text.empty() || text.front() != c) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

struct Range {
    std::string_view prefix;
    bool has_slot = false;
    int slot = 0; // 0 for names without a slot
    int first = 0;
    int last = 0;
};

// "<prefix>S/P", "<prefix>S/P-Q", "<prefix>S/P-S/Q", "<prefix>N" or "<prefix>N-M".
std::optional<Range> parse_range(std::string_view text) {
    Range range;
    std::size_t digit = 0;
    while (digit < text.size() && !is_digit(text[digit])) {
        ++digit;
    }
    range.prefix = text.substr(0, digit);
    if (range.prefix.empty() || range.prefix.size() > kPrefixMax) {
        return std::nullopt;
    }
    text.remove_prefix(digit);
    auto first = take_number(text);
    if (!first) {
        return std::nullopt;
    }
    if (take(text, '/')) {
        range.has_slot = true;
        range.slot = *first;
        first = take_number(text);
        if (!first) {
            return std::nullopt;
        }
    }
    range.first = range.last = *first;
    if (take(text, '-')) {
        auto last = take_number(text);
        if (last && range.has_slot && take(text, '/')) {
            const bool same_slot = *last == range.slot;
            last = same_slot ? take_number(text) : std::nullopt;
        }
        if (!last) {
            return std::nullopt;
        }
        range.last = *last;
    }
    if (!text.empty()) {
        return std::nullopt;
    }
    return range;
}

bool fill(const Range &range, char *prefix, int *slot, int *first, int *last) {
    if (prefix == nullptr || slot == nullptr || first == nullptr || last == nullptr) {
        return false;
    }
    std::memcpy(prefix, range.prefix.data(), range.prefix.size());
    prefix[range.prefix.size()] = '\0';
    *slot = range.slot;
    *first = range.first;
    *last = range.last;
    return true;
}

// The interface code of a short prefix in any letter case; 0 when unknown.
int code_of_prefix(std::string_view prefix) {
    if (same_letters(prefix, "CG")) {
        return kChannelGroup;
    }
    for (const int code : kPortCodes) {
        if (same_letters(prefix, gvsim::interface_prefix(code))) {
            return code;
        }
    }
    return 0;
}

const char *spelling(int code) {
    return code == kChannelGroup ? "CG" : gvsim::interface_prefix(code);
}

// A slotless box names its front-panel ports slot 1, port = pnum.
bool slotless_port_is(const gvsim::ChassisDesc &chassis, int port, int code) {
    const bool k7400a = gvsim::is_k7400a_board(chassis);
    bool found = false;
    gvsim::for_each_physical_port(chassis, [&](int pnum, int card_type, int card_port) {
        found = found ||
                (pnum == port && gvsim::card_port_interface(card_type, card_port, k7400a) == code);
    });
    return found;
}

bool port_exists(const gvsim::ChassisDesc &chassis, int code, int slot, int port) {
    if (chassis.slot_count == 0) {
        return slot == 1 && slotless_port_is(chassis, port, code);
    }
    if (slot < 1 || slot > chassis.slot_count) {
        return false;
    }
    const gvsim::SlotDesc &card = chassis.slots[static_cast<std::size_t>(slot - 1)];
    return port >= 1 && port <= card.ports &&
           gvsim::card_port_interface(card.card_type, port, gvsim::is_k7400a_board(chassis)) ==
               code;
}

} // namespace

int gv_imish_set_ifrange(const char *element, char *prefix, int *slot, int *first_port,
                         int *last_port) {
    if (element == nullptr) {
        return -1;
    }
    const auto range = parse_range(element);
    return range && fill(*range, prefix, slot, first_port, last_port) ? 0 : -1;
}

int intf_ranges_set(const char *list, int max, struct intf_range *ranges, int *count) {
    if (list == nullptr || ranges == nullptr || count == nullptr) {
        return 1;
    }
    std::string_view rest(list);
    int parsed = 0;
    while (true) {
        const std::size_t comma = rest.find(',');
        const auto range = parse_range(rest.substr(0, comma));
        if (!range || parsed >= max) {
            return 1;
        }
        intf_range &out = ranges[parsed++];
        fill(*range, out.prefix, &out.slot, &out.first_port, &out.last_port);
        if (comma == std::string_view::npos) {
            break;
        }
        rest.remove_prefix(comma + 1);
    }
    *count = parsed;
    return 0;
}

int gv_get_ifname(const char *name, char *resolved, int size) {
    const auto range = name != nullptr ? parse_range(name) : std::nullopt;
    if (!range || range->first != range->last || resolved == nullptr || size <= 0) {
        return -1;
    }
    const int code = code_of_prefix(range->prefix);
    if (code == 0 || (code == kChannelGroup) == range->has_slot) {
        return -1;
    }
    int written = 0;
    if (code == kChannelGroup) {
        written = std::snprintf(resolved, static_cast<std::size_t>(size), "CG%d", range->first);
    } else {
        // Slot 0 is the operator's name for the switch-fabric unit in real slot 3.
        const int slot = range->slot == 0 ? gvsim::kSfuSlot : range->slot;
        written = std::snprintf(resolved, static_cast<std::size_t>(size), "%s%d/%d", spelling(code),
                                slot, range->first);
    }
    return written > 0 && written < size ? 0 : -1;
}

int gv_is_correct_interface(const char *name) {
    const auto *chassis = gvsim::root_chassis();
    const auto range = name != nullptr ? parse_range(name) : std::nullopt;
    if (chassis == nullptr || !range || range->first != range->last) {
        return 0;
    }
    const int code = code_of_prefix(range->prefix);
    if (code == 0 || range->prefix != spelling(code)) {
        return 0;
    }
    if (code == kChannelGroup) {
        return !range->has_slot && range->first >= 1 && range->first <= chassis->channel_groups ? 1
                                                                                                : 0;
    }
    return range->has_slot && port_exists(*chassis, code, range->slot, range->first) ? 1 : 0;
}
