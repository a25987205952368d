#include "os/os.h"

#include <array>
#include <climits>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <syslog.h>
#include <unistd.h>

namespace gv::os {

namespace {

constexpr std::size_t kCommandMax = 4096;

#if GVUTIL_HOST_SIM
// Chassis directories whose absolute paths a command line names.
constexpr std::array<std::string_view, 3> kRerooted = {"/proc", "/etc", "/tmp"};

class Line {
  public:
    bool add(std::string_view text) noexcept {
        if (text.size() >= buffer_.size() - length_) {
            return false;
        }
        std::memcpy(buffer_.data() + length_, text.data(), text.size());
        length_ += text.size();
        buffer_[length_] = '\0';
        return true;
    }
    const char *c_str() const noexcept { return buffer_.data(); }

  private:
    std::array<char, kCommandMax> buffer_{};
    std::size_t length_ = 0;
};

// The root in single quotes, as the shell reads it back literally.
bool add_quoted(Line &line, std::string_view text) noexcept {
    bool fits = line.add("'");
    for (const char c : text) {
        fits = fits && (c == '\'' ? line.add("'\\''") : line.add(std::string_view(&c, 1)));
    }
    return fits && line.add("'");
}

// A chassis directory starts here: a whole path, not the tail of another word.
bool rerooted_at(std::string_view command, std::size_t at) noexcept {
    if (at > 0 && std::strchr(" \t\"'=<>|;&(", command[at - 1]) == nullptr) {
        return false;
    }
    for (const std::string_view dir : kRerooted) {
        const std::string_view rest = command.substr(at);
        if (rest.starts_with(dir) &&
            (rest.size() == dir.size() || std::strchr("/ \t\"';|&)", rest[dir.size()]))) {
            return true;
        }
    }
    return false;
}

// A program named by its absolute /bin path ("/bin/df") that the root has a
// fake of: the fake runs, as a bare name would find it first on PATH.
bool root_program_at(std::string_view command, std::size_t at, std::string_view root) noexcept {
    constexpr std::string_view kBin = "/bin/";
    if ((at > 0 && std::strchr(" \t;|&(", command[at - 1]) == nullptr) ||
        !command.substr(at).starts_with(kBin)) {
        return false;
    }
    const std::string_view rest = command.substr(at);
    const std::string_view program = rest.substr(0, rest.find_first_of(" \t;|&)"));
    char path[PATH_MAX];
    const int length = std::snprintf(path, sizeof path, "%.*s%.*s", static_cast<int>(root.size()),
                                     root.data(), static_cast<int>(program.size()), program.data());
    return length > 0 && static_cast<std::size_t>(length) < sizeof path &&
           ::access(path, X_OK) == 0;
}

bool reroot(std::string_view command, std::string_view root, Line &line) noexcept {
    bool fits = line.add("PATH=") && add_quoted(line, root) && line.add("/bin:\"$PATH\"; ");
    for (std::size_t at = 0; fits && at < command.size(); ++at) {
        if (command[at] == '/' &&
            (rerooted_at(command, at) || root_program_at(command, at, root))) {
            fits = line.add(root);
        }
        fits = fits && line.add(command.substr(at, 1));
    }
    return fits;
}
#endif

} // namespace

int run_command(const char *command) noexcept {
    if (command == nullptr) {
        return -1;
    }
#if GVUTIL_HOST_SIM
    if (const char *root = host_root(); root != nullptr) {
        Line line;
        return reroot(command, root, line) ? std::system(line.c_str()) : -1;
    }
#endif
    return std::system(command);
}

std::FILE *open_pipe(const char *command, const char *mode) noexcept {
    if (command == nullptr || mode == nullptr) {
        return nullptr;
    }
#if GVUTIL_HOST_SIM
    if (const char *root = host_root(); root != nullptr) {
        Line line;
        return reroot(command, root, line) ? ::popen(line.c_str(), mode) : nullptr;
    }
#endif
    return ::popen(command, mode);
}

int close_pipe(std::FILE *pipe) noexcept {
    return pipe != nullptr ? ::pclose(pipe) : -1;
}

void log_error(const char *format, ...) noexcept {
    va_list args;
    va_start(args, format);
    ::vsyslog(LOG_ERR, format, args);
    va_end(args);
}

} // namespace gv::os
