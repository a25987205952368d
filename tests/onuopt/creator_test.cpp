// Creating the semaphore is two steps, semget and then its value: a creator
// that dies between them must not strand the others, and one that is only
// slow must not be overruled.
#include "onuopt/harness.h"
#include "support/ipc_namespace.h"

#include <chrono>
#include <csignal>
#include <sys/sem.h>
#include <sys/wait.h>
#include <unistd.h>

namespace onutest {
namespace {

// How long a process waits for a creator before it takes it for dead.
constexpr auto kGrace = std::chrono::seconds(1);

// These start in a namespace with no store at all.
class Creation : public ::testing::Test {
  protected:
    void SetUp() override { GVTEST_ENTER_PRIVATE_IPC_NAMESPACE(); }
    gvtest::ChassisRoot root{"test3"};
};

int set_id() {
    return semget(GV_OPT_FORMAT_KEY, 1, 0);
}

// A process that finds the store already made: set up, one write, one read.
int use_store() {
    attach_store();
    char text[128] = {};
    gv_opt_format_set_onu_description(1, 1, "next", 4);
    gv_opt_format_get_onu_description(1, 1, text);
    return std::string(text) == "next" && spy::lock_log.failed_takes == 0 ? 0 : 1;
}

TEST_F(Creation, CreatorKilledBetweenItsStepsStrandsNoOne) {
    const ChildResult creator = in_child([] {
        spy::before_setval = [](int) { raise(SIGKILL); };
        attach_store();
        return 0;
    });
    ASSERT_EQ(creator.status, 128 + SIGKILL);
    const int abandoned = set_id();
    ASSERT_EQ(semctl(abandoned, 0, GETVAL), 0);
    const auto start = std::chrono::steady_clock::now();
    const ChildResult next = in_child(use_store);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(next.status, 0) << next.err;
    EXPECT_GE(waited, kGrace) << "took the creator for dead too soon";
    EXPECT_LT(waited, kGrace + std::chrono::seconds(5));
    EXPECT_NE(set_id(), abandoned);
    EXPECT_EQ(sem_value(), 1);
}

TEST_F(Creation, SlowCreatorIsNotOverruled) {
    const pid_t creator = start_child([] {
        spy::before_setval = [](int) { raise(SIGSTOP); };
        attach_store();
        return 0;
    });
    int status = 0;
    waitpid(creator, &status, WUNTRACED);
    ASSERT_TRUE(WIFSTOPPED(status));
    const int created = set_id();
    int looked[2];
    ASSERT_EQ(pipe(looked), 0);
    const pid_t next = start_child([&looked] {
        spy::first_getval_fd = looked[1];
        return use_store();
    });
    close(looked[1]);
    char seen = 0;
    ASSERT_EQ(read(looked[0], &seen, 1), 1) << "the next process never looked at the set";
    kill(creator, SIGCONT);
    for (const pid_t child : {creator, next}) {
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
    }
    EXPECT_EQ(set_id(), created);
    EXPECT_EQ(sem_value(), 1);
    close(looked[0]);
}

// A creator stalled past the grace finds its set replaced when it goes on:
// it uses the new set instead of failing or giving it a second value.
TEST_F(Creation, LateCreatorUsesTheSetThatReplacedItsOwn) {
    const ChildResult late = in_child([] {
        spy::before_setval = [](int own) {
            semctl(own, 0, IPC_RMID);
            union {
                int val;
                semid_ds *buf;
            } one{1};
            semctl(semget(GV_OPT_FORMAT_KEY, 1, IPC_CREAT | 0666), 0, SETVAL, one);
        };
        return use_store();
    });
    EXPECT_EQ(late.status, 0);
    EXPECT_EQ(late.err, "");
    EXPECT_EQ(sem_value(), 1);
}

} // namespace
} // namespace onutest
