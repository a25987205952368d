// A process whose IPC set-up fails prints the system error after its text
// and ends with status 0, through its exit handlers.
#include "onuopt/harness.h"
#include "support/ipc_namespace.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/sem.h>
#include <sys/shm.h>
#include <unistd.h>

namespace onutest {
namespace {

// A set this process may not use.
void meet_a_foreign_semaphore_set() {
    if (semget(GV_OPT_FORMAT_KEY, 1, IPC_CREAT | 0600) < 0 || setuid(65534) != 0) {
        _exit(90);
    }
}

// A set whose creator died before giving it its value, made by another user:
// this process may not replace it.
void meet_a_foreign_abandoned_set() {
    if (semget(GV_OPT_FORMAT_KEY, 1, IPC_CREAT | IPC_EXCL | 0666) < 0 || setuid(65534) != 0) {
        _exit(90);
    }
}

// No more semaphore sets may be made in this process's namespace.
void forbid_new_semaphores() {
    std::FILE *limits = std::fopen("/proc/sys/kernel/sem", "w");
    if (limits == nullptr || std::fputs("250 32000 32 0\n", limits) < 0 ||
        std::fclose(limits) != 0) {
        _exit(91);
    }
}

TEST(SetUpFailure, PrintsTheSystemErrorAndExitsWithZero) {
    gvtest::ChassisRoot root{"test3"};
    struct Case {
        void (*arrange)(); // in the child, before the call
        int (*call)();
        std::string text;
        int error;
        bool other_user = false; // arrange becomes another user
    };
    const Case cases[] = {
        {[] { (void)shmget(GV_OPT_FORMAT_KEY, 4096, IPC_CREAT | 0666); }, // another size
         gv_opt_format_create_shm, "shmget failed : ", EINVAL},
        {[] {}, [] { return gv_opt_format_attach_shm(-1); }, " SHARED MEMORY : shmat failed !!!\n",
         EINVAL},
        {meet_a_foreign_semaphore_set, gv_opt_format_create_sem,
         " SHEMAPHORE : semget failed !!!\n", EACCES, true},
        {forbid_new_semaphores, gv_opt_format_create_sem, " SHEMAPHORE : semget failed !!!\n",
         ENOSPC},
        {meet_a_foreign_abandoned_set, gv_opt_format_create_sem,
         " SHEMAPHORE : semctrl failed !!!\n", EPERM, true},
        {[] { spy::setval_error = EPERM; }, gv_opt_format_create_sem,
         " SHEMAPHORE : semctrl failed !!!\n", EPERM},
    };
    GVTEST_ENTER_PRIVATE_IPC_NAMESPACE();
    std::string skipped;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.text + std::strerror(c.error));
        if (c.other_user && gvtest::in_single_user_namespace()) {
            skipped += " [" + c.text + std::strerror(c.error) + "]";
            continue;
        }
        const ChildResult child = in_child([&c] {
            if (!gvtest::enter_private_ipc_namespace().empty()) {
                return 98;
            }
            std::atexit([] { std::fputs("exit handlers ran\n", stderr); });
            c.arrange();
            c.call();
            return 99; // the call came back
        });
        EXPECT_EQ(child.status, 0);
        EXPECT_EQ(child.err, c.text + ": " + std::strerror(c.error) + "\nexit handlers ran\n");
    }
    if (!skipped.empty()) {
        GTEST_SKIP() << "a user namespace of one user has no other user for" << skipped;
    }
}

} // namespace
} // namespace onutest
