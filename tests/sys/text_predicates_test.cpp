// Digit, hex and id tests shared by the token parsers.
#include "gvutil/sys.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

TEST(IsDigit, LooksAtExactlyTheGivenLength) {
    struct Case {
        const char *text;
        int length, digit, digit_minus;
    };
    for (const Case c :
         {Case{"123", 3, 1, 1}, Case{"12a", 3, 0, 0}, Case{"12a", 2, 1, 1}, Case{"-12", 3, 0, 1},
          Case{"1-2", 3, 0, 0}, Case{"-", 1, 0, 1}, Case{"--1", 3, 0, 0}, Case{"", 0, 1, 1},
          Case{"7", 2, 0, 0}, Case{" 1", 2, 0, 0}, Case{"x", -3, 1, 1}}) {
        EXPECT_EQ(is_digit(c.text, c.length), c.digit) << '"' << c.text << "\" " << c.length;
        EXPECT_EQ(is_digit_minus(c.text, c.length), c.digit_minus)
            << '"' << c.text << "\" " << c.length;
    }
    EXPECT_EQ(is_digit(nullptr, 1), 0);
}

TEST(IsHex, AcceptsBothCasesAndTheEmptyText) {
    struct Case {
        const char *text;
        int result;
    };
    for (const Case c : {Case{"", 1}, Case{"09afAF", 1}, Case{"00:11", 0}, Case{"g", 0},
                         Case{"0x1f", 0}, Case{"DEADbeef", 1}}) {
        EXPECT_EQ(is_hex(c.text), c.result) << c.text;
    }
    EXPECT_EQ(is_hex(nullptr), 0);
}

TEST(Stoi, NonNegativeDecimalOrMinusOne) {
    struct Case {
        const char *text;
        int result;
    };
    for (const Case c :
         {Case{"007", 7}, Case{"0", 0}, Case{"4094", 4094}, Case{"-1", -1}, Case{"+1", -1},
          Case{"", -1}, Case{"1 ", -1}, Case{"12x", -1}, Case{"2147483647", 2147483647},
          Case{"2147483648", -1}, Case{"99999999999999999999", -1}}) {
        EXPECT_EQ(stoi(c.text), c.result) << '"' << c.text << '"';
    }
    EXPECT_EQ(stoi(nullptr), -1);
}

TEST(Stoi, ReadsNoFurtherThanItsWorkingCopy) {
    // 279 characters are read; what follows does not count.
    std::string text(278, '0');
    text += "5x";
    EXPECT_EQ(stoi(text.c_str()), 5);
    text = std::string(279, '0') + "5";
    EXPECT_EQ(stoi(text.c_str()), 0);
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

} // namespace
