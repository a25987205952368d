// The equipment manager's shared record, as the host chassis publishes it.
#include "gvsim/gvsim.h"
#include "host/root_chassis.h"

eqm_global_info *eqm_get_global_info() {
    static eqm_global_info record;
    const gvsim::ChassisDesc *chassis = gvsim::root_chassis();
    if (chassis == nullptr) {
        return nullptr;
    }
    // Filled afresh on each look, so a new root is seen at once.
    record = {};
    record.slot_max = static_cast<uint16_t>(chassis->slot_count);
    for (int slot = 1; slot <= chassis->slot_count && slot < EQM_SLOT_ENTRIES; ++slot) {
        record.card_type[slot] =
            static_cast<uint16_t>(chassis->slots[static_cast<std::size_t>(slot - 1)].card_type);
    }
    return &record;
}
