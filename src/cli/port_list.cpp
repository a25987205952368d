// The flat pnum list of a port list typed by the operator ("1/1-1/4,2/3").
#include "cli/shell_slot_ports.h"
#include "cli/value_list.h"
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/platform.h"
#include "sys/operator_message.h"

#include <array>

namespace {

using gv::cli::RangeSink;
using gv::sys::say;

int list_without_slots(const char *text, uint32_t *out, int max, const cli_ctx *ctx) noexcept {
    return gv::cli::list_every_value(out, [&](RangeSink<value_range> &sink) noexcept {
        return gv::cli::parse_values(text, sink, max, ctx, gv::cli::kPortWords);
    });
}

} // namespace

int get_port_list(const char *text, uint32_t *out, int max, cli_ctx *ctx) noexcept {
    if (text == nullptr || out == nullptr) {
        return 0;
    }
    if (get_slot_number() == 0) {
        return list_without_slots(text, out, max, ctx);
    }
    uint32_t errors = 0;
    std::array<slot_port_range, gv::cli::kLocalRanges> ranges;
    RangeSink<slot_port_range> sink(ranges.data(), ranges.size());
    const int count = gv::cli::read_shell_slot_ports(text, sink, ctx, &errors);
    int written = 0;
    for (int i = 0; errors == 0 && i < count; ++i) {
        const slot_port_range &range = ranges[static_cast<std::size_t>(i)];
        for (int port = range.first_port; port <= range.last_port; ++port) {
            const int pnum = get_port_number_from_slotport(range.slot, port);
            if (pnum > max) {
                char shown[64] = {};
                convert_p_format_to_s_format(pnum, shown);
                say(ctx, "%%check if it is suitable parameter : %s\n", shown);
                return 0;
            }
            // Each pnum once, in the order first seen.
            if (!gv::cli::listed_before(out, written, static_cast<uint32_t>(pnum))) {
                out[written++] = static_cast<uint32_t>(pnum);
            }
        }
    }
    if (written == 0 && errors == 0) {
        say(ctx, "%%Invaild parameter %s\n", text);
    }
    return written;
}
