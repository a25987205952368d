// A process whose IPC set-up fails prints the system error after its text
// and ends with status 0.
#include "onuopt/ipc_spy.h"
#include "onuopt/store_fixture.h"
#include "support/ipc_namespace.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <sys/sem.h>
#include <sys/shm.h>
#include <unistd.h>

namespace onutest {
namespace {

class SetUpFailure : public ::testing::Test {
  protected:
    void SetUp() override { remove_store(); }
    void TearDown() override { remove_store(); }
    gvtest::ChassisRoot root{"test3"};
};

// No more semaphore sets may be made in this process's namespace.
void forbid_new_semaphores() {
    if (!gvtest::enter_private_ipc_namespace().empty()) {
        _exit(90);
    }
    std::FILE *limits = std::fopen("/proc/sys/kernel/sem", "w");
    if (limits == nullptr || std::fputs("250 32000 32 0\n", limits) < 0 ||
        std::fclose(limits) != 0) {
        _exit(91);
    }
}

TEST_F(SetUpFailure, PrintsTheSystemErrorAndExitsWithZero) {
    struct Case {
        const char *what;
        std::function<void()> arrange; // runs in the child first
        std::function<void()> call;
        std::string text;
        int error;
    };
    const Case cases[] = {
        {"segment exists with another size",
         [] { (void)shmget(GV_OPT_FORMAT_KEY, 4096, IPC_CREAT | 0666); },
         [] { gv_opt_format_create_shm(); }, "shmget failed : ", EINVAL},
        {"no such segment", [] {}, [] { gv_opt_format_attach_shm(-1); },
         " SHARED MEMORY : shmat failed !!!\n", EINVAL},
        {"semaphore set of another owner",
         [] {
             (void)semget(GV_OPT_FORMAT_KEY, 1, IPC_CREAT | 0600);
             if (setuid(65534) != 0) {
                 _exit(92);
             }
         },
         [] { gv_opt_format_create_sem(); }, " SHEMAPHORE : semget failed !!!\n", EACCES},
        {"no room for a semaphore set", forbid_new_semaphores, [] { gv_opt_format_create_sem(); },
         " SHEMAPHORE : semget failed !!!\n", ENOSPC},
        {"setting the semaphore", [] { spy::fail_next_setval(EPERM); },
         [] { gv_opt_format_create_sem(); }, " SHEMAPHORE : semctrl failed !!!\n", EPERM},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        remove_store();
        const ChildResult child = in_child([&c] {
            std::atexit([] { std::fputs("exit handlers ran\n", stderr); });
            c.arrange();
            c.call();
            return 99; // the call came back
        });
        EXPECT_EQ(child.status, 0);
        EXPECT_EQ(child.err, c.text + ": " + std::strerror(c.error) + "\nexit handlers ran\n");
    }
}

} // namespace
} // namespace onutest
