/*
 * The host chassis: what the simulated platform services answer and the
 * controls tests and tools use. Every service reads the chassis from the root
 * that GVUTIL_ROOT names (made by gvsim-mkroot); with no root set there is no
 * chassis, and the services answer as a chassis with nothing fitted would.
 *
 *   getModel()                       model code of the root's description, -1 without one
 *   gv_hal_get_port_number_per_slot  ports of a real slot 1..slot count, else 0
 *   gv_board_is_K7400A_SFU()         1 when the board identity is "K7400A_SFU"
 *   redctrl_get_boardid()            which switch-fabric unit this board is (1 or 2), 0 without one
 *   redctrl_is_mate_detected()       1 when the other switch-fabric unit is fitted
 */
#ifndef GVSIM_H
#define GVSIM_H

#include "gvutil/platform.h"

#endif
