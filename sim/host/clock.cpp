// The host chassis' clock: the system's, or a fixed time that tests set and
// advance, so period checks are tested without waiting.
#include "gvsim/gvsim.h"

#include <ctime>

namespace {

bool held = false;
time_t held_at = 0;

} // namespace

time_t gvsim_now(void) {
    return held ? held_at : std::time(nullptr);
}

void gvsim_clock_set(time_t now) {
    held = true;
    held_at = now;
}

void gvsim_clock_advance(long seconds) {
    gvsim_clock_set(gvsim_now() + seconds);
}

void gvsim_clock_release(void) {
    held = false;
}

int gv_check_update_period(time_t *stamp, int seconds) {
    if (stamp == nullptr) {
        return 0;
    }
    const time_t now = gvsim_now();
    // A stamp ahead of the clock (the clock was set back) counts as expired,
    // so a cache is never frozen until the clock catches up again.
    if (now - *stamp < seconds && now >= *stamp) {
        return 0;
    }
    *stamp = now;
    return 1;
}
