#include "model/model_record.h"

#include "os/os.h"

#include <array>
#include <cstring>
#include <fcntl.h>

gv_model_info_t g_model;
int hal_num_logical_ports;
int hal_num_physical_ports;
// Owned by other components of the system; exported for them, never written here.
int hal_num_trunk_port;

namespace gv::model {

namespace {

constexpr unsigned long kModelRequest = 0x89F0;
constexpr const char *kModelControl = "/proc/shape/ioctrl";

// Field of each kind in the record. Kind 7 is stored before kind 6.
constexpr std::array<int, 10> kKindField = {0, 1, 2, -1, 3, 4, 6, 5, 7, 8};

} // namespace

int port_count(unsigned kind) noexcept {
    if (kind >= kKindField.size() || kKindField[kind] < 0) {
        return 0;
    }
    return load_be32(g_model.port_count[kKindField[kind]]);
}

} // namespace gv::model

using namespace gv::model;

int init_switch_model_info() noexcept {
    const int fd = gv::os::open_path(kModelControl, O_RDONLY);
    if (fd < 0) {
        return -1;
    }
    // The kernel's own reply buffer is larger than the record it fills.
    std::array<std::byte, 512> reply;
    // The driver answers this request unconditionally; its result carries nothing.
    (void)gv::os::ioctl_reply(fd, kModelRequest, reply);
    gv::os::close_fd(fd);
    std::memcpy(&g_model, reply.data(), sizeof g_model);
    hal_num_logical_ports = port_count(kTotalPorts);
    hal_num_physical_ports = port_count(kPhysicalPorts);
    return 1;
}

char *get_model_name() noexcept {
    return g_model.model_name;
}

char *get_real_model_name() noexcept {
    return g_model.real_model_name;
}

int is_enable_l3() noexcept {
    return g_model.l3_enabled;
}

int get_port_num(unsigned int kind) noexcept {
    return port_count(kind);
}

int get_slot_number() noexcept {
    return slot_count();
}

int get_start_slot() noexcept {
    return 1;
}

int get_port_number_per_slot(int slot_index) noexcept {
    return ports_at(slot_index);
}

int get_max_slotport_cnt() noexcept {
    int most = 0;
    for (int i = 0; i < described_slots(); ++i) {
        if (ports_at(i) > most) {
            most = ports_at(i);
        }
    }
    return most;
}

int trunk_port_max5() noexcept {
    return port_count(kLogicalCapacity) == 5 ? 1 : 0;
}

int trunk_port_max14() noexcept {
    return port_count(kLogicalCapacity) == 14 ? 1 : 0;
}

int is_support_ingress_rate_limit() noexcept {
    return 1;
}
