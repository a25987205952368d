// Group selection: each call takes the first untaken record's group out of a
// caller's list, marking every member it hands back as taken.
#include "gvutil/model.h"

namespace {

// Walks list from the first untaken record, appending every member of that
// record's group through take(); answers how many were taken.
template <typename Record, typename Untaken, typename Take>
int take_group(Record *list, int count, Untaken untaken, Take take) noexcept {
    int first = 0;
    while (first < count && !untaken(list[first])) {
        ++first;
    }
    if (first >= count) {
        return 0;
    }
    const auto key = list[first].key;
    int taken = 0;
    for (int i = first; i < count; ++i) {
        if (list[i].key == key) {
            take(list[i], taken++);
        }
    }
    return taken;
}

bool port_untaken(const port_info_t &r) noexcept {
    return r.port != GV_PORT_INFO_TAKEN;
}

} // namespace

int select_br_info(br_info_t *list, int count, uint16_t *out, br_info_t *group) noexcept {
    if (list == nullptr || out == nullptr || group == nullptr) {
        return 0;
    }
    return take_group(
        list, count, [](const br_info_t &r) { return r.br_id != GV_BR_INFO_TAKEN; },
        [&](br_info_t &r, int i) {
            if (i == 0) {
                group->key = r.key;
            }
            out[i] = r.br_id;
            r.br_id = GV_BR_INFO_TAKEN;
        });
}

int select_port_info(port_info_t *list, int count, uint32_t *out, port_info_t *group) noexcept {
    if (list == nullptr || out == nullptr || group == nullptr) {
        return 0;
    }
    return take_group(list, count, port_untaken, [&](port_info_t &r, int i) {
        if (i == 0) {
            group->key = r.key;
            group->value = r.value;
        }
        out[i] = r.port;
        r.port = GV_PORT_INFO_TAKEN;
    });
}

int select_port(port_info_t *list, int count, uint32_t *out, uint32_t *key) noexcept {
    if (list == nullptr || out == nullptr || key == nullptr) {
        return 0;
    }
    return take_group(list, count, port_untaken, [&](port_info_t &r, int i) {
        if (i == 0) {
            *key = static_cast<uint32_t>(r.key);
        }
        out[i] = r.port;
        r.port = GV_PORT_INFO_TAKEN;
    });
}
