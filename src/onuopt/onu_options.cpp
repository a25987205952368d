// Options of one ONU: description, MAC address, UNI ports and their
// descriptions, and the whole record.
#include "gvutil/onuopt.h"

#include "onuopt/layout.h"
#include "onuopt/lock.h"

#include <algorithm>
#include <cstring>

using namespace gv::onuopt;

namespace {

// The caller's length is honoured as given, not held to the field: a longer
// text runs on into the fields after it, and callers rely on that. The copy
// stops at the text's terminator and at the end of the mapped store.
void copy_description(opt_format_onu_t &onu, const char *text, int length) noexcept {
    auto *field = reinterpret_cast<std::byte *>(onu.description);
    const auto room = static_cast<std::size_t>(handle().end - field);
    const std::size_t count = strnlen(text, std::min(static_cast<std::size_t>(length), room));
    std::memcpy(field, text, count);
}

bool is_uni_index(int uni) noexcept {
    return uni >= 0 && uni < kUnis;
}

} // namespace

int gv_opt_format_set_onu_info(int port, int onu_id, const opt_format_onu_t *info) noexcept {
    return with_onu(port, onu_id, info != nullptr,
                    [info](opt_format_onu_t &onu) { std::memcpy(&onu, info, sizeof onu); });
}

int gv_opt_format_get_onu_info(int port, int onu_id, opt_format_onu_t *info) noexcept {
    return with_onu(port, onu_id, info != nullptr,
                    [info](const opt_format_onu_t &onu) { std::memcpy(info, &onu, sizeof onu); });
}

// A null text with length 0 is how a description is cleared.
int gv_opt_format_set_onu_description(int port, int onu_id, const char *text, int length) noexcept {
    return with_onu(port, onu_id, text != nullptr || length <= 0, [&](opt_format_onu_t &onu) {
        std::memset(onu.description, 0, sizeof onu.description);
        if (length > 0) {
            copy_description(onu, text, length);
        }
    });
}

int gv_opt_format_get_onu_description(int port, int onu_id, char *out) noexcept {
    return with_onu(port, onu_id, out != nullptr, [out](const opt_format_onu_t &onu) {
        std::memcpy(out, onu.description, GV_OPT_FORMAT_DESC_OUT_SIZE);
    });
}

int gv_opt_format_set_onu_mac_address(int port, int onu_id, const uint8_t *mac) noexcept {
    return with_onu(port, onu_id, true, [mac](opt_format_onu_t &onu) {
        if (mac == nullptr) {
            std::memset(onu.mac, 0, sizeof onu.mac);
        } else {
            std::memcpy(onu.mac, mac, sizeof onu.mac);
        }
    });
}

int gv_opt_format_get_onu_mac_address(int port, int onu_id, uint8_t *mac) noexcept {
    return with_onu(port, onu_id, mac != nullptr, [mac](const opt_format_onu_t &onu) {
        std::memcpy(mac, onu.mac, sizeof onu.mac);
    });
}

// Only the upper bound is checked, and signed: a negative count is stored as
// given, which callers rely on.
int gv_opt_format_set_onu_num_of_uni(int port, int onu_id, int count) noexcept {
    return with_onu(port, onu_id, count <= kUnis,
                    [count](opt_format_onu_t &onu) { onu.num_of_uni = count; });
}

int gv_opt_format_get_onu_num_of_uni(int port, int onu_id, int *count) noexcept {
    return with_onu(port, onu_id, count != nullptr,
                    [count](const opt_format_onu_t &onu) { *count = onu.num_of_uni; });
}

int gv_opt_format_get_onu_learning_method(int port, int onu_id, int *method) noexcept {
    return with_onu(port, onu_id, method != nullptr,
                    [method](const opt_format_onu_t &onu) { *method = onu.learning_method; });
}

// Only selector 0 is kept in the store; callers own what it means.
int gv_opt_format_set_onu_uni_description(int port, int onu_id, int selector, int uni,
                                          const char *text) noexcept {
    return with_onu(port, onu_id, selector == 0 && is_uni_index(uni),
                    [uni, text](opt_format_onu_t &onu) {
                        char *field = onu.uni_description[uni];
                        std::memset(field, 0, GV_OPT_FORMAT_UNI_DESC_SIZE);
                        if (text != nullptr) {
                            std::memcpy(field, text, GV_OPT_FORMAT_UNI_DESC_SIZE);
                        }
                    });
}

int gv_opt_format_get_onu_uni_description(int port, int onu_id, int selector, int uni,
                                          char *out) noexcept {
    return with_onu(port, onu_id, selector == 0 && is_uni_index(uni) && out != nullptr,
                    [uni, out](const opt_format_onu_t &onu) {
                        std::memcpy(out, onu.uni_description[uni], GV_OPT_FORMAT_UNI_DESC_SIZE);
                    });
}

// The UNI clear runs over 0..128, the ONU id range; only 0..23 exist and the
// rest are refused quietly, which callers count on. MAC, UNI count, learning
// method and identity address are left as they are.
int gv_opt_format_db_delete_onu(int port, int onu_id) noexcept {
    (void)gv_opt_format_set_onu_description(port, onu_id, nullptr, 0);
    for (int uni = 0; uni < kOnuRecords; ++uni) {
        (void)gv_opt_format_set_onu_uni_description(port, onu_id, 0, uni, nullptr);
    }
    return 0;
}
