// One port's text for the set formatters and the shell's older callers.
#include "gvutil/model.h"
#include "gvutil/platform.h"
#include "gvutil/porttext.h"
#include "gvutil/settext.h"

#include <cstdio>
#include <cstring>

namespace {

// pnums from here on have no short text.
constexpr int kShortTextPnums = 200;
constexpr int kShortTextSize = 32;

} // namespace

char *_cnvt_port_num_to_str(int pnum) noexcept {
    // One buffer per calling thread, valid until that thread's next call.
    thread_local char text[kShortTextSize];
    if (pnum < kShortTextPnums) {
        return sputil_mk_string_from_int_port(pnum, text, sizeof text);
    }
    (void)get_start_slot(); // asked as it always was; the answer is not needed
    text[0] = '\0';
    return text;
}

char *convert_legarcy_pnum_to_slotport_str(int pnum, char *out, int len) noexcept {
    const int port_pnum = get_pnum_from_type_b_trunk_pnum(pnum);
    const int slot = get_slot_number_from_pnum(port_pnum);
    const int port = get_slotport_number_from_pnum(port_pnum);
    char text[32];
    std::snprintf(text, sizeof text, "%d/%d", get_user_slot_by_real_slot(slot), port);
    if (out != nullptr && len > 0) {
        // No terminator when the text fills len: callers size out for it.
        std::strncpy(out, text, static_cast<std::size_t>(len));
    }
    return out;
}
