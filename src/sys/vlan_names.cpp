// Bridge names and VLAN ranges as the operator types them.
#include "gvutil/sys.h"

#include <cstdlib>
#include <cstring>
#include <string_view>

namespace {

constexpr int kMaxVlan = 4094;
// The working copy of a range text holds 71 characters.
constexpr std::size_t kRangeText = 71;

bool all_digits(std::string_view text) noexcept {
    return !text.empty() && is_digit(text.data(), static_cast<int>(text.size())) == 1;
}

// stoi of a part of the working copy.
int value_of(std::string_view digits) noexcept {
    char copy[kRangeText + 1] = {};
    std::memcpy(copy, digits.data(), digits.size());
    return stoi(copy);
}

int accept(int *pair, int first, int last) noexcept {
    if (pair != nullptr) {
        pair[0] = first;
        pair[1] = last;
    }
    return 1;
}

} // namespace

int is_valid_vname(const char *name) noexcept {
    return name != nullptr && std::strncmp(name, "br", 2) == 0 && all_digits(name + 2) ? 1 : 0;
}

int is_valid_vrange(const char *text, int low, int high, int *pair) noexcept {
    if (text == nullptr || text[0] < '0' || text[0] > '9') {
        return 0;
    }
    const std::string_view range = std::string_view(text).substr(0, kRangeText);
    const std::size_t dash = range.find('-');
    if (dash == std::string_view::npos) {
        if (!all_digits(range)) {
            return 0;
        }
        const int value = value_of(range);
        return value >= low && value <= high ? accept(pair, value, value) : 0;
    }
    const std::string_view first_text = range.substr(0, dash);
    const std::string_view last_text = range.substr(dash + 1);
    if (last_text.empty()) {
        return -1;
    }
    if (!all_digits(first_text) || !all_digits(last_text)) {
        return 0;
    }
    const int first = value_of(first_text);
    const int last = value_of(last_text);
    // A range of one ("5-5") is refused while "5" alone is taken; callers
    // rely on the difference.
    if (first < low || last > high || first >= last) {
        return 0;
    }
    return accept(pair, first, last);
}

int gv_get_vid_from_br(const char *name) noexcept {
    if (name == nullptr) {
        return 0;
    }
    if (std::strncmp(name, "default", 7) == 0) {
        return 1;
    }
    if (std::strncmp(name, "br", 2) != 0) {
        return 0;
    }
    // Any base strtoul takes: br0x10 is VLAN 16, br010 VLAN 8.
    const unsigned long vid = std::strtoul(name + 2, nullptr, 0);
    return vid >= 1 && vid <= kMaxVlan ? static_cast<int>(vid) : 0;
}

int gv_get_max_vlan(void) noexcept {
    return kMaxVlan;
}
