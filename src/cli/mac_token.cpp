// MAC addresses typed by the operator: "00:11:22:33:44:55" or with "-"
// between the pairs (the two may be mixed), several joined by ",".
#include "gvutil/cli.h"
#include "gvutil/platform.h"
#include "sys/items.h"
#include "sys/operator_message.h"
#include "sys/text_builder.h"

#include <cstring>
#include <string_view>

namespace {

constexpr std::size_t kMacTextLength = 17;

bool is_hex_digit(char c) noexcept {
    return gv::sys::is_decimal_digit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// Six pairs of hexadecimal digits with ":" or "-" after each of the first five.
bool is_mac_text(std::string_view item) noexcept {
    if (item.size() != kMacTextLength) {
        return false;
    }
    for (std::size_t i = 0; i < item.size(); ++i) {
        const bool separator_place = i % 3 == 2;
        const bool good =
            separator_place ? item[i] == ':' || item[i] == '-' : is_hex_digit(item[i]);
        if (!good) {
            return false;
        }
    }
    return true;
}

// The twelve digits in typed order, letters keeping their case.
void store_digits(std::string_view item, char *slot) noexcept {
    for (std::size_t i = 0; i < item.size(); ++i) {
        if (i % 3 != 2) {
            *slot++ = item[i];
        }
    }
}

} // namespace

int get_mac_token(const char *text, char *out, cli_ctx *ctx) noexcept {
    if (text == nullptr || out == nullptr) {
        return 0;
    }
    int count = 0;
    const bool whole = gv::sys::for_each_element(text, [&](std::string_view item) noexcept {
        if (!is_mac_text(item)) {
            gv::sys::say(ctx, "%%Invalid mac address: %s%s", gv::sys::ItemText(item).c_str(), "\n");
            return false;
        }
        store_digits(item, out + static_cast<std::size_t>(count) * GV_MAC_TOKEN_SIZE);
        ++count;
        return true;
    });
    return whole ? count : 0;
}
