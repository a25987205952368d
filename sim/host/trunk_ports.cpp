// Type-b trunks of the host chassis: PON protection pairs in the logical slot.
#include "gvsim/gvsim.h"
#include "host/root_chassis.h"

#include "chassis_rules.h"

namespace {

// The pnum of the n-th PON port (from 1) in pnum order, or 0.
int nth_pon_port(const gvsim::ChassisDesc &chassis, int n) {
    const bool k7400a = gvsim::is_k7400a_board(chassis);
    int seen = 0;
    int found = 0;
    gvsim::for_each_physical_port(chassis, [&](int pnum, int card_type, int port) {
        const int code = gvsim::card_port_interface(card_type, port, k7400a);
        if (found == 0 && gvsim::is_pon_interface(code) && ++seen == n) {
            found = pnum;
        }
    });
    return found;
}

} // namespace

int get_pnum_from_type_b_trunk_pnum(int pnum) {
    const gvsim::ChassisDesc *chassis = gvsim::root_chassis();
    if (chassis == nullptr) {
        return pnum;
    }
    const auto &kind = chassis->kind;
    const int logical = pnum - kind[1] - kind[6];
    if (pnum > kind[0] || logical <= kind[9]) {
        return pnum; // not a trunk port
    }
    // Trunk k pairs the (2k-1)-th and 2k-th PON ports; the first one works.
    const int working = nth_pon_port(*chassis, 2 * (logical - kind[9]) - 1);
    return working != 0 ? working : pnum;
}
