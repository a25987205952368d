// gv_execute_command with real programs. The child's end is read from the
// SIGCHLD the kernel queues for the caller (blocked during the call), which
// carries the child's exit status or the signal that ended it even after
// the library has reaped the child.
#include "gvutil/sys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <pthread.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct ChildEnd {
    int code = 0; // CLD_EXITED or CLD_KILLED; 0 when no child ended
    int status = 0;
};

// Holds SIGCHLD blocked, so the report of the library's child stays pending.
class ChildReport {
  public:
    ChildReport() {
        sigemptyset(&chld_);
        sigaddset(&chld_, SIGCHLD);
        pthread_sigmask(SIG_BLOCK, &chld_, nullptr);
        take();
    }
    ~ChildReport() { pthread_sigmask(SIG_UNBLOCK, &chld_, nullptr); }

    ChildEnd take() {
        siginfo_t info{};
        const timespec now{0, 0};
        if (sigtimedwait(&chld_, &info, &now) != SIGCHLD) {
            return {};
        }
        return {info.si_code, info.si_status};
    }

  private:
    sigset_t chld_{};
};

bool no_child_left() {
    return waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD;
}

class ExecuteCommand : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("gvexec." + std::to_string(getpid()));
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    std::string path(const char *name) const { return (dir_ / name).string(); }
    static std::string read(const std::string &file) {
        std::ifstream in(file);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    // What the call's children write on standard error, and the call's result.
    template <typename Call> std::string stderr_of(Call call, int &result) {
        std::fflush(stderr);
        const int saved = dup(STDERR_FILENO);
        const int file = open(path("stderr").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(file, STDERR_FILENO);
        close(file);
        result = call();
        std::fflush(stderr);
        dup2(saved, STDERR_FILENO);
        close(saved);
        return read(path("stderr"));
    }

    fs::path dir_;
    ChildReport report_;
};

TEST_F(ExecuteCommand, RunsTheListAsTheArgumentVector) {
    const std::string out = path("out");
    const std::string script = "printf '%s|' \"$0\" \"$@\" > " + out + "; exit 3";
    EXPECT_EQ(gv_execute_command(nullptr, "sh", "-c", script.c_str(), "zero", "one two", nullptr),
              0);
    EXPECT_EQ(read(out), "zero|one two|");
    const ChildEnd end = report_.take();
    EXPECT_EQ(end.code, CLD_EXITED);
    EXPECT_EQ(end.status, 3);
    EXPECT_TRUE(no_child_left());
}

TEST_F(ExecuteCommand, ProgramThatCannotRun) {
    struct Case {
        std::vector<const char *> texts;
        const char *said;
    };
    const std::string not_executable = path("plain");
    std::ofstream(not_executable) << "#!/bin/sh\n";
    const std::vector<Case> cases = {
        {{"gvutil-no-such-program"}, "Can't execute No such file or directory\n"},
        {{not_executable.c_str()}, "Can't execute Permission denied\n"},
    };
    for (const Case &c : cases) {
        int result = -1;
        const std::string said = stderr_of(
            [&] { return gv_execute_command(nullptr, c.texts[0], "arg", nullptr); }, result);
        EXPECT_EQ(result, 0);
        EXPECT_EQ(said, c.said);
        const ChildEnd end = report_.take();
        EXPECT_EQ(end.code, CLD_EXITED) << c.texts[0];
        EXPECT_EQ(end.status, 1) << c.texts[0];
        EXPECT_TRUE(no_child_left());
    }
}

// The whole list as arguments of one call; it ends at its first null text.
template <std::size_t... I>
int execute_list(const std::array<const char *, sizeof...(I)> &list, std::index_sequence<I...>) {
    return gv_execute_command(nullptr, list[I]..., nullptr);
}

// 255 texts (the program and 254 arguments) run; 256 are too many.
TEST_F(ExecuteCommand, ArgumentListLimit) {
    for (const auto &[count, said, status] :
         {std::tuple{255, "", 0},
          {256, "Can't execute Argument list too long\n", 1},
          {0, "Can't execute No such file or directory\n", 1}}) {
        std::array<const char *, 257> list{};
        std::fill_n(list.begin(), count, "x");
        list[0] = count > 0 ? "true" : nullptr;
        int result = -1;
        EXPECT_EQ(
            stderr_of([&] { return execute_list(list, std::make_index_sequence<257>()); }, result),
            said);
        EXPECT_EQ(report_.take().status, status) << count;
    }
    EXPECT_TRUE(no_child_left());
}

// Text the caller has printed but not yet flushed is written once, by the
// caller: the child neither inherits it unwritten nor flushes it on exit.
TEST_F(ExecuteCommand, CallersBufferedOutputIsWrittenOnce) {
    std::fflush(stdout);
    const int saved = dup(STDOUT_FILENO);
    const int file = open(path("stdout").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(file, STDOUT_FILENO);
    close(file);
    std::fputs("pending ", stdout);
    int result = -1;
    stderr_of([] { return gv_execute_command(nullptr, "gvutil-no-such-program", nullptr); },
              result);
    gv_execute_command(nullptr, "echo", "ran", nullptr);
    std::fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    close(saved);
    EXPECT_EQ(read(path("stdout")), "pending ran\n");
    report_.take();
}

void on_signal(int) {}

// The operator breaks off while the program runs (a signal interrupts the
// wait): the program ignores every signal it can, so only signal 9 ends it.
TEST_F(ExecuteCommand, InterruptedWaitEndsTheChildWithSignal9) {
    const std::string ready = path("ready");
    ASSERT_EQ(mkfifo(ready.c_str(), 0600), 0);
    struct sigaction interrupt {};
    interrupt.sa_handler = on_signal; // no SA_RESTART: the wait returns
    struct sigaction saved {};
    sigaction(SIGUSR1, &interrupt, &saved);

    std::mutex mutex;
    std::condition_variable returned;
    bool done = false;
    const pthread_t caller = pthread_self();
    std::thread breaker([&] {
        char byte = 0;
        const int fd = open(ready.c_str(), O_RDONLY);
        EXPECT_EQ(::read(fd, &byte, 1), 1);
        close(fd);
        // Again until the call returns, in case the first one came before the wait.
        std::unique_lock lock(mutex);
        while (!done) {
            pthread_kill(caller, SIGUSR1);
            returned.wait_for(lock, std::chrono::milliseconds(50));
        }
    });
    const std::string script = "trap '' HUP INT TERM USR1; echo > " + ready + "; exec sleep 60";
    const auto started = std::chrono::steady_clock::now();
    EXPECT_EQ(gv_execute_command(nullptr, "sh", "-c", script.c_str(), nullptr), 0);
    const auto took = std::chrono::steady_clock::now() - started;
    {
        std::lock_guard lock(mutex);
        done = true;
    }
    returned.notify_all();
    breaker.join();
    sigaction(SIGUSR1, &saved, nullptr);

    const ChildEnd end = report_.take();
    EXPECT_EQ(end.code, CLD_KILLED);
    EXPECT_EQ(end.status, SIGKILL);
    EXPECT_LT(took, std::chrono::seconds(30));
    EXPECT_TRUE(no_child_left());
}

} // namespace
