// Type-b trunks of the host chassis: PON protection pairs in the logical slot.
#include "gvsim/gvsim.h"
#include "host/root_chassis.h"

#include "chassis_rules.h"

namespace {

// The pnum of the index-th PON port (from 1) in pnum order, or 0.
int nth_pon_port(const gvsim::ChassisDesc &chassis, int index) {
    const bool k7400a = gvsim::is_k7400a_board(chassis);
    int seen = 0;
    int found = 0;
    gvsim::for_each_physical_port(chassis, [&](int pnum, int card_type, int port) {
        if (found == 0 &&
            gvsim::is_pon_interface(gvsim::card_port_interface(card_type, port, k7400a)) &&
            ++seen == index) {
            found = pnum;
        }
    });
    return found;
}

} // namespace

int get_pnum_from_type_b_trunk_pnum(int pnum) {
    const auto *chassis = gvsim::root_chassis();
    if (chassis == nullptr) {
        return pnum;
    }
    // The logical slot follows the physical and interlink ports; its channel
    // groups come first.
    const auto &kind = chassis->kind;
    const int first_trunk = kind[1] + kind[6] + kind[9] + 1;
    if (pnum < first_trunk || pnum > kind[0]) {
        return pnum;
    }
    const int trunk = pnum - first_trunk + 1;
    const int working = nth_pon_port(*chassis, 2 * trunk - 1);
    return working != 0 ? working : pnum;
}
