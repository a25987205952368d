// The redundancy controller of the host chassis.
#include "gvsim/gvsim.h"
#include "host/root_chassis.h"

int redctrl_get_boardid() {
    const auto *chassis = gvsim::root_chassis();
    return chassis != nullptr ? chassis->sfu_board_id : 0;
}

int redctrl_is_mate_detected() {
    const auto *chassis = gvsim::root_chassis();
    return chassis != nullptr && chassis->sfu_mate ? 1 : 0;
}
