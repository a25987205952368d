// Configuration entries that share a value printed as one command line each:
// per-VLAN values and per-port values.
#include "cli/command_line.h"
#include "cli/run_text.h"
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/platform.h"
#include "sys/operator_message.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

using gv::cli::CommandLine;
using gv::cli::has_text;
using gv::cli::or_empty;

// Port entries read at most: as many as a port set holds. A live entry's
// port is below 255, so a longer list could only repeat ports.
constexpr int kMostPortEntries = GV_PORTSET_MAX_PORT;

// Hands each group of ports that select_port yields, as port text, to
// line(value, text); answers the number of lines.
template <typename Line> int port_group_lines(port_info_t *entries, int count, Line line) noexcept {
    if (entries == nullptr) {
        return 0;
    }
    const int walked = std::min(count, kMostPortEntries);
    std::array<uint32_t, kMostPortEntries> ports;
    uint32_t value = 0;
    int lines = 0;
    while (true) {
        const int taken = select_port(entries, walked, ports.data(), &value);
        if (taken <= 0) {
            return lines;
        }
        char text[CommandLine::kSize];
        if (gv::cli::write_port_list({ports.data(), static_cast<std::size_t>(taken)}, text,
                                     sizeof text) > 0) {
            line(static_cast<int>(value), text);
            ++lines;
        }
    }
}

} // namespace

int get_br_info_cmds(br_info_t *pairs, int count, const char *word, const char *option,
                     const char *tail, cli_ctx *ctx) noexcept {
    if (pairs == nullptr) {
        return 0;
    }
    int lines = 0;
    for (int i = 0; i < count; ++i) {
        // A pair whose VLAN is 0 holds none, or has given it up already.
        if (pairs[i].br_id == 0) {
            continue;
        }
        const uint16_t value = pairs[i].key;
        gv::cli::VlanIds ids;
        for (int j = i; j < count && !ids.full(); ++j) {
            if (pairs[j].br_id != 0 && pairs[j].key == value) {
                ids.add(pairs[j].br_id);
                pairs[j].br_id = 0;
            }
        }
        char text[gv::cli::VlanIds::kTextSize];
        if (gv::cli::write_bridge_list(ids.view(), text, sizeof text) == 0) {
            continue;
        }
        if (has_text(option)) {
            gv::sys::say(ctx, "%s %s %s %d %s\n", or_empty(word), text, option,
                         static_cast<int>(value), or_empty(tail));
        } else {
            gv::sys::say(ctx, "%s %s %d %s\n", or_empty(word), text, static_cast<int>(value),
                         or_empty(tail));
        }
        ++lines;
    }
    return lines;
}

int get_info_port_cmds(port_info_t *entries, int count, const char *word, const char *option,
                       const char *tail, cli_ctx *ctx) noexcept {
    return port_group_lines(entries, count, [&](int value, const char *ports) noexcept {
        CommandLine line;
        line.word(word).number(value).word_if_any(option).word(ports).tail(tail);
        gv::sys::say(ctx, "%s\n", line.c_str());
    });
}

int get_port_info_cmds(port_info_t *entries, int count, const char *word, const char *option,
                       const char *tail, cli_ctx *handle) noexcept {
    return port_group_lines(entries, count, [&](int value, const char *ports) noexcept {
        CommandLine line;
        line.word(word).word(ports).word_if_any(option);
        // -1 is the value these entries carry when they have none.
        if (value != -1) {
            line.number(value);
        }
        line.tail(tail);
        if (handle != nullptr) {
            gv_cli_out(handle, "%s%s", line.c_str(), "\n");
        }
    });
}
