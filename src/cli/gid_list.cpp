// Group ids 0..limit-1 typed by the operator ("5,3-4"), gathered in the
// module bitmap g_array and answered sorted, each once.
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/platform.h"
#include "gvutil/sys.h"
#include "sys/items.h"
#include "sys/operator_message.h"
#include "sys/text_builder.h"

#include <algorithm>
#include <cstring>

uint32_t g_array[GV_GID_ARRAY_WORDS];

namespace {

using gv::sys::ItemText;
using gv::sys::say;

constexpr int kGroupBits = GV_GID_ARRAY_WORDS * 32;

// Sets bits first..last of g_array; bits past its end are not there to set.
void mark(int first, int last) noexcept {
    for (int id = first; id <= std::min(last, kGroupBits - 1); ++id) {
        set(g_array, id);
    }
}

// Errors never end the list: each bad item is reported and the rest read.
void read_group_item(const char *text, int limit, const cli_ctx *ctx) noexcept {
    const std::string_view piece(text);
    const gv::sys::Halves halves = gv::sys::cut_at(piece, '-');
    if (!halves.cut) {
        const int id = stoi(text);
        if (id < 0) {
            say(ctx, "%%Invalid input parameter: %s\n", text);
        } else if (id >= limit) {
            say(ctx, "%%Invalid range: %s [0-%d]\n", text, limit - 1);
        } else {
            mark(id, id);
        }
        return;
    }
    const int low = stoi(ItemText(halves.left).c_str());
    int high = stoi(ItemText(halves.right).c_str());
    if (low < 0 || high < 0) {
        say(ctx, "%%Invalid input parameter: %s\n", text);
        return;
    }
    if (low >= limit) {
        say(ctx, "%%Invalid range: %s [0-%d]\n", text, limit - 1);
        return;
    }
    if (low > high) { // an equal pair (4-4) names one group
        say(ctx, "%%Invalid sequence order: %s\n", text);
        return;
    }
    if (high >= limit) {
        say(ctx, "%%Invalid range: %s [0-%d]\n", text, limit - 1);
        // One past the last group: its bit is set too, and never reported.
        high = limit;
    }
    mark(low, high);
}

} // namespace

int get_gid_list(char *text, uint32_t *out, int limit, cli_ctx *ctx) noexcept {
    if (text == nullptr || out == nullptr || ctx == nullptr) {
        return 0;
    }
    // g_array holds 288 groups: a larger limit is taken as 288, a negative one as 0.
    limit = std::clamp(limit, 0, kGroupBits);
    std::memset(g_array, 0, sizeof g_array);
    char *cursor = text;
    for (char *item = gv::sys::next_element(cursor); item != nullptr;
         item = gv::sys::next_element(cursor)) {
        read_group_item(item, limit, ctx);
    }
    int count = 0;
    for (int id = 0; id < limit; ++id) {
        if (chk(g_array, id) != 0) {
            out[count++] = static_cast<uint32_t>(id);
        }
    }
    return count;
}
