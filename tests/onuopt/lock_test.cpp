// The lock's take: a wait cut short is waited again; any other failure lets
// the access go ahead without a release for the lock it never took.
#include "onuopt/harness.h"

#include <cerrno>
#include <csignal>
#include <sched.h>
#include <sys/sem.h>
#include <sys/wait.h>
#include <unistd.h>

namespace onutest {
namespace {

TEST_F(Store, OnlyAnInterruptedTakeIsTriedAgain) {
    struct Case {
        std::vector<int> errors; // of the first takes
        int takes, releases;
    };
    const Case cases[] = {
        {{EINTR}, 1, 1},
        {{EINTR, EINTR, EINTR}, 1, 1},
        {{ENOMEM}, 0, 0},
        {{EINTR, EIDRM}, 0, 0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.errors));
        gv_opt_format_set_pon_module_pn(1, "OLD");
        spy::lock_log = {};
        spy::take_errors = c.errors;
        EXPECT_EQ(gv_opt_format_set_pon_module_pn(1, "NEW"), 0);
        EXPECT_EQ(std::string(db().pon[0].module_pn, 3), "NEW") << "the access goes ahead";
        EXPECT_EQ(spy::lock_log.failed_takes, static_cast<int>(c.errors.size()));
        EXPECT_EQ(spy::lock_log.takes, c.takes);
        EXPECT_EQ(spy::lock_log.releases, c.releases);
        EXPECT_EQ(sem_value(), 1);
    }
}

int handled_fd = -1;

void note_signal(int) {
    const char seen = 's';
    (void)!write(handled_fd, &seen, 1);
}

// Until the child waits on the semaphore (true) or has ended (false).
bool waits_for_lock(int sem_id, pid_t child) {
    for (int status = 0;; sched_yield()) {
        if (semctl(sem_id, 0, GETNCNT) == 1) {
            return true;
        }
        if (waitpid(child, &status, WNOHANG) != 0) {
            return false;
        }
    }
}

// A child waits while the test holds the lock; each interruption cuts its
// wait short, and it must wait again rather than go in.
TEST_F(Store, AWaitCutShortWaitsAgain) {
    const int sem_id = semget(GV_OPT_FORMAT_KEY, 1, 0);
    for (const bool by_stopping : {false, true}) {
        SCOPED_TRACE(by_stopping ? "stop and continue" : "signal with a handler");
        int handled[2];
        ASSERT_EQ(pipe(handled), 0);
        handled_fd = handled[1];
        ASSERT_EQ(gv_opt_format_set_onu_description(1, 2, "before", 6), 0);
        sembuf take{0, -1, SEM_UNDO}, give{0, +1, SEM_UNDO};
        ASSERT_EQ(semop(sem_id, &take, 1), 0);
        const pid_t child = start_child([] {
            spy::lock_log = {};         // the test's take is not the child's
            struct sigaction action {}; // no SA_RESTART
            action.sa_handler = note_signal;
            sigaction(SIGUSR1, &action, nullptr);
            return gv_opt_format_set_onu_description(1, 2, "after", 5);
        });
        close(handled[1]);
        bool waited = waits_for_lock(sem_id, child);
        for (int round = 0; round < 3 && waited; ++round) {
            int status = 0;
            char seen = 0;
            if (by_stopping) {
                kill(child, SIGSTOP);
                waitpid(child, &status, WUNTRACED);
                kill(child, SIGCONT);
            } else {
                kill(child, SIGUSR1);
                ASSERT_EQ(read(handled[0], &seen, 1), 1);
            }
            waited = waits_for_lock(sem_id, child);
        }
        EXPECT_TRUE(waited) << "went in without the lock";
        EXPECT_STREQ(db().pon[0].onu[2].description, "before");
        ASSERT_EQ(semop(sem_id, &give, 1), 0);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
        EXPECT_STREQ(db().pon[0].onu[2].description, "after");
        close(handled[0]);
    }
}

} // namespace
} // namespace onutest
