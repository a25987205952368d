// How many ports a line card of a given type has in a slot, as the switch
// services answer it: the slot's ports from the model record when the
// equipment record shows that card there, else none.
#include "gvsim/gvsim.h"

int _get_max_port_by_type(int card_type, int slot) {
    const eqm_global_info *eqm = eqm_get_global_info();
    if (eqm == nullptr || card_type == 0 || slot < 1 || slot >= EQM_SLOT_ENTRIES ||
        eqm->card_type[slot] != card_type) {
        return 0;
    }
    return gv_hal_get_port_number_per_slot(slot);
}
