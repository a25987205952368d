// A shell output context that records what the library prints through it,
// and the table runner of the operator-text parser tests.
#pragma once

#include "gvutil/cli.h"
#include "gvutil/platform.h"

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

namespace gvtest {

class CliCapture {
  public:
    CliCapture();
    CliCapture(const CliCapture &) = delete;
    CliCapture &operator=(const CliCapture &) = delete;

    // The context to hand to the library; its output function formats each
    // call with vsnprintf and appends the text.
    cli_ctx *ctx() { return &ctx_; }
    const std::string &text() const { return text_; }
    // Answers what was printed since the last call, and forgets it.
    std::string take();

  private:
    static int record(void *arg, const char *format, ...);
    cli_ctx ctx_;
    std::string text_;
};

// What a parser stored, as the tables write it: "1-4 7-7" for value ranges,
// "1/3-7 2/1-2" for slot (or mapper) port ranges, "1 2 3" for flat lists.
template <typename T> std::string shown(const T &item) {
    if constexpr (std::is_integral_v<T>) {
        return std::to_string(item);
    } else if constexpr (requires { item.low; }) {
        return shown(item.low) + "-" + shown(item.high);
    } else {
        const auto &[where, first, last] = item;
        return shown(where) + "/" + shown(first) + "-" + shown(last);
    }
}
template <typename T> std::string shown(const T *stored, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += (i == 0 ? "" : " ") + shown(stored[i]);
    }
    return text;
}
// Followed by the errors the parser counted: "1/3-7 errs=0", "errs=1".
inline std::string with_errors(const std::string &stored, uint32_t errs) {
    return stored + (stored.empty() ? "" : " ") + "errs=" + std::to_string(errs);
}

// One row: the text typed, what the parser stored and what it printed; a
// column left out is empty.
struct ParseRow {
    const char *text;
    std::string stored = {};
    std::string printed = {};
};

// Parses text through ctx (null for a quiet call); answers what it stored.
using ParseCall = std::function<std::string(const char *text, cli_ctx *ctx)>;

enum class Context {
    kRecording, // each row through a recording context
    kBoth,      // and again without one, which must store the same
    kNone,      // only without a context
};

void expect_rows(const ParseCall &call, const std::vector<ParseRow> &rows,
                 Context context = Context::kRecording);

// The calls of the value parsers that take a max: ranges, or the flat list.
ParseCall value_token(int (*parser)(const char *, value_range *, int, cli_ctx *), int max);
ParseCall value_list(int (*parser)(const char *, uint32_t *, int, cli_ctx *), int max);

} // namespace gvtest
