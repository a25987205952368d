// Range lists printed back as list text: ids ("1-5,8") or port texts.
#include "gvutil/platform.h"
#include "gvutil/porttext.h"
#include "gvutil/range.h"
#include "sys/member_text.h"
#include "sys/runs.h"
#include "sys/text_builder.h"

#include <cstring>
#include <string_view>

namespace {

using gv::sys::ConvertedText;
using gv::sys::Decimal;

// "first" or "first-last" of one node, each end through text_of.
using Piece = gv::sys::FixedText<2 * ConvertedText::kSize + 2>;

template <typename TextOf> Piece piece_of(const id_range &node, TextOf text_of) noexcept {
    Piece piece(text_of(node.start));
    if (node.start != node.end) {
        piece.append("-");
        piece.append(text_of(node.end));
    }
    return piece;
}

// Stops before a piece whose text, with room for a "," and the terminator,
// would reach size; what was written stays, its "," included.
template <typename TextOf>
int write_range_text(const id_range *list, char *out, int size, TextOf text_of) noexcept {
    const std::size_t room = out != nullptr && size > 0 ? static_cast<std::size_t>(size) : 0;
    gv::sys::TextBuilder text(out, room);
    for (const id_range *node = list; node != nullptr; node = node->next) {
        const Piece piece = piece_of(*node, text_of);
        if (text.size() + piece.view().size() + 2 >= room) {
            return 1;
        }
        text.append(piece);
        if (node->next != nullptr) {
            text.append(",");
        }
    }
    return 0;
}

Decimal id_text(int id) noexcept {
    return Decimal(id);
}

ConvertedText port_text(int pnum) noexcept {
    return ConvertedText(pnum, sputil_mk_string_from_int_port);
}

// The text buffer of out_range, taken from the heap for each call.
constexpr int kOutRangeText = 10240;

} // namespace

int make_range_str(const id_range *list, char *out, int size) noexcept {
    return write_range_text(list, out, size, id_text);
}

int make_range_str_port(const id_range *list, char *out, int size) noexcept {
    return write_range_text(list, out, size, port_text);
}

int out_range(cli_ctx *ctx, const id_range *list, const char *label) noexcept {
    auto *text = static_cast<char *>(p_malloc(kOutRangeText));
    if (text == nullptr) {
        return 0;
    }
    std::memset(text, 0, kOutRangeText);
    make_range_str(list, text, kOutRangeText);
    if (ctx != nullptr) {
        gv_cli_out(ctx, "%s %s%s", label != nullptr ? label : "", text, "\n");
    }
    p_free(text);
    return 1;
}
