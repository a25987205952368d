// Operator messages. Everything the token parsers and argument checks tell the
// operator goes through here, so a null shell context (quiet checking) is
// honoured in one place.
#pragma once

#include "gvutil/platform.h"

#include <cstdint>
#include <type_traits>

namespace gv::sys {

// Prints one message through the shell's output context: out_func receives
// the context's out_arg, then the format and the arguments unchanged, so the
// shell sees exactly the printf call the operator's message needs. A null
// context, or one without an output function, prints nothing.
//
//     say(ctx, "%%Invalid slot id range: %s\n", item.c_str());
template <typename... Args>
void say(const cli_ctx *ctx, const char *format, Args... args) noexcept {
    static_assert(((std::is_arithmetic_v<Args> || std::is_pointer_v<Args>)&&...),
                  "printf arguments only: numbers and C strings");
    if (ctx != nullptr && ctx->out_func != nullptr) {
        ctx->out_func(ctx->out_arg, format, args...);
    }
}

// Adds one rejected item to the caller's error counter; a null counter is
// allowed and counts nothing. The parsers never lower or reset it.
inline void count_error(std::uint32_t *errs) noexcept {
    if (errs != nullptr) {
        ++*errs;
    }
}

// The few parsers that report on the standard error stream instead of the
// shell (the set-text parsers) print through this; the format is a message
// of the same kind ("%%Wrong expression...").
void say_to_stderr(const char *format, ...) noexcept;

} // namespace gv::sys
