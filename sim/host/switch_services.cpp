// Switch services of the host chassis.
#include "gvsim/gvsim.h"
#include "host/root_chassis.h"

using gvsim::root_chassis;

int getModel() {
    const auto *chassis = root_chassis();
    return chassis != nullptr ? chassis->model_code : -1;
}

int gv_hal_get_port_number_per_slot(int slot) {
    const auto *chassis = root_chassis();
    if (chassis == nullptr || slot < 1 || slot > chassis->slot_count) {
        return 0;
    }
    return chassis->slots[static_cast<std::size_t>(slot - 1)].ports;
}

int gv_board_is_K7400A_SFU() {
    const auto *chassis = root_chassis();
    return chassis != nullptr && chassis->real_model_name == "K7400A_SFU" ? 1 : 0;
}
