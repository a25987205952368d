// Id, port and bridge lists typed by the operator ("1-5,8", "default-br4")
// read into range lists.
#include "gvutil/range.h"
#include "range/element.h"
#include "range/nodes.h"
#include "sys/items.h"
#include "sys/scan.h"
#include "sys/text_builder.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace {

enum class ListKind { ids, bridges, ports };

constexpr uint16_t kInvalidId = GV_INVALID_ID;

// A list with an empty element (",1", "1,", "1,,2") is no list at all.
bool elements_all_present(std::string_view list) noexcept {
    return !list.starts_with(',') && !list.ends_with(',') &&
           list.find(",,") == std::string_view::npos;
}

// One end of an element. A bridge may be named "default" or "br<n>".
// What is not all digits reads as the invalid id; a number is cut to 16 bits,
// so 65536 reads as 0 and 65535 never passes (callers rely on both).
uint16_t read_id(ListKind kind, std::string_view part) noexcept {
    if (kind == ListKind::bridges) {
        if (part.starts_with("default")) {
            return 1;
        }
        if (part.starts_with("br")) {
            part.remove_prefix(2);
        }
    }
    if (!gv::range::all_num(part)) {
        return kInvalidId;
    }
    return static_cast<uint16_t>(gv::sys::read_int(part));
}

// One element ("5", "1-5", "br3-br5") into start and end; false when it is
// refused.
bool read_element(ListKind kind, std::string_view element, uint16_t &start,
                  uint16_t &end) noexcept {
    const gv::range::ElementText text = gv::range::element_text(element);
    const std::string_view held = text.view();
    if (held.empty() || held.front() == '-' || held.back() == '-' ||
        std::count(held.begin(), held.end(), '-') > 1) {
        return false;
    }
    const gv::sys::Halves ends = gv::sys::cut_at(held, '-');
    start = read_id(kind, ends.left);
    end = ends.cut ? read_id(kind, ends.right) : start;
    return start != kInvalidId && end != kInvalidId && start <= end;
}

id_range *parse_id_range_list(ListKind kind, const char *text) noexcept {
    if (text == nullptr || !elements_all_present(text)) {
        return nullptr;
    }
    gv::range::RangeChain list;
    const bool whole = gv::sys::for_each_element(text, [&](std::string_view element) noexcept {
        uint16_t start = 0;
        uint16_t end = 0;
        if (!read_element(kind, element, start, end)) {
            return false;
        }
        id_range *node = gv::range::new_range(start, end);
        if (node == nullptr) {
            return false;
        }
        list.append(node);
        return true;
    });
    if (!whole) {
        list.discard();
    }
    return list.head();
}

} // namespace

id_range *get_id_list(const char *text) noexcept {
    return is_all_num_list(text) != 0 ? parse_id_range_list(ListKind::ids, text) : nullptr;
}

id_range *get_port_list_br(const char *text) noexcept {
    return is_all_num_list(text) != 0 ? parse_id_range_list(ListKind::ports, text) : nullptr;
}

id_range *get_br_list_br(const char *text) noexcept {
    return parse_id_range_list(ListKind::bridges, text);
}
