// Id-range lists: get_id_list, get_port_list_br and get_br_list_br, whose
// lists are then printed, listed and checked; the element helpers get_range
// and get_id_data walked over a list as the shell walks it; the digit tests.
// Every node a call takes is given back.
#include "gvsim/gvsim.h"
#include "gvutil/range.h"
#include "support/fuzz_support.h"

namespace {

using gvfuzz::Exact;

void parsed_list(gvfuzz::Text &text, int which, int size, int capacity) {
    const long live = gvsim_heap_live_blocks();
    id_range *list = which == 0   ? get_id_list(text.c_str())
                     : which == 1 ? get_port_list_br(text.c_str())
                                  : get_br_list_br(text.c_str());
    const id_range *prev = nullptr;
    for (const id_range *node = list; node != nullptr; prev = node, node = node->next) {
        gvfuzz::check(node->prev == prev, "a node's back link is wrong", text.view());
        gvfuzz::check(node->start <= node->end, "a parsed range runs backwards", text.view());
    }
    Exact<char> out(static_cast<std::size_t>(size));
    (void)make_range_str(list, out.data(), size);
    Exact<char> ports(static_cast<std::size_t>(size));
    (void)make_range_str_port(list, ports.data(), size);
    Exact<uint16_t> ids(static_cast<std::size_t>(capacity));
    const int listed = get_range_to_list(list, ids.data(), capacity);
    gvfuzz::check(listed >= 0 && listed <= capacity, "more ids listed than room", text.view());
    (void)id_in_range(list, capacity);
    (void)check_ports(gvfuzz::shell(), list, 1, capacity);
    (void)check_vlans(gvfuzz::shell(), list);
    (void)out_range(gvfuzz::shell(), list, "ids");
    free_id_range(list);
    gvfuzz::check(gvsim_heap_live_blocks() == live, "a range node was not given back", text.view());
}

// Element by element, each into the shell's 16-byte buffers.
void elements(gvfuzz::Text &text, long low, long high) {
    const char *cursor = text.c_str();
    while (cursor != nullptr && *cursor != '\0') {
        Exact<char> element(GV_RANGE_ELEMENT_SIZE);
        const char *next = get_range(cursor, element.data());
        gvfuzz::check(next > cursor && next <= text.c_str() + text.size(),
                      "get_range does not move on within the text", text.view());
        Exact<char> start(GV_RANGE_ELEMENT_SIZE);
        (void)get_id_data(element.data(), start.data());
        (void)check_digit_range(element.data(), low, high);
        cursor = next;
    }
    (void)is_all_num(text.c_str());
    (void)is_all_num_list(text.c_str());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider in(data, size);
    gvfuzz::use_chassis(in);
    const int which = in.ConsumeIntegralInRange(0, 3);
    const int out_size = in.ConsumeIntegralInRange(0, 80);
    const int capacity = in.ConsumeIntegralInRange(0, 5000);
    const long low = in.ConsumeIntegral<int>();
    const long high = in.ConsumeIntegral<int>();
    gvfuzz::Text text = gvfuzz::rest_as_text(in);
    if (which < 3) {
        parsed_list(text, which, out_size, capacity);
    } else {
        elements(text, low, high);
    }
    return 0;
}
