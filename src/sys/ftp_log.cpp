// The verdict on an FTP transfer from its log: the first line that tells of
// a failure names it, and the last "213" reply gives the size the server
// reported.
#include "gvutil/sys.h"
#include "os/os.h"
#include "sys/scan.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

constexpr std::size_t kLogLine = 256;

struct Verdict {
    std::array<const char *, 4> signs;
    const char *message;
};

// In this order: a line is judged by the first row that has one of its signs.
// "Not " catches what the rows above have not named.
constexpr std::array<Verdict, 4> kVerdicts = {{
    {{"Login failed", nullptr, nullptr, nullptr}, "login failed"},
    {{"No such", "Not a directory", nullptr, nullptr}, "can't find file"},
    {{"No space", nullptr, nullptr, nullptr}, "no space left on device"},
    {{"Failed", "Address already", "failure", "Not "}, "error in ftp service"},
}};

const char *verdict_of(const char *line) noexcept {
    for (const Verdict &verdict : kVerdicts) {
        for (const char *sign : verdict.signs) {
            if (sign != nullptr && std::strstr(line, sign) != nullptr) {
                return verdict.message;
            }
        }
    }
    return nullptr;
}

// The second blank-separated word of a line.
std::string_view second_word(std::string_view line) noexcept {
    constexpr std::string_view kBlanks = " \t\n\v\f\r";
    const std::size_t first = line.find_first_not_of(kBlanks);
    const std::size_t gap = line.find_first_of(kBlanks, first);
    const std::size_t second = line.find_first_not_of(kBlanks, gap);
    if (first == std::string_view::npos || second == std::string_view::npos) {
        return {};
    }
    return line.substr(second, line.find_first_of(kBlanks, second) - second);
}

} // namespace

int parse_ftp_error(const char *path, char *message) noexcept {
    if (message != nullptr) {
        message[0] = '\0';
    }
    std::FILE *log = path != nullptr ? gv::os::open_stream(path, "r") : nullptr;
    if (log == nullptr) {
        return 0;
    }
    int size = 0;
    std::array<char, kLogLine> line{};
    while (std::fgets(line.data(), line.size(), log) != nullptr) {
        if (const char *verdict = verdict_of(line.data()); verdict != nullptr) {
            if (message != nullptr) {
                std::strcpy(message, verdict); // NOLINT(clang-analyzer-security.insecureAPI.strcpy)
            }
            break;
        }
        // A "213" line without a second word leaves the size reported before.
        if (const std::string_view word = second_word(line.data());
            std::strstr(line.data(), "213 ") != nullptr && !word.empty()) {
            size = gv::sys::read_int(word);
        }
    }
    std::fclose(log);
    return size;
}
