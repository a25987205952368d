// Checks of instance numbers, port ranges and bridge lists typed by the
// operator, and the interface-index tests kept with them.
#include "gvutil/range.h"
#include "sys/operator_message.h"

#include <cstdint>

using gv::sys::say;

namespace {

// Instance numbers the chassis accepts without a list to check against.
constexpr int kHighestInstance = 4094;

constexpr int kFirstEthernetIfindex = 1000001;
constexpr int kEthernetIfindexLimit = 50010000;
constexpr int kMgmtIfindex = 540003;

} // namespace

int check_instance(cli_ctx *ctx, const id_instance *list, uint32_t id) noexcept {
    if (list == nullptr) {
        // Only the low 16 bits are looked at.
        if ((id & 0xFFFFU) <= kHighestInstance) {
            return 0;
        }
        say(ctx, "%%Instance's valid values are from 0 to %d\n", kHighestInstance);
        return 1;
    }
    for (const id_instance *instance = list; instance != nullptr; instance = instance->next) {
        if (instance->id == id) {
            return 0;
        }
    }
    say(ctx, "%%Invalid instance number %d%s", static_cast<int>(id), "\n");
    return 1;
}

int check_ports(cli_ctx *ctx, const id_range *list, int low, int high) noexcept {
    bool inside = list != nullptr;
    for (const id_range *node = list; inside && node != nullptr; node = node->next) {
        inside = node->start >= low && node->end <= high;
    }
    if (!inside) {
        say(ctx, "%%port number invalid\n");
        return 1;
    }
    return 0;
}

int check_vlans(cli_ctx *ctx, const id_range *list) noexcept {
    if (list == nullptr) {
        say(ctx, "%%Invalid bridge\n");
        return 1;
    }
    return 0;
}

int is_ethernet_interface_by_ifindex(int ifindex) noexcept {
    return ifindex >= kFirstEthernetIfindex && ifindex < kEthernetIfindexLimit ? 1 : 0;
}

int is_mgmt_interface_by_ifindex(int ifindex) noexcept {
    return ifindex == kMgmtIfindex ? 1 : 0;
}
