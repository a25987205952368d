// The checks of one typed CLI argument: integers, IPv4 addresses and
// prefixes, MAC addresses.
#include "gvutil/platform.h"
#include "gvutil/settext.h"
#include "sys/items.h"
#include "sys/operator_message.h"
#include "sys/scan.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <span>
#include <string_view>

namespace {

using Checker = int (*)(const char *, const void *, const void *, void *) noexcept;
using BoundText = int (*)(const void *, char *) noexcept;

struct ArgKind {
    Checker check;
    const void *default_min; // no kind has a default bound
    const void *default_max;
    const char *message;
    BoundText bound_text; // null: the message has no range part
};

const std::array<ArgKind, 5> kArgKinds = {{
    {check_int_arg, nullptr, nullptr, "Invalid value", int2str},
    {check_uint_arg, nullptr, nullptr, "Invalid value", uint2str},
    {check_ip_addr_arg, nullptr, nullptr, "Invalid IP address", nullptr},
    {check_ip_prefix_arg, nullptr, nullptr, "Invalid IP prefix", nullptr},
    {check_mac_addr_arg, nullptr, nullptr, "Invalid MAC address", nullptr},
}};

constexpr int kMacBytes = 6;
static_assert(sizeof(gvh_ip_prefix) == 8, "two host-order words, as the shell reads them");

uint32_t load_word(const void *p) noexcept {
    uint32_t word = 0;
    std::memcpy(&word, p, sizeof word);
    return word;
}

void store_word(void *p, uint32_t word) noexcept {
    if (p != nullptr) {
        std::memcpy(p, &word, sizeof word);
    }
}

// The value as atoi reads it, compared with the bounds as unsigned numbers.
int check_bounded(const char *text, const void *min, const void *max, void *out) noexcept {
    if (min == nullptr || max == nullptr) {
        return -1;
    }
    const auto value = static_cast<uint32_t>(gv::sys::read_int(text));
    if (value < load_word(min) || value > load_word(max)) {
        return -1;
    }
    store_word(out, value);
    return 0;
}

// The four octets of "%d.%d.%d.%d" (the first four numbers read), each at
// most 255 compared unsigned, so a negative one is refused as too large.
bool octets_fit(std::span<const int> octets, uint32_t &address) noexcept {
    address = 0;
    for (int octet : octets.first(4)) {
        if (static_cast<uint32_t>(octet) > 255u) {
            return false;
        }
        address = address << 8 | static_cast<uint32_t>(octet);
    }
    return true;
}

bool is_hex_digit(char c) noexcept {
    return gv::sys::is_decimal_digit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// Addresses no port may take: all zeros, the IPv4 multicast block, broadcast.
bool is_refused_mac(const uint8_t *mac) noexcept {
    static constexpr uint8_t kZero[kMacBytes] = {};
    static constexpr uint8_t kBroadcast[kMacBytes] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
    return std::memcmp(mac, kZero, kMacBytes) == 0 ||
           std::memcmp(mac, kBroadcast, kMacBytes) == 0 ||
           (mac[0] == 0x01 && mac[1] == 0x00 && mac[2] == 0x5E);
}

void tell_operator(const cli_ctx *cli, const ArgKind &row, const char *message, const void *min,
                   const void *max) noexcept {
    gv::sys::say(cli, "%% %s", message != nullptr ? message : row.message);
    if (row.bound_text != nullptr && min != nullptr && max != nullptr) {
        char low[256];
        char high[256];
        row.bound_text(min, low);
        row.bound_text(max, high);
        gv::sys::say(cli, ", valid range is <%s-%s>", low, high);
    }
    gv::sys::say(cli, "%s", "\n");
}

} // namespace

int GVH_CHECK_ARG(cli_ctx *cli, int kind, const char *text, const void *min, const void *max,
                  void *out, const char *message) noexcept {
    if (kind < 0 || static_cast<std::size_t>(kind) >= kArgKinds.size()) {
        return -1;
    }
    const ArgKind &row = kArgKinds[static_cast<std::size_t>(kind)];
    min = min != nullptr ? min : row.default_min;
    max = max != nullptr ? max : row.default_max;
    // The address is looked at after the check, so keep it even for a NULL out.
    uint8_t mac[kMacBytes] = {};
    void *value = kind == GVH_ARG_MAC_ADDR && out == nullptr ? mac : out;
    int result = row.check(text, min, max, value);
    if (result == 0 && kind == GVH_ARG_MAC_ADDR && is_refused_mac(static_cast<uint8_t *>(value))) {
        result = -1;
    }
    if (result != 0) {
        tell_operator(cli, row, message, min, max);
    }
    return result;
}

int check_int_arg(const char *text, const void *min, const void *max, void *out) noexcept {
    if (text == nullptr) {
        return -1;
    }
    std::string_view digits(text);
    if (!digits.empty() && digits.front() == '-') {
        digits.remove_prefix(1);
    }
    for (char c : digits) {
        if (!gv::sys::is_decimal_digit(c)) {
            return -1;
        }
    }
    // Compared unsigned: a negative value passes only an upper bound that
    // reads as a large unsigned number. Kept for the callers that pass one.
    return check_bounded(text, min, max, out);
}

int check_uint_arg(const char *text, const void *min, const void *max, void *out) noexcept {
    if (text == nullptr) {
        return -1;
    }
    for (const char *c = text; *c != '\0'; ++c) {
        if (!gv::sys::is_decimal_digit(*c)) {
            return -1;
        }
    }
    return check_bounded(text, min, max, out);
}

int check_ip_addr_arg(const char *text, const void *, const void *, void *out) noexcept {
    std::array<int, 4> fields{};
    uint32_t address = 0;
    // Text after the fourth octet is not looked at.
    if (text == nullptr || gv::sys::scan_ints(text, "%d.%d.%d.%d", fields) < 4 ||
        !octets_fit(fields, address)) {
        return -1;
    }
    store_word(out, address);
    return 0;
}

int check_ip_prefix_arg(const char *text, const void *, const void *, void *out) noexcept {
    std::array<int, 5> fields{};
    const int read = text != nullptr ? gv::sys::scan_ints(text, "%d.%d.%d.%d/%d", fields) : 0;
    uint32_t address = 0;
    if (read < 4 || !octets_fit(fields, address)) {
        return -1;
    }
    const int length = read == 5 ? fields[4] : 32; // an address alone is a host prefix
    if (length < 1 || length > 32) {
        return -1;
    }
    const uint32_t mask = 0xFFFFFFFFu << (32 - length);
    // The masked prefix is handed back even when host bits make it invalid.
    if (out != nullptr) {
        const gvh_ip_prefix prefix = {address & mask, mask};
        std::memcpy(out, &prefix, sizeof prefix);
    }
    return (address & ~mask) != 0 ? -1 : 0;
}

int check_mac_addr_arg(const char *text, const void *, const void *, void *out) noexcept {
    if (text == nullptr) {
        return -1;
    }
    const std::size_t length = std::strlen(text);
    // Every byte is written with exactly two hex digits.
    for (std::size_t i = 0; i < length; i += 3) {
        if (!is_hex_digit(text[i]) || !is_hex_digit(text[i + 1])) {
            return -1;
        }
    }
    std::array<int, kMacBytes> fields{};
    if (gv::sys::scan_ints(text, "%x:%x:%x:%x:%x:%x", fields) != kMacBytes) {
        return -1;
    }
    if (out != nullptr) {
        auto *mac = static_cast<uint8_t *>(out);
        for (std::size_t i = 0; i < fields.size(); ++i) {
            mac[i] = static_cast<uint8_t>(fields[i]); // the low byte of each field
        }
    }
    return 0;
}

int int2str(const void *value, char *out) noexcept {
    return std::sprintf(out, "%d", static_cast<int32_t>(load_word(value)));
}

// Prints with "%d" too: values above 2147483647 show as negative numbers, as
// the shell has always shown them.
int uint2str(const void *value, char *out) noexcept {
    return std::sprintf(out, "%d", static_cast<int32_t>(load_word(value)));
}
