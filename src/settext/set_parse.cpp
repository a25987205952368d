// Port and bridge sets parsed from range text back into bitmaps.
#include "gvutil/model.h"
#include "gvutil/settext.h"
#include "sys/items.h"
#include "sys/operator_message.h"
#include "sys/text_builder.h"

#include <cstring>
#include <string_view>

namespace {

using gv::sys::ItemText;

// What separates getportset from getbrset.
struct SetGrammar {
    bool trunk_letter;         // 't' may start the text and appear in it
    const char *wrong_message; // printed on the standard error stream
    std::size_t cleared_bytes; // of the output bitmap
    int capacity;              // members beyond it are counted, never set
    bool stops_at_non_digit;   // a token not starting with a digit ends the parse
};

constexpr SetGrammar kPortGrammar = {
    true, "%%Wrong expression. ex) 'show port 1,3' , 'show port 1-3,10' , 'show port 1/2-t/4' \n",
    sizeof(portset_t), GV_PORTSET_MAX_PORT, false};

constexpr SetGrammar kBridgeGrammar = {
    false, "%%Wrong expression. ex) 'show port 1,3' , 'show port 1-3,10' , 'show port 1/2' \n",
    GV_ID_SET_WORDS * sizeof(uint32_t), GV_ID_SET_MAX_ID, true};

bool allowed_character(char c, const SetGrammar &grammar) noexcept {
    return gv::sys::is_decimal_digit(c) || c == ',' || c == '-' || c == '/' ||
           (grammar.trunk_letter && c == 't');
}

bool well_formed(std::string_view text, const SetGrammar &grammar) noexcept {
    if (text.empty() || !(gv::sys::is_decimal_digit(text.front()) ||
                          (grammar.trunk_letter && text.front() == 't'))) {
        return false;
    }
    for (char c : text) {
        if (!allowed_character(c, grammar)) {
            return false;
        }
    }
    return true;
}

// The member number of one end of a token, 0 when it is none.
int member_of(std::string_view end) noexcept {
    return make_port_number(ItemText(end).c_str());
}

// Sets first..last (those within the capacity); answers how many were named.
int set_members(uint32_t *bits, int first, int last, const SetGrammar &grammar) noexcept {
    for (int member = first; member <= last && member <= grammar.capacity; ++member) {
        set(bits, member - 1);
    }
    return last - first + 1;
}

// Members of one token added to the bitmap; -1 when the token is bad.
int parse_token(std::string_view token, int max, uint32_t *bits,
                const SetGrammar &grammar) noexcept {
    const gv::sys::Halves range = gv::sys::cut_at(token, '-');
    const int first = member_of(range.left);
    if (first < 1 || first > max) {
        return -1;
    }
    if (!range.cut) {
        return set_members(bits, first, first, grammar);
    }
    const int last = member_of(range.right);
    if (range.right.empty() || last < 1 || last > max || last < first) {
        return -1;
    }
    return set_members(bits, first, last, grammar);
}

int parse_set(const char *text, int max, uint32_t *bits, const SetGrammar &grammar) noexcept {
    const std::string_view list = text != nullptr ? text : "";
    if (!well_formed(list, grammar)) {
        gv::sys::say_to_stderr(grammar.wrong_message);
        return 0;
    }
    std::memset(bits, 0, grammar.cleared_bytes);
    int count = 0;
    bool failed = false;
    gv::sys::for_each_element(list, [&](std::string_view token) noexcept {
        if (grammar.stops_at_non_digit && !gv::sys::is_decimal_digit(token.front())) {
            return false; // the count so far stands
        }
        const int members = parse_token(token, max, bits, grammar);
        failed = members < 0; // the bits set so far stay set
        count += failed ? 0 : members;
        return !failed;
    });
    return failed ? 0 : count;
}

} // namespace

int getportset(const char *text, int max, portset_t *set) noexcept {
    return set != nullptr ? parse_set(text, max, set->bits, kPortGrammar) : 0;
}

int getbrset(const char *text, int max, uint32_t *set) noexcept {
    return set != nullptr ? parse_set(text, max, set, kBridgeGrammar) : 0;
}
