// Platform knowledge the generator needs beyond the description itself: which interfaces a line
// card carries, what the port counts of the model record derive from, and how the model code
// picks the chassis type.
#pragma once

#include "chassis_desc.h"

namespace gvsim {

// Interface type codes as the library names them (GE = 2, XE = 3, CE = 5, EPON = 50 ...).
enum InterfaceCode : int {
    kIfNone = 0,
    kIfFe = 1,
    kIfGe = 2,
    kIfXe = 3,
    kIfCe = 5,
    kIfEpon = 50,
    kIfXepon = 51,
    kIfGpon = 52,
    kIfXgpon = 53,
    kIfXgspon = 54,
    kIfNgpon = 55,
};

// Interface of port `port` (from 1) of a card; kIfNone for card types that name no ports.
int card_port_interface(int card_type, int port, bool k7400a_board) noexcept;

// Short prefix of an interface code as internal names spell it ("GE", "XGSPON"); null for codes
// that name no port.
const char *interface_prefix(int code) noexcept;

bool is_pon_interface(int code) noexcept;
bool is_ethernet_interface(int code) noexcept;

bool is_k7400a_board(const ChassisDesc &desc) noexcept;

// Chassis type of the entity table for a model code; -1 when the model has none.
int chassis_type_for_model(int model_code) noexcept;

// Fills desc.kind from the slots, groups and logical-slot counts.
void derive_port_kinds(ChassisDesc &desc) noexcept;

// Calls f(pnum, card_type, port_on_card) for every physical port in pnum order.
template <typename F> void for_each_physical_port(const ChassisDesc &desc, F &&f) {
    int pnum = 0;
    auto walk = [&](int card_type, int ports) {
        for (int port = 1; port <= ports; ++port) {
            f(++pnum, card_type, port);
        }
    };
    for (int s = 0; s < desc.slot_count; ++s) {
        walk(desc.slots[static_cast<std::size_t>(s)].card_type,
             desc.slots[static_cast<std::size_t>(s)].ports);
    }
    for (const PortGroup &group : desc.groups) {
        walk(group.card_type, group.ports);
    }
}

} // namespace gvsim
