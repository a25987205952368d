// A process that has not attached the store, then one without its semaphore.
#include "gvutil/onuopt.h"
#include "support/chassis_root.h"
#include "support/ipc_namespace.h"

#include <gtest/gtest.h>

#include <functional>
#include <sys/sem.h>
#include <unistd.h>

namespace {

TEST(UnattachedStore, RefusesThenGoesUnlockedWithoutASemaphore) {
    GVTEST_ENTER_PRIVATE_IPC_NAMESPACE();
    gvtest::ChassisRoot root{"test3"};
    char text[128] = {};
    uint8_t addr[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    int value = 0;
    // One call of each kind of access: global, per PON, pairing, per ONU, by
    // address. Each refuses rather than reach for a segment it does not have.
    const std::function<int()> calls[] = {
        [] { return gv_opt_format_set_min_onu_id(0); },
        [] { return gv_opt_format_get_min_onu_id(); },
        [] { return gv_opt_format_get_onu_display_sn(); },
        [&] { return gv_opt_format_get_onu_display_sn_str(addr, text, sizeof text); },
        [] { return gv_opt_format_set_pon_module_pn(1, "PN"); },
        [] { return gv_opt_format_set_olt_red(1, 1, 2); },
        [] { return gv_opt_format_get_olt_red_master_id(1); },
        [] { return gv_opt_format_set_onu_description(1, 1, "x", 1); },
        [&] { return gv_opt_format_get_onu_id(1, addr, &value); },
    };
    for (std::size_t i = 0; i < std::size(calls); ++i) {
        EXPECT_EQ(calls[i](), -1) << "call " << i;
    }
    EXPECT_EQ(gv_opt_format_db_delete_onu(1, 1), 0);
    EXPECT_EQ(gv_opt_format_init_db(), 0);

    // Attached but without the semaphore yet: accesses go unlocked rather
    // than through semaphore set 0, which here is another program's and held.
    ASSERT_EQ(semget(IPC_PRIVATE, 1, IPC_CREAT | 0600), 0) << "the first set of the namespace";
    ASSERT_EQ(gv_opt_format_attach_shm(gv_opt_format_create_shm()), 0);
    alarm(10); // a wait on the held set ends the test here
    EXPECT_EQ(gv_opt_format_set_onu_description(1, 0, "unlocked", 8), 0);
    EXPECT_EQ(gv_opt_format_get_onu_description(1, 0, text), 0);
    alarm(0);
    EXPECT_STREQ(text, "unlocked");
    EXPECT_EQ(semctl(0, 0, GETVAL), 0);
}

} // namespace
