// A host build links GNU readline. A library built without it takes the
// shell's readline when the shell loads it: the reference is weak, so the
// library links with that one symbol open, and a process that has no line
// reader at all reads as the end of input.
#include "os/console.h"

#include "gvutil/platform.h"

#include <cstdlib>

#if !GVUTIL_WITH_READLINE
extern "C" __attribute__((weak)) char *readline(const char *prompt);
#endif

namespace gv::os {

char *read_line(const char *prompt) noexcept {
#if !GVUTIL_WITH_READLINE
    char *(*const reader)(const char *) = &readline;
    if (reader == nullptr) {
        return nullptr;
    }
#endif
    return ::readline(prompt);
}

void free_line(char *line) noexcept {
    std::free(line); // NOLINT(cppcoreguidelines-no-malloc): readline's lines come from malloc
}

} // namespace gv::os
