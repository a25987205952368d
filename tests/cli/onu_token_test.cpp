// ONU id lists, checked against the smallest ONU id of the ONU option store.
// The store lives in this process's private IPC namespace.
#include "gvutil/cli.h"
#include "gvutil/onuopt.h"
#include "support/cli_capture.h"
#include "support/ipc_namespace.h"
#include "value_ranges.h"

#include <gtest/gtest.h>

#include <string>
#include <sys/sem.h>
#include <sys/shm.h>
#include <vector>

namespace {

using clitest::Pairs;
using gvtest::CliCapture;

class OnuToken : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        const std::string error = gvtest::enter_private_ipc_namespace();
        ASSERT_TRUE(error.empty()) << error;
        ASSERT_EQ(gv_opt_format_attach_shm(gv_opt_format_create_shm()), 0);
        ASSERT_EQ(gv_opt_format_create_sem(), 0);
    }
    void SetUp() override { ASSERT_EQ(gv_opt_format_init_db(), 0); }
};

TEST_F(OnuToken, BadItemsAreSkippedButALeadingMinusEndsTheList) {
    const clitest::Case cases[] = {
        {"1-4,7", {{1, 4}, {7, 7}}, ""},
        {"3-9", {{3, 8}}, "%Invalid range: 3-9 [1-8]\n"}, // kept, lowered
        {"9,2", {{2, 2}}, "%Invalid range: 9 [1-8]\n"},
        {"0,2", {{2, 2}}, "%Invalid onu token: 0\n"},
        {"x,2", {{2, 2}}, "%Invalid onu token: x\n"},
        {"0-3,2", {{2, 2}}, "%Invalid range: 0-3 [1-8]\n"},
        {"3-x", {}, "%Invalid range: 3-x [1-8]\n"},
        {"4-4", {}, "%Invalid sequence order: 4-4\n"},
        {"6-2", {}, "%Invalid sequence order: 6-2\n"},
        {"9-12", {}, "%Invalid range: 9-12 [1-8]\n"},
        {"1,-3,2", {}, "%Invalid onu token: -3\n"},
        {",,", {}, ""},
    };
    clitest::expect_cases(get_onu_token, 8, {std::begin(cases), std::end(cases)});
    for (const auto &c : cases) { // the same checks without a context, only quiet
        EXPECT_EQ(clitest::ranges_of(get_onu_token, c.text, 8, true).ranges, c.ranges) << c.text;
    }
}

TEST_F(OnuToken, TheStoresSmallestIdIsTheLowerBound) {
    ASSERT_EQ(gv_opt_format_set_min_onu_id(0), 0);
    EXPECT_EQ(clitest::ranges_of(get_onu_token, "0-3", 128).ranges, (Pairs{{0, 3}}));
    ASSERT_EQ(gv_opt_format_set_min_onu_id(5), 0);
    const clitest::Parsed got = clitest::ranges_of(get_onu_token, "4,5-7,3-6", 128);
    EXPECT_EQ(got.ranges, (Pairs{{5, 7}}));
    EXPECT_EQ(got.printed, "%Invalid onu token: 4\n%Invalid range: 3-6 [5-128]\n");
}

TEST_F(OnuToken, ListsKeepEachIdInOneByte) {
    CliCapture capture;
    std::vector<uint8_t> out(600);
    ASSERT_EQ(get_onu_list("3-5,4,1", out.data(), 8, capture.ctx()), 5);
    EXPECT_EQ(std::vector<uint8_t>(out.begin(), out.begin() + 5),
              (std::vector<uint8_t>{3, 4, 5, 4, 1}));
    ASSERT_EQ(get_onu_list("255-257", out.data(), 300, capture.ctx()), 3);
    EXPECT_EQ(std::vector<uint8_t>(out.begin(), out.begin() + 3),
              (std::vector<uint8_t>{255, 0, 1}));
    EXPECT_EQ(get_onu_list("1", nullptr, 8, nullptr), 0);
    value_range ranges[1];
    EXPECT_EQ(get_onu_token(nullptr, ranges, 8, nullptr), 0);
    EXPECT_EQ(capture.text(), "");
}

// ONU ids written back by the command builder read back as the same ids.
TEST_F(OnuToken, BuiltOnuTextReadsBack) {
    for (const std::vector<uint8_t> &ids : std::vector<std::vector<uint8_t>>{
             {5, 1, 2, 3}, {128}, {1, 3, 5, 7}, {100, 101, 102, 127, 128}}) {
        std::vector<uint8_t> sorted = ids;
        char text[256];
        get_onu_str(sorted.data(), static_cast<int>(sorted.size()), text);
        CliCapture capture;
        std::vector<uint8_t> out(256);
        const int count = get_onu_list(text, out.data(), 128, capture.ctx());
        EXPECT_EQ(std::vector<uint8_t>(out.begin(), out.begin() + count), sorted) << text;
        EXPECT_EQ(capture.text(), "");
    }
}

} // namespace
