// Lists of internal names with their slots translated between the user's
// numbering and the real one, and lists reduced to their slot/port ranges.
#include "gvutil/model.h"
#include "ifname/name_text.h"
#include "sys/scan.h"
#include "sys/text_builder.h"

#include <algorithm>
#include <array>
#include <cstring>

using gv::sys::TextBuilder;

namespace {

constexpr std::size_t kTranslatedSize = 128;

// The result of the last convert_user_ifname_from_real_ifname without a buffer.
std::array<char, kTranslatedSize> g_user_names{};

using SlotMap = int (*)(int) noexcept;

// Only the slot before the first "/" is translated: the second slot of a
// range written with two (GE0/1-0/4) is copied as it stands, by design.
bool append_translated(std::string_view element, SlotMap map, TextBuilder &out) {
    const std::string_view prefix = gv::ifname::prefix_of(element);
    const std::string_view rest = element.substr(prefix.size());
    const std::size_t slash = rest.find('/');
    int slot = 0;
    if (out.size() > 0) {
        out.append(",");
    }
    if (slash == std::string_view::npos || gv::sys::scan_ints(rest, "%d", {&slot, 1}) != 1) {
        return out.append(element);
    }
    out.append(prefix);
    out.appendf("%d", map(slot));
    return out.append(rest.substr(slash));
}

void translate_list(std::string_view names, SlotMap map, TextBuilder &out) {
    gv::sys::for_each_element(
        names, [&](std::string_view element) { return append_translated(element, map, out); });
}

// Letters b-y and B-Y go; the letters a and z stay, as callers expect.
bool is_dropped_letter(char c) noexcept {
    return (c >= 'b' && c <= 'y') || (c >= 'B' && c <= 'Y');
}

// One element's kept characters, a range within one slot shortened, after a
// comma when the call has written a range before; false when nothing is kept.
// No comma is written to be taken back, so the text never reaches past the
// length of the list itself (the shortening rewrites what it wrote).
bool append_slotport_range(std::string_view element, bool after_another, TextBuilder &out) {
    if (std::all_of(element.begin(), element.end(), is_dropped_letter)) {
        return false;
    }
    if (after_another) {
        out.append(",");
    }
    const std::size_t start = out.size();
    for (const char c : element) {
        if (!is_dropped_letter(c)) {
            out.append({&c, 1});
        }
    }
    const std::string_view numbers = out.view().substr(start);
    std::array<int, 4> v{};
    if (numbers.find('-') != std::string_view::npos &&
        gv::sys::scan_ints(numbers, "%d/%d-%d/%d,", v) == 4 && v[0] == v[2]) {
        out.cut(start);
        out.appendf("%d/%d-%d", v[0], v[1], v[3]);
    }
    return true;
}

} // namespace

char *convert_real_ifname_from_user_ifname(const char *names, char *out) noexcept {
    if (out == nullptr) {
        return nullptr;
    }
    TextBuilder translated(out, kTranslatedSize);
    translate_list(names != nullptr ? names : "", get_real_slot_by_user_slot, translated);
    return out;
}

char *convert_user_ifname_from_real_ifname(char *names, char *out) noexcept {
    if (names == nullptr || *names == '\0') {
        if (out == nullptr) {
            return names;
        }
        out[0] = '\0';
        return out;
    }
    TextBuilder translated(g_user_names.data(), g_user_names.size());
    // The caller's list is cut into its elements in place.
    char *cursor = names;
    for (char *element = gv::sys::next_element(cursor); element != nullptr;
         element = gv::sys::next_element(cursor)) {
        append_translated(element, get_user_slot_by_real_slot, translated);
    }
    if (out == nullptr) {
        return g_user_names.data();
    }
    std::memcpy(out, g_user_names.data(), translated.size() + 1);
    return out;
}

char *convert_multi_slotport_range_from_multi_ifname(const char *names, char *out) noexcept {
    if (names == nullptr || out == nullptr) {
        return nullptr;
    }
    TextBuilder appended = TextBuilder::after(out, TextBuilder::kUnbounded);
    bool any = false;
    gv::sys::for_each_element(names, [&](std::string_view element) {
        any = append_slotport_range(element, any, appended) || any;
        return true;
    });
    return out;
}
