// The grammar of slot/port lists ("1/1-1/8,2/3", "1/3-7", "2/5-4/1"),
// shared by every parser of such lists; what an endpoint is and how it is
// checked is the parser's policy.
//
// Items are cut at ","; an item with "-" is a range left-right. A single item
// and the left end are read into the start pair, the right end into the end
// pair; the two pairs live for the whole call, so an endpoint that names no
// slot may reuse what the previous item left. A right end without "/" names
// a port of the left end's slot (the policy forms its text). A range from
// the start pair to the end pair expands to one range per slot: the start
// port in the first slot (else 1), the end port in the last (else the
// policy's last port of the slot).
//
// A policy provides:
//     bool read(std::string_view endpoint, Pair &pair);   // false drops the item
//     sys::ItemText port_only_end(const sys::Halves &range, const sys::ItemText &item);
//     int last_port(int slot);
//     void report_order(const sys::ItemText &item);      // start after end
#pragma once

#include "sys/items.h"
#include "sys/text_builder.h"

#include <string_view>

namespace gv::cli {

// One slot's ports, as the list parsers produce them.
struct SlotPorts {
    int slot;
    int first_port;
    int last_port;
};

// The end text of "left-right" when right has no slot: left's text up to and
// including its slash, then right ("1/3-7" ends at "1/7").
inline sys::ItemText same_slot_end(std::string_view left, std::string_view right) noexcept {
    sys::ItemText end(left.substr(0, left.find('/') + 1));
    end.append(right);
    return end;
}

// Hands every range of the list to store(const SlotPorts &).
template <typename Pair, typename Policy, typename Store>
void parse_slot_port_list(std::string_view list, Policy &policy, Store store) noexcept {
    Pair start{};
    Pair end{};
    sys::for_each_element(list, [&](std::string_view piece) noexcept {
        const sys::Halves range = sys::cut_at(piece, '-');
        if (!range.cut) {
            if (policy.read(piece, start)) {
                store(SlotPorts{start.slot, start.port, start.port});
            }
            return true;
        }
        const sys::ItemText item(piece);
        if (!policy.read(range.left, start)) {
            return true;
        }
        const sys::ItemText end_text = sys::contains(range.right, '/')
                                           ? sys::ItemText(range.right)
                                           : policy.port_only_end(range, item);
        if (!policy.read(end_text.view(), end)) {
            return true;
        }
        if (start.slot > end.slot || (start.slot == end.slot && start.port > end.port)) {
            policy.report_order(item);
            return true;
        }
        for (int slot = start.slot; slot <= end.slot; ++slot) {
            store(SlotPorts{slot, slot == start.slot ? start.port : 1,
                            slot == end.slot ? end.port : policy.last_port(slot)});
        }
        return true;
    });
}

} // namespace gv::cli
