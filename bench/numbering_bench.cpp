// The numbering walks the slot entries afresh on every call (no start table).
// These show what that costs on the largest shipped chassis.
#include "gvutil/model.h"
#include "support/chassis_root.h"

#include <benchmark/benchmark.h>

namespace {

void PnumToSlotPort(benchmark::State &state) {
    gvtest::ChassisRoot root{"k7100"};
    const int pnums = get_port_num(1);
    for (auto _ : state) {
        for (int pnum = 1; pnum <= pnums; ++pnum) {
            benchmark::DoNotOptimize(get_slot_number_from_pnum(pnum));
            benchmark::DoNotOptimize(get_slotport_number_from_pnum(pnum));
        }
    }
    state.SetItemsProcessed(state.iterations() * pnums);
}
BENCHMARK(PnumToSlotPort);

void SlotPortToPnum(benchmark::State &state) {
    gvtest::ChassisRoot root{"k7100"};
    const int slots = get_slot_number();
    int64_t conversions = 0;
    for (auto _ : state) {
        for (int slot = 1; slot <= slots; ++slot) {
            for (int port = 1; port <= get_port_number_per_slot(slot - 1); ++port) {
                benchmark::DoNotOptimize(get_port_number_from_slotport(slot, port));
                ++conversions;
            }
        }
    }
    state.SetItemsProcessed(conversions);
}
BENCHMARK(SlotPortToPnum);

} // namespace
