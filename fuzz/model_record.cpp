// The model record as the switch module answers it: any reply (short ones
// read as zeros past their end) is loaded by init_switch_model_info from the
// root's /proc/shape/ioctrl, then every count, the slot/pnum numbering, the
// text forms of pnums and the port set texts are asked of it.
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/settext.h"
#include "support/fuzz_support.h"

#include <fstream>

namespace {

using gvfuzz::Exact;

// Slots and pnums asked about: those a record can describe, and a little
// beyond, whatever counts the record claims.
constexpr int kLastSlot = GV_MODEL_SLOT_ENTRIES + 2;
constexpr int kLastPnum = GV_PORTSET_MAX_PORT + 2;

void write_reply(const std::string &root, const uint8_t *data, size_t size) {
    std::ofstream(root + "/proc/shape/ioctrl", std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<const char *>(data), static_cast<std::streamsize>(size));
}

void ask_counts() {
    for (unsigned kind = 0; kind <= 10; ++kind) {
        (void)get_port_num(kind);
    }
    (void)get_slot_number();
    (void)get_max_slotport_cnt();
    (void)trunk_port_max5();
    (void)trunk_port_max14();
    (void)is_enable_l3();
}

void ask_slots() {
    for (int slot = -1; slot <= kLastSlot; ++slot) {
        (void)get_port_number_per_slot(slot);
        (void)get_start_port_number_from_slot(slot);
        (void)get_end_port_number_from_slot(slot);
        (void)get_port_number_from_slotport(slot, 1);
        (void)check_slot_port(slot, 1);
        (void)get_logical_slot_port_num(slot);
        (void)get_logical_slot_port_max_num(slot);
        (void)convert_s_format_to_p_format(slot, 2);
    }
}

// Each pnum in every text form; the forms' buffers hold 64 bytes.
void ask_pnum(int pnum) {
    (void)get_slot_number_from_pnum(pnum);
    (void)get_slotport_number_from_pnum(pnum);
    (void)is_interlink_port(pnum);
    (void)gv_get_slot_number_from_log_pnum(pnum);
    (void)gv_get_slotport_number_from_log_pnum(pnum);
    Exact<char> text(64);
    convert_p_format_to_s_format(pnum, text.data());
    (void)convert_p_format_to_s_legacy_format(pnum, text.data());
    (void)sputil_mk_string_from_int_port(pnum, text.data(), 64);
    (void)convert_legarcy_pnum_to_slotport_str(pnum, text.data(), 64);
    (void)_cnvt_port_num_to_str(pnum);
}

// Bands of ports across the whole bitmap, printed with the record's own port
// count (a run names only its two ends, which keeps a run fast).
void print_bands() {
    portset_t set;
    for (std::size_t i = 0; i < GV_PORTSET_WORDS; ++i) {
        set.bits[i] = i % 3 == 0 ? 0xFFFFFFFFu : i % 3 == 1 ? 0x0000FF01u : 0u;
    }
    const int max = get_port_num(0);
    Exact<char> text(1 << 16);
    (void)portset2str(text.data(), max, &set);
    (void)portset2str_wo_iftype(text.data(), max, &set);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    if (size > 512) {
        return 0; // the driver's reply buffer
    }
    gvfuzz::use_chassis(0);
    write_reply(gvfuzz::chassis_root(0), data, size);
    gvfuzz::check(init_switch_model_info() == 1, "the model record did not load", "");
    ask_counts();
    ask_slots();
    for (int pnum = -1; pnum <= kLastPnum; pnum += pnum < 64 ? 1 : 37) {
        ask_pnum(pnum);
    }
    print_bands();
    return 0;
}
