// Per-port VLAN values printed as command lines: the VLANs of a port that
// share a value become one VLAN text, and ports with the same VLAN text and
// value share one line.
#include "cli/command_line.h"
#include "cli/run_text.h"
#include "gvutil/cli.h"
#include "sys/operator_message.h"
#include "sys/work_buffer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <span>

namespace {

using gv::cli::CommandLine;

// The shell lays these records out in its own C code.
static_assert(sizeof(vp_info_t) == 6);
static_assert(sizeof(pvsi_info_t) == 260 && offsetof(pvsi_info_t, value) == 258);

bool untaken(const vp_info_t &entry) noexcept {
    return entry.port < GV_PVSI_TAKEN;
}

// Groups the entries by port and value into the table; answers how many
// groups it holds. Entries left when the table is full stay untaken.
int group_by_port(std::span<vp_info_t> entries, std::span<pvsi_info_t> table) noexcept {
    std::size_t held = 0;
    auto first = entries.begin();
    while (held < table.size()) {
        first = std::find_if(first, entries.end(), untaken);
        if (first == entries.end()) {
            break;
        }
        const uint8_t port = first->port;
        const uint16_t value = first->value;
        gv::cli::VlanIds ids;
        for (auto entry = first; entry != entries.end() && !ids.full(); ++entry) {
            if (entry->port == port && entry->value == value) {
                ids.add(entry->br_id);
                entry->port = GV_PVSI_TAKEN;
            }
        }
        pvsi_info_t &group = table[held];
        // A VLAN text longer than the group's 256 characters is cut there.
        if (gv::cli::write_bridge_list(ids.view(), group.br_text, sizeof group.br_text) > 0) {
            group.port = port;
            group.value = value;
            ++held;
        }
    }
    return static_cast<int>(held);
}

} // namespace

int select_port_from_pvsi(pvsi_info_t *groups, int count, uint32_t *out,
                          pvsi_info_t *current) noexcept {
    if (groups == nullptr || out == nullptr || current == nullptr) {
        return 0;
    }
    int first = 0;
    while (first < count && groups[first].port >= GV_PVSI_TAKEN) {
        ++first;
    }
    if (first >= count) {
        return 0;
    }
    current->value = groups[first].value;
    std::memcpy(current->br_text, groups[first].br_text, sizeof current->br_text);
    int taken = 0;
    for (int i = first; i < count; ++i) {
        pvsi_info_t &group = groups[i];
        if (group.value == current->value &&
            std::strncmp(group.br_text, current->br_text, sizeof group.br_text) == 0) {
            out[taken++] = group.port;
            group.port = GV_PVSI_TAKEN;
        }
    }
    return taken;
}

int get_vp_info_cmds(vp_info_t *entries, int count, const char *word, const char *option,
                     const char *tail, cli_ctx *ctx) noexcept {
    if (entries == nullptr || count <= 0) {
        return 0;
    }
    gv::sys::WorkBuffer buffer(GV_PVSI_GROUPS * sizeof(pvsi_info_t));
    if (!buffer.ok()) {
        return 0;
    }
    auto *table = static_cast<pvsi_info_t *>(static_cast<void *>(buffer.data()));
    const int held = group_by_port({entries, static_cast<std::size_t>(count)},
                                   {table, static_cast<std::size_t>(GV_PVSI_GROUPS)});
    std::array<uint32_t, GV_PVSI_GROUPS> ports;
    pvsi_info_t current{};
    int lines = 0;
    while (true) {
        const int taken = select_port_from_pvsi(table, held, ports.data(), &current);
        if (taken <= 0) {
            break;
        }
        char port_text[CommandLine::kSize];
        if (gv::cli::write_port_list({ports.data(), static_cast<std::size_t>(taken)}, port_text,
                                     sizeof port_text) == 0) {
            continue;
        }
        CommandLine line;
        line.word(word).word(current.br_text).word(port_text);
        line.word_if_any(option);
        // 65531 stands for no value in these entries (not -1 as for ports).
        if (current.value != GV_PVSI_NO_VALUE) {
            line.number(current.value);
        }
        line.tail(tail);
        gv::sys::say(ctx, "%s\n", line.c_str());
        ++lines;
    }
    return lines;
}
