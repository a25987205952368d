#include "sys/operator_message.h"

#include <cstdarg>
#include <cstdio>

namespace gv::sys {

void say_to_stderr(const char *format, ...) noexcept {
    va_list args;
    va_start(args, format);
    std::vfprintf(stderr, format, args);
    va_end(args);
}

} // namespace gv::sys
