// Trunk membership over a caller's trunk table: 12-byte entries whose first
// byte is a member port.
#include "gvutil/sysport.h"

#include <cstddef>

namespace {

constexpr std::size_t kTrunkEntrySize = 12;

} // namespace

int is_port_in_trunk(const void *table, int count, int port) noexcept {
    const auto *entries = static_cast<const unsigned char *>(table);
    for (int i = 0; entries != nullptr && i < count; ++i) {
        if (entries[static_cast<std::size_t>(i) * kTrunkEntrySize] == port) {
            return 1;
        }
    }
    return 0;
}

// The same test under its other name; both are called.
int is_port_under_trunk(const void *table, int count, int port) noexcept {
    return is_port_in_trunk(table, count, port);
}
