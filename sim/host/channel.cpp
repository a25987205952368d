// Text channels of the host chassis. A control entry of a root is either an
// executable responder, run with the request as its one argument (its
// standard output is the reply, its exit status the result), or a plain file
// whose content answers every request.
#include "gvsim/gvsim.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

namespace {

constexpr std::size_t kReplySize = 8192;
int timeout_ms = 5000;

long elapsed_ms(const timespec &since) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (now.tv_sec - since.tv_sec) * 1000 + (now.tv_nsec - since.tv_nsec) / 1000000;
}

// Reads the responder's output until it closes it or the time is up; what
// does not fit is read and dropped so the responder never blocks on a full
// pipe. False when the time ran out.
bool collect(int fd, char *reply, std::size_t size) {
    timespec start{};
    clock_gettime(CLOCK_MONOTONIC, &start);
    std::size_t kept = 0;
    std::array<char, 4096> chunk{};
    for (;;) {
        const long left = timeout_ms - elapsed_ms(start);
        if (left <= 0) {
            return false;
        }
        pollfd waiting{fd, POLLIN, 0};
        const int ready = poll(&waiting, 1, static_cast<int>(left));
        if (ready < 0 && errno == EINTR) {
            continue;
        }
        if (ready <= 0) {
            return false;
        }
        const ssize_t got = read(fd, chunk.data(), chunk.size());
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            return true;
        }
        const std::size_t room = size - 1 - kept;
        const std::size_t take = std::min(room, static_cast<std::size_t>(got));
        std::memcpy(reply + kept, chunk.data(), take);
        kept += take;
    }
}

pid_t wait_child(pid_t child, int *status) {
    pid_t done = 0;
    do {
        done = waitpid(child, status, 0);
    } while (done < 0 && errno == EINTR);
    return done;
}

// The responder's exit status is the result, taken as a signed byte so a
// responder reports the channel's -1 by exiting with 255.
int run_responder(const char *path, const char *request, char *reply, std::size_t size,
                  int *result) {
    int out[2];
    if (pipe2(out, O_CLOEXEC) != 0) {
        return -1;
    }
    char now[32];
    std::snprintf(now, sizeof now, "%lld", static_cast<long long>(gvsim_now()));
    const pid_t child = fork();
    if (child < 0) {
        close(out[0]);
        close(out[1]);
        return -1;
    }
    if (child == 0) {
        dup2(out[1], STDOUT_FILENO);
        const int nothing = open("/dev/null", O_RDONLY);
        if (nothing >= 0) {
            dup2(nothing, STDIN_FILENO);
        }
        setenv("GVSIM_NOW", now, 1);
        execl(path, path, request, static_cast<char *>(nullptr));
        _exit(127);
    }
    close(out[1]);
    const bool finished = collect(out[0], reply, size);
    close(out[0]);
    if (!finished) {
        kill(child, SIGKILL);
    }
    int status = 0;
    if (wait_child(child, &status) < 0 || !finished || !WIFEXITED(status)) {
        errno = finished ? EIO : ETIMEDOUT;
        return -1;
    }
    const int code = WEXITSTATUS(status);
    *result = code > 127 ? code - 256 : code;
    return 0;
}

int read_reply_file(const char *path, char *reply, std::size_t size, int *result) {
    const int fd = open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return -1;
    }
    std::size_t kept = 0;
    while (kept < size - 1) {
        const ssize_t got = read(fd, reply + kept, size - 1 - kept);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            break;
        }
        kept += static_cast<std::size_t>(got);
    }
    close(fd);
    *result = 0;
    return 0;
}

} // namespace

int gvsim_channel_exchange(const char *path, const char *request, char *reply, size_t size,
                           int *result) {
    if (path == nullptr || request == nullptr || reply == nullptr || size == 0 ||
        result == nullptr) {
        errno = EINVAL;
        return -1;
    }
    std::memset(reply, 0, size);
    struct stat st {};
    if (stat(path, &st) != 0) {
        return -1;
    }
    if (!S_ISREG(st.st_mode)) {
        errno = ENOTTY;
        return -1;
    }
    return access(path, X_OK) == 0 ? run_responder(path, request, reply, size, result)
                                   : read_reply_file(path, reply, size, result);
}

void gvsim_channel_timeout(int milliseconds) {
    timeout_ms = milliseconds > 0 ? milliseconds : 5000;
}

int swch_sioctl(const char *path, const char *command, char **reply, int flag) {
    static std::array<char, kReplySize> area;
    (void)flag;
    area.fill('\0');
    if (reply != nullptr) {
        *reply = area.data();
    }
    const char *root = secure_getenv("GVUTIL_ROOT");
    if (root == nullptr || *root == '\0' || path == nullptr || path[0] != '/') {
        return -1;
    }
    char resolved[4096];
    const int length = std::snprintf(resolved, sizeof resolved, "%s%s", root, path);
    if (length < 0 || static_cast<std::size_t>(length) >= sizeof resolved) {
        return -1;
    }
    int result = -1;
    return gvsim_channel_exchange(resolved, command, area.data(), area.size(), &result) == 0
               ? result
               : -1;
}
