// The element helpers of id-list text the shell calls on its own.
#include "gvutil/range.h"
#include "range/element.h"
#include "sys/items.h"
#include "sys/scan.h"

#include <cstring>
#include <string_view>

using gv::range::all_num;

const char *get_range(const char *text, char *out) noexcept {
    if (text == nullptr) {
        if (out != nullptr) {
            out[0] = '\0';
        }
        return text;
    }
    const gv::sys::Halves element = gv::sys::cut_at(text, ',');
    if (out != nullptr) {
        const gv::range::ElementText copy = gv::range::element_text(element.left);
        std::memcpy(out, copy.c_str(), copy.view().size() + 1);
    }
    return text + element.left.size() + (element.cut ? 1 : 0);
}

id_data_pos get_id_data(const char *element, char *out) noexcept {
    if (element == nullptr || out == nullptr) {
        return {out, element};
    }
    const gv::sys::Halves halves = gv::sys::cut_at(element, '-');
    std::memcpy(out, halves.left.data(), halves.left.size());
    out[halves.left.size()] = '\0';
    return {out + halves.left.size(), element + halves.left.size() + (halves.cut ? 1 : 0)};
}

int is_all_num(const char *text) noexcept {
    return text != nullptr && all_num(text) ? 1 : 0;
}

int is_all_num_list(const char *text) noexcept {
    if (text == nullptr) {
        return 0;
    }
    for (const char *c = text; *c != '\0'; ++c) {
        if (!gv::sys::is_decimal_digit(*c) && *c != ',' && *c != '-') {
            return 0;
        }
    }
    return 1;
}

int check_digit_range(const char *text, long low, long high) noexcept {
    if (is_all_num(text) == 0) {
        return 0;
    }
    // Read as the chassis' 32-bit atol reads it.
    const long value = gv::sys::read_int(text);
    return low <= value && value <= high ? 1 : 0;
}
