#include "chassis_rules.h"

namespace gvsim {

namespace {

struct CardInterface {
    int card_type;
    int code;
};

// Cards with one kind of interface on every port.
constexpr CardInterface kCardInterfaces[] = {
    {1, kIfGe},    {7, kIfGe},     {10, kIfGe},    {16, kIfGe},    {17, kIfGe},     {26, kIfGe},
    {9, kIfXe},    {11, kIfXe},    {12, kIfXe},    {15, kIfXe},    {20, kIfXe},     {25, kIfXe},
    {13, kIfEpon}, {14, kIfXepon}, {19, kIfXepon}, {33, kIfXepon}, {18, kIfGpon},   {21, kIfGpon},
    {27, kIfGpon}, {28, kIfGpon},  {32, kIfGpon},  {29, kIfNgpon}, {30, kIfXgspon}, {31, kIfCe},
};

constexpr int kComboCard = 5;   // two ten-gig uplinks, then gigabit ports
constexpr int kSfuUplinks = 22; // the K7400A SFU has two gigabit ports in front

} // namespace

int card_port_interface(int card_type, int port, bool k7400a_board) noexcept {
    if (card_type == kComboCard) {
        return port < 3 ? kIfXe : kIfGe;
    }
    if (card_type == kSfuUplinks) {
        return k7400a_board && port <= 2 ? kIfGe : kIfXe;
    }
    for (const CardInterface &entry : kCardInterfaces) {
        if (entry.card_type == card_type) {
            return entry.code;
        }
    }
    return kIfNone;
}

const char *interface_prefix(int code) noexcept {
    switch (code) {
    case kIfFe:
        return "FE";
    case kIfGe:
        return "GE";
    case kIfXe:
        return "XE";
    case kIfCe:
        return "CE";
    case kIfEpon:
        return "EPON";
    case kIfXepon:
        return "XEPON";
    case kIfGpon:
        return "GPON";
    case kIfXgpon:
        return "XGPON";
    case kIfXgspon:
        return "XGSPON";
    case kIfNgpon:
        return "NGPON";
    default:
        return nullptr;
    }
}

bool is_pon_interface(int code) noexcept {
    return code >= kIfEpon && code <= kIfNgpon;
}

bool is_ethernet_interface(int code) noexcept {
    return code == kIfGe || code == kIfXe || code == kIfCe;
}

bool is_k7400a_board(const ChassisDesc &desc) noexcept {
    return desc.real_model_name == "K7400A_SFU";
}

int chassis_type_for_model(int model_code) noexcept {
    switch (model_code) {
    case 0:
        return 1; // K7100
    case 4:
        return 4; // K7200
    case 6:
    case 9:
        return 2; // K7400, K7400A
    case 7:
    case 8:
        return 3; // K7500
    default:
        return -1;
    }
}

// Kinds 4, 7 and 8 are kept by the switch module for its own use; we fill them the way the
// module does: PON ports, Ethernet ports, and the trunk ports of the logical slot.
void derive_port_kinds(ChassisDesc &desc) noexcept {
    int physical = 0;
    int pon = 0;
    int ethernet = 0;
    const bool k7400a = is_k7400a_board(desc);
    for_each_physical_port(desc, [&](int, int card_type, int port) {
        const int code = card_port_interface(card_type, port, k7400a);
        ++physical;
        pon += is_pon_interface(code) ? 1 : 0;
        ethernet += is_ethernet_interface(code) ? 1 : 0;
    });
    auto &k = desc.kind;
    k = {};
    k[1] = physical;
    k[2] = desc.logical_ports;
    k[5] = physical; // interlink pnums follow the slot ports
    k[6] = desc.interlink;
    k[9] = desc.channel_groups;
    k[0] = k[1] + k[6] + k[2];
    k[4] = pon;
    k[7] = ethernet;
    k[8] = desc.logical_ports - desc.channel_groups;
}

} // namespace gvsim
