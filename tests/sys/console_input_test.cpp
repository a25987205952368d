// Console input at a line reader fed through pipes: each session runs in a
// child process whose standard input holds what the operator types and
// whose standard output is what the operator sees (the prompts, and each
// line as the reader echoes it).
#include "gvutil/sys.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Session {
    std::string shown;
    int result = -2;
    std::string text; // what input_string stored
};

std::string drain(int fd) {
    std::string text;
    char chunk[512];
    for (ssize_t got; (got = read(fd, chunk, sizeof chunk)) > 0;) {
        text.append(chunk, static_cast<std::size_t>(got));
    }
    close(fd);
    return text;
}

// Runs call at a console where typed is the whole input.
Session at_console(const std::string &typed, const std::function<int(std::string &)> &call) {
    int in[2];
    int out[2];
    int answer[2];
    if (pipe(in) != 0 || pipe(out) != 0 || pipe(answer) != 0) {
        ADD_FAILURE() << "pipe";
        return {};
    }
    const pid_t child = fork();
    if (child == 0) {
        dup2(in[0], STDIN_FILENO);
        dup2(out[1], STDOUT_FILENO);
        close(in[1]);
        close(out[0]);
        close(answer[0]);
        setenv("TERM", "dumb", 1);
        setenv("INPUTRC", "/dev/null", 1);
        setenv("COLUMNS", "1000", 1); // no horizontal scrolling of long prompts
        std::string text;
        const std::string result = std::to_string(call(text)) + "\n" + text;
        std::fflush(stdout);
        (void)!write(answer[1], result.data(), result.size());
        _exit(0);
    }
    close(in[0]);
    close(out[1]);
    close(answer[1]);
    (void)!write(in[1], typed.data(), typed.size());
    close(in[1]);
    Session session;
    session.shown = drain(out[0]);
    const std::string result = drain(answer[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    const std::size_t newline = result.find('\n');
    if (newline != std::string::npos) {
        session.result = std::stoi(result.substr(0, newline));
        session.text = result.substr(newline + 1);
    }
    return session;
}

TEST(InputString, LineEmptyLineAndEndOfInput) {
    struct Case {
        std::string typed;
        int result;
        std::string text, shown;
    };
    for (const Case &c : {
             Case{"hello world\n", 11, "hello world", "Name: hello world\n"},
             Case{"\nignored\n", 0, "", "Name: \n"},
             Case{"", -1, "", "Name: "},
             Case{"no newline", 10, "no newline", "Name: no newline\n"},
         }) {
        const Session session = at_console(c.typed, [](std::string &text) {
            char buffer[256] = "left over";
            const int result = input_string("Name: ", buffer);
            text = buffer;
            return result;
        });
        EXPECT_EQ(session.result, c.result) << c.typed;
        EXPECT_EQ(session.text, c.text) << c.typed;
        EXPECT_EQ(session.shown, c.shown) << c.typed;
    }
    EXPECT_EQ(input_string("x", nullptr), -1);
}

constexpr const char *kAgain = "Input again within range : 1 - 10\nValue: ";

TEST(InputValue, AsksAgainUntilTheNumberFits) {
    struct Case {
        std::string typed;
        int low, high, result;
        std::string shown;
    };
    const std::string again = kAgain;
    for (const Case &c : {
             Case{"1\n", 1, 10, 1, "Value: 1\n"}, Case{"10\n", 1, 10, 10, "Value: 10\n"},
             Case{"0\n11\n7\n", 1, 10, 7, "Value: 0\n" + again + "11\n" + again + "7\n"},
             Case{"\n", 1, 10, 4, "Value: \n"},              // the default, even outside the range
             Case{"", 1, 10, -1, "Value: "},                 // end of input
             Case{"12\n", 1, 10, -1, "Value: 12\n" + again}, // end of input after a refusal
             Case{"abc\n3\n", 1, 10, 3, "Value: abc\n" + again + "3\n"},
             Case{" 3\n5\n", 1, 10, 5, "Value:  3\n" + again + "5\n"},
             Case{"abc\n", -1, 10, -1, "Value: abc\n"}, // no number reads as -1, in range here
         }) {
        const Session session = at_console(
            c.typed, [&c](std::string &) { return input_value("Value: ", c.low, c.high, 4); });
        EXPECT_EQ(session.result, c.result) << c.typed;
        EXPECT_EQ(session.shown, c.shown) << c.typed;
    }
}

TEST(InputValue, WithoutAPrompt) {
    const Session session =
        at_console("0\n5\n", [](std::string &) { return input_value(nullptr, 1, 10, 4); });
    EXPECT_EQ(session.result, 5);
    EXPECT_EQ(session.shown, "0\nInput again within range : 1 - 10\n5\n");
}

// The prompt lives in a 296-byte buffer: 295 characters show, also after
// the re-prompt text in front of it.
TEST(InputValue, PromptIsCutTo295Characters) {
    const std::string prompt(400, 'p');
    const Session session = at_console(
        "99\n2\n", [&prompt](std::string &) { return input_value(prompt.c_str(), 1, 10, 4); });
    const std::string again = "Input again within range : 1 - 10\n";
    EXPECT_EQ(session.result, 2);
    EXPECT_EQ(session.shown, std::string(295, 'p') + "99\n" + again +
                                 std::string(295 - again.size(), 'p') + "2\n");
}

} // namespace
