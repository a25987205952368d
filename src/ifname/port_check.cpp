// Operator port lists checked port by port against the chassis through the
// shell's interface-range services.
#include "gvutil/ifname.h"
#include "gvutil/platform.h"
#include "sys/text_builder.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace {

constexpr std::size_t kMaxElements = 1000;
constexpr std::size_t kElementSize = 256;
constexpr std::size_t kCellSize = 12; // one port's name
constexpr std::size_t kResolvedSize = 32;
constexpr int kMaxRanges = 64; // a 99-character list holds at most 50 elements
constexpr std::size_t kSfuListSize = 2000;
constexpr int kSfuRealSlot = 3;

enum ListCode : int {
    kGood = 0,
    kNoList = -1,
    kBadElement = -2,
    kNoSuchPort = -3,
    kTooMany = -4,
    kBackwards = -5,
};

// One port's name in its 12-byte cell; a name that does not fit names no port.
bool port_exists(const char *prefix, int slot, int port) noexcept {
    std::array<char, kCellSize> cell{};
    const int length = slot != 0
                           ? std::snprintf(cell.data(), cell.size(), "%s%d/%d", prefix, slot, port)
                           : std::snprintf(cell.data(), cell.size(), "%s%d", prefix, port);
    if (length < 0 || static_cast<std::size_t>(length) >= cell.size()) {
        return false;
    }
    std::array<char, kResolvedSize> resolved{};
    return gv_get_ifname(cell.data(), resolved.data(), static_cast<int>(resolved.size())) == 0 &&
           gv_is_correct_interface(resolved.data()) == 1;
}

ListCode check_element(std::string_view element) noexcept {
    if (element.size() >= kElementSize) {
        return kBadElement;
    }
    std::array<char, kElementSize> text{};
    std::copy(element.begin(), element.end(), text.begin());
    std::array<char, sizeof(intf_range::prefix)> prefix{};
    int slot = 0;
    int first = 0;
    int last = 0;
    if (gv_imish_set_ifrange(text.data(), prefix.data(), &slot, &first, &last) != 0) {
        return kBadElement;
    }
    if (first > last) {
        return kBackwards;
    }
    for (long long port = first; port <= last; ++port) {
        if (!port_exists(prefix.data(), slot, static_cast<int>(port))) {
            return kNoSuchPort;
        }
    }
    return kGood;
}

ListCode check_list(const char *list) noexcept {
    if (list == nullptr) {
        return kNoList;
    }
    if (is_port_interface(list) == 0) {
        return kNoSuchPort;
    }
    if (is_cg_interface(list) != 0 && std::strchr(list, '/') != nullptr) {
        return kBadElement;
    }
    if (gv::sys::count_elements(list) > kMaxElements) {
        return kTooMany;
    }
    ListCode code = kGood;
    gv::sys::for_each_element(list, [&code](std::string_view element) {
        code = check_element(element);
        return code == kGood;
    });
    return code;
}

} // namespace

int check_interface_list(const char *list, int *code) noexcept {
    const ListCode result = check_list(list);
    if (code != nullptr) {
        *code = result;
    }
    return result == kGood ? 1 : 0;
}

int get_port_str_by_interface_name(const char *word, const char *list, int max,
                                   char *out) noexcept {
    if (word == nullptr || list == nullptr || out == nullptr || max < 0 ||
        std::strlen(list) > static_cast<std::size_t>(max)) {
        return -1;
    }
    char internal[256] = {};
    if (convert_interface_name(word, list, internal) != 0) {
        return -2;
    }
    int code = 0;
    if (check_interface_list(internal, &code) == 0) {
        return code;
    }
    std::snprintf(out, static_cast<std::size_t>(max) + 1, "%s", list);
    return 0;
}

// Whether the operator named the switch-fabric unit by its real slot number
// in a ten-gigabit list.
int is_sfu_real_slot(const char *word, const char *list, int max) noexcept {
    if (word == nullptr || list == nullptr ||
        get_interface_type_from_full_prefix(word) != GV_IF_XE) {
        return 0;
    }
    char names[kSfuListSize] = {};
    if (convert_user_interface_name(word, list, names) != 0) {
        return 0;
    }
    std::array<intf_range, kMaxRanges> ranges{};
    int count = 0;
    const int limit = std::clamp(max, 0, kMaxRanges);
    if (intf_ranges_set(names, limit, ranges.data(), &count) == 1) {
        return 0;
    }
    count = std::clamp(count, 0, limit);
    return std::any_of(ranges.begin(), ranges.begin() + count,
                       [](const intf_range &r) { return r.slot == kSfuRealSlot; })
               ? 1
               : 0;
}
