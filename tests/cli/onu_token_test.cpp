// ONU id lists, checked against the smallest ONU id of the ONU option store.
// The store lives in this process's private IPC namespace.
#include "gvutil/cli.h"
#include "gvutil/onuopt.h"
#include "support/cli_capture.h"
#include "support/ipc_namespace.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace gvtest;

class OnuToken : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        GVTEST_ENTER_PRIVATE_IPC_NAMESPACE();
        ASSERT_EQ(gv_opt_format_attach_shm(gv_opt_format_create_shm()), 0);
        ASSERT_EQ(gv_opt_format_create_sem(), 0);
    }
    void SetUp() override { ASSERT_EQ(gv_opt_format_init_db(), 0); }
};

TEST_F(OnuToken, BadItemsAreSkippedButALeadingMinusEndsTheList) {
    expect_rows(value_token(get_onu_token, 8),
                {{"1-4,8", "1-4 8-8"},
                 {"3-9", "3-8", "%Invalid range: 3-9 [1-8]\n"}, // kept, lowered
                 {"9,2", "2-2", "%Invalid range: 9 [1-8]\n"},
                 {"0,2", "2-2", "%Invalid onu token: 0\n"},
                 {"0-3,2", "2-2", "%Invalid range: 0-3 [1-8]\n"},
                 {"3-x", "", "%Invalid range: 3-x [1-8]\n"},
                 {"4-4", "", "%Invalid sequence order: 4-4\n"},
                 {"8-9", "8-8", "%Invalid range: 8-9 [1-8]\n"}, // the last start kept
                 {"9-12", "", "%Invalid range: 9-12 [1-8]\n"},
                 {"1,-3,2", "", "%Invalid onu token: -3\n"}},
                Context::kBoth);
}

TEST_F(OnuToken, TheStoresSmallestIdIsTheLowerBound) {
    ASSERT_EQ(gv_opt_format_set_min_onu_id(0), 0);
    expect_rows(value_token(get_onu_token, 128), {{"0-3", "0-3"}});
    ASSERT_EQ(gv_opt_format_set_min_onu_id(5), 0);
    expect_rows(value_token(get_onu_token, 128),
                {{"4,5-7,3-6", "5-7", "%Invalid onu token: 4\n%Invalid range: 3-6 [5-128]\n"}});
}

std::string onu_list(const char *text, cli_ctx *ctx) {
    uint8_t out[600] = {};
    return shown(out, get_onu_list(text, out, 300, ctx));
}

TEST_F(OnuToken, ListsKeepEachIdInOneByte) {
    expect_rows(onu_list, {{"3-5,4,1", "3 4 5 4 1"}, {"255-257", "255 0 1"}});
    EXPECT_EQ(get_onu_list("1", nullptr, 8, nullptr), 0);
    value_range ranges[1];
    EXPECT_EQ(get_onu_token(nullptr, ranges, 8, nullptr), 0);
}

// ONU ids written back by the command builder read back as the same ids.
TEST_F(OnuToken, BuiltOnuTextReadsBack) {
    for (std::vector<uint8_t> ids :
         std::vector<std::vector<uint8_t>>{{5, 1, 2, 3}, {128}, {100, 101, 102, 127, 128, 3}}) {
        char text[256];
        get_onu_str(ids.data(), static_cast<int>(ids.size()), text);
        expect_rows(onu_list, {{text, shown(ids.data(), static_cast<int>(ids.size()))}});
    }
}

} // namespace
