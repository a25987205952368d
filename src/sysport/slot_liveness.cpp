// Whether a slot holds a running board, as /proc/all_info lists the slots:
// the slot number, then the board's name or "-" for none.
#include "gvutil/sysport.h"
#include "os/os.h"

#include <charconv>
#include <cstdio>
#include <string_view>

namespace {

constexpr std::size_t kInfoLine = 1024;
constexpr std::string_view kBlanks = " \t\r\n";

} // namespace

int is_alive_slot(int slot) noexcept {
    std::FILE *file = gv::os::open_stream("/proc/all_info", "r");
    if (file == nullptr) {
        return 0;
    }
    int alive = 0;
    char line[kInfoLine];
    while (std::fgets(line, sizeof line, file) != nullptr) {
        // As "%d %s" reads it: the leading number, then the next word.
        const std::string_view text(line);
        const std::size_t start = text.find_first_not_of(kBlanks);
        int number = 0;
        const char *end = text.data() + text.size();
        const auto [after, error] = start == std::string_view::npos
                                        ? std::from_chars_result{end, std::errc::invalid_argument}
                                        : std::from_chars(text.data() + start, end, number);
        if (error != std::errc{} || number != slot) {
            continue;
        }
        const std::string_view rest(after, static_cast<std::size_t>(end - after));
        const std::size_t word = rest.find_first_not_of(kBlanks);
        if (word == std::string_view::npos) {
            continue; // no second word: a later line of that slot decides
        }
        alive = rest.substr(word, rest.find_first_of(kBlanks, word) - word) != "-" ? 1 : 0;
        break;
    }
    std::fclose(file);
    return alive;
}
