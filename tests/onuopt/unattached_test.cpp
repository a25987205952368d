// A process that has not attached the store yet: every operation refuses
// instead of reaching for a segment it does not have.
#include "gvutil/onuopt.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <functional>
#include <sys/sem.h>
#include <unistd.h>

namespace {

TEST(UnattachedStore, EveryOperationRefuses) {
    gvtest::ChassisRoot root{"test3"};
    char text[128] = {};
    uint8_t addr[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    int value = 0;
    // One call of each kind of access: global, per PON, pairing, per ONU, by address.
    const std::function<int()> calls[] = {
        [] { return gv_opt_format_set_min_onu_id(0); },
        [] { return gv_opt_format_get_min_onu_id(); },
        [] { return gv_opt_format_get_onu_display_sn(); },
        [&] { return gv_opt_format_get_onu_display_sn_str(addr, text, sizeof text); },
        [] { return gv_opt_format_set_pon_module_pn(1, "PN"); },
        [] { return gv_opt_format_set_olt_red(1, 1, 2); },
        [] { return gv_opt_format_get_olt_red_master_id(1); },
        [] { return gv_opt_format_set_onu_description(1, 1, "x", 1); },
        [&] { return gv_opt_format_get_onu_num_of_uni(1, 1, &value); },
        [&] { return gv_opt_format_get_onu_id(1, addr, &value); },
    };
    int index = 0;
    for (const auto &call : calls) {
        EXPECT_EQ(call(), -1) << "call " << index++;
    }
    EXPECT_EQ(gv_opt_format_db_delete_onu(1, 1), 0);
    EXPECT_EQ(gv_opt_format_init_db(), 0);
}

// Attached but without the semaphore yet: accesses go unlocked rather than
// through semaphore set 0, which here is another program's and held.
TEST(UnattachedStore, NoSemaphoreMeansNoLock) {
    gvtest::ChassisRoot root{"test3"};
    const int foreign = semget(IPC_PRIVATE, 1, IPC_CREAT | 0600);
    ASSERT_EQ(foreign, 0) << "the first set of a fresh namespace";
    ASSERT_EQ(gv_opt_format_attach_shm(gv_opt_format_create_shm()), 0);
    alarm(10); // a wait on the held set ends the test here
    EXPECT_EQ(gv_opt_format_set_onu_description(1, 0, "unlocked", 8), 0);
    char out[128];
    EXPECT_EQ(gv_opt_format_get_onu_description(1, 0, out), 0);
    alarm(0);
    EXPECT_STREQ(out, "unlocked");
    EXPECT_EQ(semctl(foreign, 0, GETVAL), 0);
}

} // namespace
