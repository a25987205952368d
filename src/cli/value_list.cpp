#include "cli/value_list.h"

#include "gvutil/sys.h"
#include "sys/items.h"
#include "sys/operator_message.h"
#include "sys/text_builder.h"

namespace gv::cli {

namespace {

using sys::ItemText;
using sys::say;

constexpr const char *kNewline = "\n";

value_range make_range(int low, int high) noexcept {
    return {static_cast<uint16_t>(low), static_cast<uint16_t>(high)};
}

// The two ends of a range item, read with stoi (-1 for what is not a number).
struct Ends {
    int low;
    int high;
};
Ends read_ends(std::string_view item) noexcept {
    const sys::Halves halves = sys::cut_at(item, '-');
    return {stoi(ItemText(halves.left).c_str()), stoi(ItemText(halves.right).c_str())};
}

// A range end lowered to a negative max has no 16-bit form: such a range
// keeps nothing (it would otherwise wrap to 65535 and list every value).
void add_lowered(Ends ends, RangeSink<value_range> &out) noexcept {
    if (ends.high >= 0) {
        out.add(make_range(ends.low, ends.high));
    }
}

// A range item of the lenient list: reported and dropped, or kept.
void add_range(const ItemText &item, Ends ends, RangeSink<value_range> &out, int max,
               const cli_ctx *ctx, const ValueWords &words) noexcept {
    if (ends.low < words.lowest || ends.high < words.lowest) {
        const char *format =
            words.end_below_lowest != nullptr ? words.end_below_lowest : words.invalid_range;
        say(ctx, format, item.c_str(), max, kNewline);
        return;
    }
    if (ctx != nullptr && ends.low >= ends.high) {
        say(ctx, words.sequence_order, item.c_str(), kNewline);
        return;
    }
    if (ctx != nullptr && ends.low > max) {
        say(ctx, words.invalid_range, item.c_str(), max, kNewline);
        return;
    }
    // A range reaching past max is kept up to max, unlike a single value.
    if (ends.high > max) {
        say(ctx, words.invalid_range, item.c_str(), max, kNewline);
        ends.high = max;
    }
    add_lowered(ends, out);
}

} // namespace

int parse_values(std::string_view text, RangeSink<value_range> &out, int max, const cli_ctx *ctx,
                 const ValueWords &words) noexcept {
    const bool whole = sys::for_each_element(text, [&](std::string_view piece) noexcept {
        const ItemText item(piece);
        if (piece.front() == '-' && ctx != nullptr) {
            say(ctx, words.invalid_value, item.c_str(), kNewline);
            return false;
        }
        if (!sys::contains(piece, '-')) {
            const int value = stoi(item.c_str());
            if (value < words.lowest && ctx != nullptr) {
                say(ctx, words.invalid_value, item.c_str(), kNewline);
            } else if (value <= max || ctx == nullptr) {
                out.add(make_range(value, value));
            } else {
                say(ctx, words.invalid_range, item.c_str(), max, kNewline);
            }
            return true;
        }
        add_range(item, read_ends(piece), out, max, ctx, words);
        return true;
    });
    return whole ? out.count() : 0;
}

int parse_values_strictly(std::string_view text, RangeSink<value_range> &out, int max,
                          const cli_ctx *ctx, const ValueWords &words) noexcept {
    const bool whole = sys::for_each_element(text, [&](std::string_view piece) noexcept {
        const ItemText item(piece);
        if (piece.front() == '-') {
            say(ctx, words.invalid_value, item.c_str(), kNewline);
            return false;
        }
        if (!sys::contains(piece, '-')) {
            const int value = stoi(item.c_str());
            if (ctx != nullptr && value < 1) {
                say(ctx, words.invalid_value, item.c_str(), kNewline);
                return false;
            }
            if (ctx != nullptr && value > max) {
                say(ctx, words.invalid_range, item.c_str(), max, kNewline);
                return false;
            }
            out.add(make_range(value, value));
            return true;
        }
        Ends ends = read_ends(piece);
        if (ends.low < 1 || ends.high < 1) {
            say(ctx, words.invalid_range, item.c_str(), max, kNewline);
            return false;
        }
        if (ctx != nullptr && ends.low >= ends.high) {
            say(ctx, words.sequence_order, item.c_str(), kNewline);
            return false;
        }
        if (ctx != nullptr && (ends.low > max || ends.high > max)) {
            say(ctx, words.invalid_range, item.c_str(), max, kNewline);
            return false;
        }
        ends.high = ends.high > max ? max : ends.high; // only without a context: kept, lowered
        add_lowered(ends, out);
        return true;
    });
    return whole ? out.count() : 0;
}

int parse_value_token(const char *text, value_range *out, int max, const cli_ctx *ctx,
                      ValueParser parser, const ValueWords &words) noexcept {
    RangeSink<value_range> sink(out, RangeSink<value_range>::kUnbounded);
    return text != nullptr ? parser(text, sink, max, ctx, words) : 0;
}

} // namespace gv::cli
