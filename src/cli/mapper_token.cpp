// Mapper/GEM-port items typed by the operator ("1/3", "1/3-2/5", "1/3-7"),
// as ranges per mapper and as GEM indexes (port + per * (mapper - 1)).
#include "cli/range_sink.h"
#include "cli/slot_port_list.h"
#include "cli/value_list.h"
#include "gvutil/cli.h"
#include "gvutil/platform.h"
#include "gvutil/sys.h"
#include "sys/items.h"
#include "sys/operator_message.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace {

using gv::cli::RangeSink;
using gv::sys::ItemText;
using gv::sys::say;

constexpr int kHighestMapper = 32;
constexpr const char *kNewline = "\n";

// An endpoint of the list; the list grammar calls the mapper its slot.
struct MapperGemPair {
    int slot;
    int port;
};

struct MapperGemPorts {
    cli_ctx *ctx;
    uint32_t *errs;
    int per;

    template <typename... Args> bool fail(const char *format, Args... args) const noexcept {
        gv::sys::count_error(errs);
        say(ctx, format, args...);
        return false;
    }
    // The GEM port is kept in 8 bits, as in a slot/port item.
    bool read(std::string_view endpoint, MapperGemPair &pair) const noexcept {
        const ItemText text(endpoint);
        const gv::sys::Halves halves = gv::sys::cut_at(endpoint, '/');
        if (halves.cut) {
            pair.slot = stoi(ItemText(halves.left).c_str());
            pair.port = static_cast<uint8_t>(stoi(ItemText(halves.right).c_str()));
        }
        if (!halves.cut || pair.slot == 0 || pair.port == 0) {
            return fail("%%Invalid input parameter: %s%s", text.c_str(), kNewline);
        }
        if (pair.slot < 1 || pair.slot > kHighestMapper) {
            return fail("%%Invalid mapper number range: %s%s", text.c_str(), kNewline);
        }
        if (pair.port > per) {
            pair.port = per;
            return fail("%%range error: %s [%d/1-%d]%s", text.c_str(), pair.slot, per, kNewline);
        }
        return true;
    }
    ItemText port_only_end(const gv::sys::Halves &range, const ItemText &) const noexcept {
        return gv::cli::same_slot_end(range.left, range.right);
    }
    int last_port(int) const noexcept { return per; }
    void report_order(const ItemText &item) const noexcept {
        fail("%%Invalid sequence order: %s%s", item.c_str(), kNewline);
    }
};

int read_mapper_gem_ports(const char *text, RangeSink<mapper_gem_range> &out, uint32_t *errs,
                          int per, cli_ctx *ctx) noexcept {
    if (text == nullptr) {
        return 0;
    }
    MapperGemPorts policy{ctx, errs, per};
    gv::cli::parse_slot_port_list<MapperGemPair>(
        text, policy, [&out](const gv::cli::SlotPorts &ports) noexcept {
            out.add({static_cast<uint16_t>(ports.slot), static_cast<uint8_t>(ports.first_port),
                     static_cast<uint8_t>(ports.last_port)});
        });
    return out.count();
}

// Names an index above max for the operator. The two expressions are the
// shell's own: the mapper counts from 0 and the last port of a mapper shows
// as 0, and operators read the message that way.
void report_index_above_max(long long index, int per, const cli_ctx *ctx) noexcept {
    char shown[256] = {};
    std::snprintf(shown, sizeof shown, "%lld/%lld", (index - 1) / per, index - (index / per) * per);
    say(ctx, "%%check if it is suitable parameter : %s, %d%s", shown, static_cast<int>(index),
        kNewline);
}

} // namespace

static_assert(sizeof(mapper_gem_range) == 4);

int get_mapper_gemport_token(const char *text, mapper_gem_range *out, uint32_t *errs, int per,
                             cli_ctx *ctx) noexcept {
    RangeSink<mapper_gem_range> sink(out, RangeSink<mapper_gem_range>::kUnbounded);
    return read_mapper_gem_ports(text, sink, errs, per, ctx);
}

int get_mapper_gemport(const char *text, uint32_t *out, int max, int per, cli_ctx *ctx) noexcept {
    if (text == nullptr || out == nullptr) {
        return 0;
    }
    uint32_t errors = 0;
    std::array<mapper_gem_range, gv::cli::kLocalRanges> ranges;
    RangeSink<mapper_gem_range> sink(ranges.data(), ranges.size());
    const int count = read_mapper_gem_ports(text, sink, &errors, per, ctx);
    int written = 0;
    // Any bad item discards the whole list; every port is then 1..per.
    for (int i = 0; errors == 0 && i < count; ++i) {
        const mapper_gem_range &range = ranges[static_cast<std::size_t>(i)];
        for (int port = range.first_gem; port <= range.last_gem; ++port) {
            const long long index = port + static_cast<long long>(per) * (range.mapper - 1);
            if (index > max) {
                report_index_above_max(index, per, ctx);
                return 0;
            }
            // Each index once, in the order first seen.
            if (!gv::cli::listed_before(out, written, static_cast<uint32_t>(index))) {
                out[written++] = static_cast<uint32_t>(index);
            }
        }
    }
    if (written == 0 && errors == 0) {
        say(ctx, "%%Invaild parameter %s%s", text, kNewline);
    }
    return written;
}
