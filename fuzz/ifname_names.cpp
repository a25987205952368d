// One interface name: the prefix and type look-ups, every class predicate,
// the slot/port readers, the separation into slot and ports with its
// normalised name, the channel-group number and the run-config texts, on
// every chassis.
#include "gvutil/ifname.h"
#include "support/fuzz_support.h"

#include <array>

namespace {

using gvfuzz::Exact;

// Normalised names hold at most 67 bytes.
constexpr std::size_t kNormalisedSize = 67;

constexpr std::array<int (*)(const char *), 18> kPredicates = {
    is_fast_ethernet_interface,
    is_gigabit_ethernet_interface,
    is_ten_gigabit_ethernet_interface,
    is_hundred_gigabit_ethernet_interface,
    is_epon_interface,
    is_xepon_interface,
    is_gpon_interface,
    is_xgpon_interface,
    is_xgspon_interface,
    is_ngpon_interface,
    is_pon_interface,
    is_ethernet_interface,
    is_vlan_interface,
    is_aggregator_interface,
    is_cg_interface,
    is_ethXX_interface,
    is_port_interface,
    is_port_n_vlan_interface};

void separation(gvfuzz::Text &name, bool user) {
    int slot = -7;
    int first = -7;
    int last = -7;
    Exact<char> normalised(kNormalisedSize);
    const int result = user ? get_user_interface_name_separation_from_ifname(
                                  name.c_str(), &slot, &first, &last, normalised.data())
                            : get_interface_name_separation_from_ifname(name.c_str(), &slot, &first,
                                                                        &last, normalised.data());
    if (result == 0) {
        gvfuzz::check(first <= last, "separated ports run backwards", name.view());
    } else {
        gvfuzz::check(slot == -7 && first == -7 && last == -7,
                      "a refused separation wrote its outputs", name.view());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider in(data, size);
    gvfuzz::use_chassis(in);
    const int which = in.ConsumeIntegralInRange(0, 5);
    const int prefix_size = in.ConsumeIntegralInRange(-1, 40);
    gvfuzz::Text name = gvfuzz::rest_as_text(in);
    switch (which) {
    case 0: {
        Exact<char> prefix(prefix_size > 0 ? static_cast<std::size_t>(prefix_size) : 0);
        (void)get_interface_type(name.c_str(), prefix.data(), prefix_size);
        (void)is_interface_string_type(name.c_str());
        (void)get_interface_type_from_prefix(name.c_str());
        (void)get_interface_type_from_full_prefix(name.c_str());
        break;
    }
    case 1:
        for (auto predicate : kPredicates) {
            const int answer = predicate(name.c_str());
            gvfuzz::check(answer == 0 || answer == 1, "a predicate answers neither 0 nor 1",
                          name.view());
        }
        break;
    case 2: {
        int slot = 0;
        int port = 0;
        int last = 0;
        Exact<char> prefix(GV_IF_PREFIX_SIZE);
        (void)get_slot_port_no_from_ifstr(name.c_str(), &slot, &port);
        (void)get_type_slot_port_no_from_ifstr(name.c_str(), prefix.data(), &slot, &port);
        (void)get_slot_and_port_range_from_ifstr(name.c_str(), prefix.data(), &slot, &port, &last);
        break;
    }
    case 3:
    case 4:
        separation(name, which == 4);
        break;
    default:
        (void)get_group_id_from_ifname(name.c_str());
        (void)get_interface_string_for_run_config_from_ifstr(name.c_str());
        break;
    }
    return 0;
}
