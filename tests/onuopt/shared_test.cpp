// Several processes on one store.
#include "onuopt/ipc_spy.h"
#include "onuopt/store_fixture.h"

#include <csignal>
#include <sys/sem.h>
#include <sys/wait.h>
#include <unistd.h>

namespace onutest {
namespace {

std::string description(int port, int id) {
    char out[128] = {};
    return gv_opt_format_get_onu_description(port, id, out) == 0 ? std::string(out) : "<refused>";
}

TEST_F(Store, ProcessesSeeEachOthersWrites) {
    ASSERT_EQ(gv_opt_format_set_onu_description(1, 1, "parent", 6), 0);
    const ChildResult child = in_child([] {
        attach_store();
        const bool saw_parent = description(1, 1) == "parent";
        return gv_opt_format_set_onu_description(7, 9, "child", 5) == 0 && saw_parent ? 0 : 1;
    });
    ASSERT_EQ(child.status, 0) << child.err;
    EXPECT_EQ(description(7, 9), "child");
    EXPECT_EQ(sem_value(), 1);
}

// A creator that has gone leaves its store behind for the next process.
TEST_F(Store, StoreOutlivesItsCreator) {
    remove_store();
    const ChildResult creator = in_child([] {
        attach_store();
        gv_opt_format_init_db();
        return gv_opt_format_set_onu_description(2, 3, "left behind", 11);
    });
    ASSERT_EQ(creator.status, 0) << creator.err;
    attach_store();
    EXPECT_EQ(description(2, 3), "left behind");
    EXPECT_EQ(gv_opt_format_get_min_onu_id(), 1);
    EXPECT_EQ(sem_value(), 1);
}

// A later process's set-up must not release the lock another one holds.
TEST_F(Store, LaterCreatorLeavesTheSemaphoreAlone) {
    const int sem = semget(GV_OPT_FORMAT_KEY, 1, 0);
    ASSERT_EQ(spy::raw_semop(sem, -1, SEM_UNDO), 0);
    const ChildResult child = in_child([] {
        attach_store();
        return sem_value();
    });
    EXPECT_EQ(child.status, 0) << "the semaphore was reset while held";
    ASSERT_EQ(spy::raw_semop(sem, +1, SEM_UNDO), 0);
}

// The kernel undoes the lock of a process killed while holding it; what was
// stored before stays.
TEST_F(Store, KilledHolderDoesNotBlockTheOthers) {
    ASSERT_EQ(gv_opt_format_set_onu_description(1, 2, "kept", 4), 0);
    ASSERT_EQ(gv_opt_format_set_pon_module_pn(1, "PN-KEPT"), 0);
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t holder = fork();
    if (holder == 0) {
        spy::stop_while_holding(ready[1]);
        gv_opt_format_set_pon_module_pn(1, "NEVER");
        _exit(1);
    }
    close(ready[1]);
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1) << "the holder never took the lock";
    EXPECT_EQ(sem_value(), 0);
    kill(holder, SIGKILL);
    int status = 0;
    waitpid(holder, &status, 0);
    close(ready[0]);
    ASSERT_EQ(sem_value(), 1);
    EXPECT_EQ(description(1, 2), "kept");
    char pn[17] = {};
    EXPECT_EQ(gv_opt_format_get_pon_module_pn(1, pn), 0);
    EXPECT_STREQ(pn, "PN-KEPT");
    EXPECT_EQ(gv_opt_format_set_onu_description(1, 2, "written after", 13), 0);
    EXPECT_EQ(description(1, 2), "written after");
}

} // namespace
} // namespace onutest
