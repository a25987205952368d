/* Every public header through the umbrella, compiled as C99. */
#include "gvutil/gvutil.h"

#include <stdio.h>

int main(void) {
    portset_t ps;
    gv_model_info_t *model = &g_model;
    uint8_t ber[8];
    int32_t room = (int32_t)sizeof ber;
    const int32_t minus_129 = -129;

    ps_zero(&ps);
    ps_set(&ps, 33);
    if (ps.bits[1] != 1u || get_start_slot() != 1 || sizeof *model != 308 ||
        get_real_slot_by_user_slot(0) != 3 || stoi("42") != 42 || sizeof(opt_format_onu_t) != 924 ||
        sizeof(opt_format_pon_t) != 119240 || sizeof(opt_format_db_t) != GV_OPT_FORMAT_SHM_SIZE ||
        snmp_build_int(ber, &room, 0x02, &minus_129, GV_BER_INT_SIZE) != ber + 4 ||
        ber[3] != 0x7f || sizeof(gv_if_stats_t) != GV_IF_STATS_RECORD_SIZE ||
        sizeof alarm_severity != 176 || sizeof last_module_state != 68 ||
        alarm_severity[GV_ALARM_MINOR][GV_ALARM_DISABLED] != 0 ||
        gv_get_logindex_max("gpon") != 29 || sizeof(sp_data) != 257 || sizeof(mirror_entry) != 8 ||
        mate_sfu_index != 0 || sleColorMarkAwareMode != 0) {
        fprintf(stderr, "C view of the interface disagrees\n");
        return 1;
    }
    return 0;
}
