// The text predicates shared by the token parsers, and the debug printers:
// console lines and the capped log file.
#include "gvutil/sys.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

TEST(IsDigit, LooksAtExactlyTheGivenLength) {
    struct Case {
        const char *text;
        int length, digit, digit_minus;
    };
    for (const Case c : {Case{"123", 3, 1, 1}, Case{"12a", 3, 0, 0}, Case{"12a", 2, 1, 1},
                         Case{"-12", 3, 0, 1}, Case{"1-2", 3, 0, 0}, Case{"-", 1, 0, 1},
                         Case{"", 0, 1, 1}, Case{"7", 2, 0, 0}, Case{"x", -3, 1, 1}}) {
        EXPECT_EQ(is_digit(c.text, c.length), c.digit) << '"' << c.text << "\" " << c.length;
        EXPECT_EQ(is_digit_minus(c.text, c.length), c.digit_minus)
            << '"' << c.text << "\" " << c.length;
    }
    EXPECT_EQ(is_digit(nullptr, 1), 0);
}

TEST(IsHex, BothCasesAndTheEmptyText) {
    for (const auto &[text, result] : {std::pair{"", 1}, {"09afAF", 1}, {"g", 0}, {"0x1f", 0}}) {
        EXPECT_EQ(is_hex(text), result) << text;
    }
    EXPECT_EQ(is_hex(nullptr), 0);
}

// 279 characters are read, as the parsers' working copy holds them.
TEST(Stoi, NonNegativeDecimalOrMinusOne) {
    struct Case {
        std::string text;
        int result;
    };
    for (const Case &c :
         {Case{"007", 7}, Case{"2147483647", 2147483647}, Case{"2147483648", -1}, Case{"-1", -1},
          Case{"+1", -1}, Case{"", -1}, Case{"12x", -1}, Case{std::string(278, '0') + "5x", 5},
          Case{std::string(279, '0') + "5", 0}}) {
        EXPECT_EQ(stoi(c.text.c_str()), c.result) << '"' << c.text << '"';
    }
    EXPECT_EQ(stoi(nullptr), -1);
}

TEST(Ranges, BridgeAndSlotBounds) {
    struct Case {
        int value, br, slot;
    };
    for (const Case c : {Case{-1, 0, 1}, Case{0, 0, 1}, Case{1, 1, 1}, Case{20, 1, 1},
                         Case{21, 1, 0}, Case{4094, 1, 0}, Case{4095, 0, 0}}) {
        EXPECT_EQ(is_br_range(c.value), c.br) << c.value;
        EXPECT_EQ(is_slot_range(c.value), c.slot) << c.value;
    }
}

class DebugLog : public ::testing::Test {
  protected:
    gvtest::ChassisRoot root{"test3"};

    std::string read(const std::string &relative) const {
        std::ifstream file(root.path() + "/" + relative);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(DebugLog, ConsoleLinesAreFormattedAndCut) {
    printd("nothing %d\n", 1); // no console: nothing written, nothing created
    EXPECT_FALSE(std::filesystem::exists(root.path() + "/dev/console"));
    root.write_file("dev/console", "");
    printd("[%d] token=%s\n", 12, "CG2");
    EXPECT_EQ(read("dev/console"), "[12] token=CG2\n");
    const std::string long_text(2000, 'z');
    dlog("%s", long_text.c_str());
    EXPECT_EQ(read("dev/console"), long_text.substr(0, 1027));
}

TEST_F(DebugLog, LogFileIsAppendedAndDroppedPastItsCap) {
    for (const std::size_t held : {10, 100000, 100001}) {
        root.write_file("tmp/log", std::string(held, 'x'));
        EXPECT_EQ(file_size_check(), 0) << held;
        root.write_file("tmp/log", std::string(held, 'x'));
        flog("line %d\n", 7);
        EXPECT_EQ(read("tmp/log"), (held > 100000 ? "" : std::string(held, 'x')) + "line 7\n");
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
