// Port and bridge set texts: getportset, getbrset, make_port_number and the
// slot bounds make_port_number_from_slot_start/_end, on every chassis. A port
// set of physical ports read with the chassis' port count as max prints as
// text that reads back into the same set (channel groups and trunks print in
// forms of their own).
#include "gvutil/model.h"
#include "gvutil/settext.h"
#include "support/fuzz_support.h"

#include <cstring>

namespace {

using gvfuzz::Exact;

// The largest port set text: every port as "GPON10/16," and some.
constexpr std::size_t kSetTextSize = 1 << 15;

void port_set(gvfuzz::Text &text, int max, bool chassis_max) {
    Exact<portset_t> set(1);
    const int count = getportset(text.c_str(), max, set.data());
    if (!chassis_max || count <= 0) {
        return;
    }
    for (int pnum = get_port_num(1) + 1; pnum <= GV_PORTSET_MAX_PORT; ++pnum) {
        if (ps_isset(set.data(), pnum) != 0) {
            return;
        }
    }
    // The form a chassis with slots reads back has no interface types.
    Exact<char> printed(kSetTextSize);
    if (get_slot_number() == 0) {
        (void)portset2str(printed.data(), max, set.data());
    } else {
        (void)portset2str_wo_iftype(printed.data(), max, set.data());
    }
    Exact<portset_t> again(1);
    (void)getportset(printed.data(), max, again.data());
    gvfuzz::check(std::memcmp(set.data(), again.data(), sizeof(portset_t)) == 0,
                  "a port set does not read back as printed", text.view());
}

void bridge_set(gvfuzz::Text &text, int max) {
    Exact<uint32_t> set(GV_ID_SET_WORDS);
    (void)getbrset(text.c_str(), max, set.data());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider in(data, size);
    gvfuzz::use_chassis(in);
    const int which = in.ConsumeIntegralInRange(0, 2);
    // The chassis' own port count, or any bound at all.
    const bool chassis_max = in.ConsumeBool();
    const int max = chassis_max ? get_port_num(0) : in.ConsumeIntegral<int>();
    gvfuzz::Text text = gvfuzz::rest_as_text(in);
    switch (which) {
    case 0:
        port_set(text, max, chassis_max);
        break;
    case 1:
        bridge_set(text, chassis_max ? GV_ID_SET_MAX_ID : max);
        break;
    default:
        (void)make_port_number(text.c_str());
        (void)make_port_number_from_slot_start(text.c_str());
        (void)make_port_number_from_slot_end(text.c_str());
        break;
    }
    return 0;
}
