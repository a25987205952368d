// The debug printers: console lines and the capped log file.
#include "gvutil/sys.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

class DebugLog : public ::testing::Test {
  protected:
    gvtest::ChassisRoot root{"test3"};

    std::string read(const std::string &relative) const {
        std::ifstream file(root.path() + "/" + relative);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool exists(const std::string &relative) const {
        return std::filesystem::exists(root.path() + "/" + relative);
    }
};

TEST_F(DebugLog, ConsoleLinesAreFormattedAndCut) {
    root.write_file("dev/console", "");
    printd("[%d] token=%s\n", 12, "CG2");
    EXPECT_EQ(read("dev/console"), "[12] token=CG2\n");
    const std::string long_text(2000, 'z');
    dlog("%s", long_text.c_str());
    EXPECT_EQ(read("dev/console"), long_text.substr(0, 1027));
}

TEST_F(DebugLog, NoConsoleNoOutput) {
    printd("nothing %d\n", 1);
    EXPECT_FALSE(exists("dev/console"));
}

TEST_F(DebugLog, LogFileIsAppendedAndDroppedPastItsCap) {
    struct Case {
        std::size_t held; // bytes in the log before the call
        int check;        // file_size_check's answer
        std::string after;
    };
    for (const Case &c :
         {Case{10, 0, std::string(10, 'x') + "line 7\n"},
          Case{100000, 0, std::string(100000, 'x') + "line 7\n"}, Case{100001, 0, "line 7\n"}}) {
        root.write_file("tmp/log", std::string(c.held, 'x'));
        EXPECT_EQ(file_size_check(), c.check) << c.held;
        root.write_file("tmp/log", std::string(c.held, 'x'));
        flog("line %d\n", 7);
        EXPECT_EQ(read("tmp/log"), c.after) << c.held;
    }
}

TEST_F(DebugLog, MissingLogIsReportedThenCreated) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(file_size_check(), -1);
    flog("first\n");
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "checking for log file : invalid filechecking for log file : invalid file");
    EXPECT_EQ(read("tmp/log"), "first\n");
}

} // namespace
