// The trunk distribution keyword an operator types ("srcdstip") and its index.
#include "gvutil/cli.h"
#include "model/trunk_mode.h"

#include <cstring>

// The keywords only are compared, case and all; "srcdstl4" answers 5, the
// index of "srcdstip", as the distribution table holds it.
int trunk_tag_to_index(const char *keyword) noexcept {
    if (keyword == nullptr) {
        return -1;
    }
    for (const auto &mode : gv::model::trunk_modes()) {
        if (std::strcmp(mode.user_tag, keyword) == 0) {
            return mode.index;
        }
    }
    return -1;
}
