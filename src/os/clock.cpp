#include "os/os.h"

#include <cerrno>
#include <ctime>

#if GVUTIL_HOST_SIM
#include "gvsim/gvsim.h"
#endif

namespace gv::os {

std::time_t now() noexcept {
#if GVUTIL_HOST_SIM
    return gvsim_now();
#else
    return std::time(nullptr);
#endif
}

void nap(unsigned milliseconds) noexcept {
    timespec left{static_cast<time_t>(milliseconds / 1000),
                  static_cast<long>(milliseconds % 1000) * 1000000L};
    // A signal cuts the sleep short; sleep out the rest, so callers that
    // count naps get at least the time they asked for.
    while (::nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

} // namespace gv::os
