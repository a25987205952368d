// The shell's formatted output on the host chassis.
#include "gvsim/gvsim.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(ShellOutput, FormatsAndHandsTheTextOverWhole) {
    gvtest::CliCapture capture;
    EXPECT_EQ(gv_cli_out(capture.ctx(), "%s %d%s", "vlans", 12, "\n"), 9);
    EXPECT_EQ(capture.take(), "vlans 12\n");
    const std::string long_text(5000, 'x');
    EXPECT_EQ(gv_cli_out(capture.ctx(), "<%s>", long_text.c_str()), 5002);
    EXPECT_EQ(capture.take(), "<" + long_text + ">");
    EXPECT_EQ(gv_cli_out(nullptr, "%d", 1), 0);
    cli_ctx silent{nullptr, nullptr};
    EXPECT_EQ(gv_cli_out(&silent, "%d", 1), 0);
}

} // namespace
