#include "port_arg.h"

#include "gvutil/model.h"
#include "gvutil/sys.h"

#include <cstring>

namespace gvtool {

bool parse_slot_port(const char *text, int &user_slot, int &port) {
    const char *slash = std::strchr(text, '/');
    if (slash == nullptr) {
        return false;
    }
    char slot_text[16] = {};
    const auto slot_length = static_cast<std::size_t>(slash - text);
    if (slot_length >= sizeof slot_text) {
        return false;
    }
    std::memcpy(slot_text, text, slot_length);
    user_slot = stoi(slot_text);
    port = stoi(slash + 1);
    return user_slot >= 0 && port >= 0;
}

int parse_port(const char *text) {
    int user_slot = 0;
    int port = 0;
    if (parse_slot_port(text, user_slot, port)) {
        const int slot = get_real_slot_by_user_slot(user_slot);
        return check_slot_port(slot, port) == 0 ? get_port_number_from_slotport(slot, port) : -1;
    }
    const int pnum = stoi(text);
    return pnum >= 1 ? pnum : -1;
}

} // namespace gvtool
