// The command shell's formatted output: the text is formatted here and handed
// to the context's output function as one "%s" argument, as the shell's own
// gv_cli_out does.
#include "gvsim/gvsim.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace {

// Lines are formatted on the stack; a longer text gets a heap buffer of its size.
constexpr std::size_t kLineSize = 1024;

} // namespace

int gv_cli_out(struct cli_ctx *ctx, const char *format, ...) {
    if (ctx == nullptr || ctx->out_func == nullptr || format == nullptr) {
        return 0;
    }
    va_list args;
    va_start(args, format);
    va_list again;
    va_copy(again, args);
    char line[kLineSize];
    const int length = std::vsnprintf(line, sizeof line, format, args);
    va_end(args);
    int printed = 0;
    if (length < 0) {
        printed = -1;
    } else if (static_cast<std::size_t>(length) < sizeof line) {
        printed = ctx->out_func(ctx->out_arg, "%s", line);
    } else {
        char *text = static_cast<char *>(std::malloc(static_cast<std::size_t>(length) + 1));
        if (text == nullptr) {
            printed = -1;
        } else {
            std::vsnprintf(text, static_cast<std::size_t>(length) + 1, format, again);
            printed = ctx->out_func(ctx->out_arg, "%s", text);
            std::free(text);
        }
    }
    va_end(again);
    return printed;
}
