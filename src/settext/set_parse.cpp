// Port and bridge sets parsed from range text back into bitmaps.
//
// The text is read in one pass: its characters are checked as each token is
// cut out, members go into a bitmap of the call's own, and the caller's
// bitmap receives it only when every character was allowed (a bad character
// anywhere leaves it untouched, as the check of the whole text before the
// parse always did). Ranges are filled a word at a time.
#include "gvutil/model.h"
#include "gvutil/settext.h"
#include "sys/bit_runs.h"
#include "sys/items.h"
#include "sys/operator_message.h"
#include "sys/scan.h"

#include <array>
#include <cstring>
#include <limits>
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

bool allowed_start(const char *text, const SetGrammar &grammar) noexcept {
    return gv::sys::is_decimal_digit(*text) || (grammar.trunk_letter && *text == 't');
}

// A token of the list: its text, the offset of its first '-' (npos without
// one), and, when it is plain digits or digits '-' digits (each side at most
// 255 of them), the numbers atoi reads from its sides, taken during the scan.
struct Token {
    std::string_view text;
    std::size_t dash = std::string_view::npos;
    bool plain = false;
    int left = 0;
    int right = 0;
};

// The number of the digits at p as atoi reads them (the nearest int beyond
// the range); p is left after them. The text's terminator ends them.
int take_digits(const char *&p) noexcept {
    constexpr long long kMost = std::numeric_limits<int>::max();
    long long magnitude = 0; // stops growing once beyond kMost
    for (; gv::sys::is_decimal_digit(*p); ++p) {
        if (magnitude <= kMost) {
            magnitude = magnitude * 10 + (*p - '0');
        }
    }
    return static_cast<int>(magnitude < kMost ? magnitude : kMost);
}

// The member number one end of a token names, 0 when it is none. Without
// slots make_port_number reads the end as atoi reads its 255-character copy,
// which a plain token has already done.
class MemberReader {
  public:
    MemberReader() noexcept : slotless_(get_slot_number() == 0) {}
    int left(const Token &token) const noexcept {
        return token.plain && slotless_ ? token.left : read(token.text.substr(0, token.dash));
    }
    int right(const Token &token) const noexcept {
        return token.plain && slotless_ ? token.right : read(token.text.substr(token.dash + 1));
    }

  private:
    int read(std::string_view end) const noexcept {
        if (slotless_) {
            return gv::sys::read_int(end.substr(0, gv::sys::kItemSize - 1));
        }
        return make_port_number(ItemText(end).c_str());
    }
    bool slotless_;
};

// The answer counts every member each token names, repeats included; a count
// beyond what an int holds stays at the largest one, still a success.
int add_members(int count, int members) noexcept {
    constexpr int kMost = std::numeric_limits<int>::max();
    return members > kMost - count ? kMost : count + members;
}

// What one token adds to the bitmap: the number of members it names (set
// as far as the capacity reaches), kBadToken, or kStop for a bridge token
// that ends the parse with the count so far.
constexpr int kBadToken = -1;
constexpr int kStop = 0;

template <const SetGrammar &grammar>
int take_token(const Token &token, int max, const MemberReader &member, uint32_t *bits) noexcept {
    if (grammar.stops_at_non_digit && !gv::sys::is_decimal_digit(token.text.front())) {
        return kStop;
    }
    const bool range = token.dash != std::string_view::npos;
    const int first = member.left(token);
    const int last = range ? member.right(token) : first;
    if (first < 1 || first > max ||
        (range &&
         (token.dash + 1 == token.text.size() || last < 1 || last > max || last < first))) {
        return kBadToken;
    }
    const int set_last = last < grammar.capacity ? last : grammar.capacity;
    if (first <= set_last) {
        gv::sys::set_bit_range(bits, first - 1, set_last - 1);
    }
    return last - first + 1;
}

// Cuts the token at p (up to the next ',' or the terminator); p is left
// after it. False when it holds a character the grammar refuses. Digits are
// read as they are passed; whatever else the token holds is only checked.
template <const SetGrammar &grammar> bool cut_token(const char *&p, Token &token) noexcept {
    const char *start = p;
    token.left = take_digits(p);
    token.right = 0;
    token.dash = std::string_view::npos;
    if ((*p == ',' || *p == '\0') && p - start < static_cast<std::ptrdiff_t>(gv::sys::kItemSize)) {
        token.plain = true; // a lone number, the most common token
        token.text = {start, static_cast<std::size_t>(p - start)};
        return true;
    }
    bool plain = p - start < static_cast<std::ptrdiff_t>(gv::sys::kItemSize);
    if (*p == '-') {
        token.dash = static_cast<std::size_t>(p - start);
        const char *right = ++p;
        token.right = take_digits(p);
        plain = plain && p - right < static_cast<std::ptrdiff_t>(gv::sys::kItemSize);
    }
    token.plain = plain && (*p == ',' || *p == '\0');
    bool allowed = true;
    for (; *p != ',' && *p != '\0'; ++p) {
        allowed = allowed && allowed_character(*p, grammar);
        if (*p == '-' && token.dash == std::string_view::npos) {
            token.dash = static_cast<std::size_t>(p - start);
        }
    }
    token.text = {start, static_cast<std::size_t>(p - start)};
    return allowed;
}

// One parse per grammar, so that its choices are constants of the loop.
template <const SetGrammar &grammar>
int parse_set(const char *text, int max, uint32_t *bits) noexcept {
    const char *p = text != nullptr ? text : "";
    bool well_formed = allowed_start(p, grammar);
    const MemberReader member;
    uint32_t parsed[GV_ID_SET_WORDS];
    std::memset(parsed, 0, grammar.cleared_bytes);
    int count = 0;
    int last_taken = 1; // what the last token taken answered
    // Elements as strtok finds them: empty ones are skipped.
    while (well_formed && *p != '\0') {
        Token token;
        well_formed = cut_token<grammar>(p, token);
        if (well_formed && last_taken > 0 && !token.text.empty()) {
            last_taken = take_token<grammar>(token, max, member, parsed);
            count = last_taken > 0 ? add_members(count, last_taken) : count;
        }
        p += *p == ',' ? 1 : 0;
    }
    if (!well_formed) {
        gv::sys::say_to_stderr(grammar.wrong_message);
        return 0;
    }
    // The members set before a bad token stay set.
    std::memcpy(bits, parsed, grammar.cleared_bytes);
    return last_taken == kBadToken ? 0 : count;
}

} // namespace

int getportset(const char *text, int max, portset_t *set) noexcept {
    return set != nullptr ? parse_set<kPortGrammar>(text, max, set->bits) : 0;
}

int getbrset(const char *text, int max, uint32_t *set) noexcept {
    return set != nullptr ? parse_set<kBridgeGrammar>(text, max, set) : 0;
}
