// Operator input at the console: a line of text, or a number within bounds
// that is asked for again until it fits.
#include "gvutil/sys.h"
#include "os/console.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr std::size_t kPromptSize = 296;

} // namespace

int input_string(const char *prompt, char *buffer) noexcept {
    if (buffer == nullptr) {
        return -1;
    }
    buffer[0] = '\0';
    char *line = gv::os::read_line(prompt);
    if (line == nullptr) {
        return -1;
    }
    // Unbounded: the caller's buffer holds a whole line, as it always had to.
    std::strcpy(buffer, line); // NOLINT(clang-analyzer-security.insecureAPI.strcpy)
    gv::os::free_line(line);
    return static_cast<int>(std::strlen(buffer));
}

int input_value(const char *prompt, int low, int high, int initial) noexcept {
    const char *first = prompt != nullptr ? prompt : "";
    char current[kPromptSize];
    std::snprintf(current, sizeof current, "%s", first);
    for (;;) {
        char *line = gv::os::read_line(current);
        if (line == nullptr) {
            return -1;
        }
        const bool empty = line[0] == '\0';
        const int value = empty ? initial : stoi(line);
        gv::os::free_line(line);
        if (empty) {
            return initial;
        }
        // A text that is no number reads as -1: refused unless -1 is in range.
        if (value >= low && value <= high) {
            return value;
        }
        std::snprintf(current, sizeof current, "Input again within range : %d - %d\n%s", low, high,
                      first);
    }
}
