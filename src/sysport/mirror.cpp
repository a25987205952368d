// The switch's port mirroring as /proc/switch/mirror shows it: whether it is
// on, and per source port the number shown in its column of the two
// per-port lines (the receive side on line 6, the transmit side on line 9).
#include "gvutil/model.h"
#include "gvutil/sysport.h"
#include "os/os.h"

#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

constexpr const char *kMirrorFile = "/proc/switch/mirror";
// Room for a per-port line of a full bitmap: 1536 columns of three.
constexpr std::size_t kMirrorLine = 8192;
constexpr int kFirstPortLine = 6;
constexpr int kSecondPortLine = 9;
constexpr std::size_t kColumn = 3;

bool is_dec(char c) noexcept {
    return c >= '0' && c <= '9';
}

// Port i sits in the column at 3(i-1); a column that starts with a digit
// holds a number of one or two digits, taken when it names a port.
int read_port_line(std::string_view line, int ports, mirror_entry *list) noexcept {
    int count = 0;
    for (int port = 1; port <= ports; ++port) {
        const std::size_t at = kColumn * static_cast<std::size_t>(port - 1);
        if (at >= line.size()) {
            break;
        }
        if (!is_dec(line[at])) {
            continue;
        }
        int number = line[at] - '0';
        if (at + 1 < line.size() && is_dec(line[at + 1])) {
            number = number * 10 + (line[at + 1] - '0');
        }
        if (number >= 1 && number <= ports) {
            list[count++] = {port, number};
        }
    }
    return count;
}

// The second word of the first line begins with "enabled".
bool enabled_in(std::string_view line) noexcept {
    constexpr std::string_view kBlanks = " \t\n";
    const std::size_t first = line.find_first_not_of(kBlanks);
    const std::size_t second = line.find_first_not_of(kBlanks, line.find_first_of(kBlanks, first));
    return first != std::string_view::npos && second != std::string_view::npos &&
           line.substr(second).starts_with("enabled");
}

} // namespace

int get_mirror_info(mirror_entry *first, int *first_count, mirror_entry *second, int *second_count,
                    int *enabled) noexcept {
    if (first == nullptr || first_count == nullptr || second == nullptr ||
        second_count == nullptr || enabled == nullptr) {
        return 0;
    }
    *first_count = 0;
    *second_count = 0;
    *enabled = 0;
    std::FILE *file = gv::os::open_stream(kMirrorFile, "r");
    if (file == nullptr) {
        return 0;
    }
    const int ports = get_port_num(1);
    char line[kMirrorLine];
    for (int number = 1;
         number <= kSecondPortLine && std::fgets(line, sizeof line, file) != nullptr; ++number) {
        if (number == 1) {
            *enabled = enabled_in(line) ? 1 : 0;
        } else if (number == kFirstPortLine) {
            *first_count = read_port_line(line, ports, first);
        } else if (number == kSecondPortLine) {
            *second_count = read_port_line(line, ports, second);
        }
    }
    std::fclose(file);
    return *first_count + *second_count;
}
