// Type-b trunk pnums of the host chassis and the PON ports behind them.
#include "gvutil/platform.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>

namespace {

TEST(TypeBTrunk, AnswersTheWorkingPonPortOfItsPair) {
    struct Case {
        const char *chassis;
        int pnum, answer;
    };
    const Case cases[] = {
        // test3: GPON 1-8, EPON 9-16, SFU 17-32, interlink 33-34, CG 35-42, trunks 43-48.
        {"test3", 43, 1},
        {"test3", 44, 3},
        {"test3", 48, 11},
        {"test3", 42, 42},
        {"test3", 35, 35},
        {"test3", 33, 33},
        {"test3", 1, 1},
        {"test3", 49, 49},
        {"test3", 0, 0},
        {"test3", -5, -5},
        // k7100: the first PON port follows two 10GE cards and the SFU.
        {"k7100", 73, 19},
        {"k7100", 72, 72},
        // k7500: XGS-PON and NG-PON count as PON ports too.
        {"k7500", 75, 1},
        {"k7500", 76, 3},
        // The slotless k3100x: one trunk after four channel groups.
        {"k3100x", 33, 1},
        {"k3100x", 32, 32},
        // k7200 has no PON port: its trunk is left as it is.
        {"k7200", 53, 53},
    };
    for (const Case &c : cases) {
        gvtest::ChassisRoot root{c.chassis};
        EXPECT_EQ(get_pnum_from_type_b_trunk_pnum(c.pnum), c.answer) << c.chassis << " " << c.pnum;
    }
    unsetenv("GVUTIL_ROOT");
    EXPECT_EQ(get_pnum_from_type_b_trunk_pnum(43), 43) << "no chassis";
}

} // namespace
