// A freshly created ONU option store on the test3 chassis, in the test
// process's private IPC namespace; child processes that use it as the
// chassis's other processes do; and a spy on the store's semaphore.
#pragma once

#include "gvutil/onuopt.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace spy {

// The library's semop and semctl reach the definitions in harness.cpp before
// libc's (an executable's symbols come first).
struct LockLog {
    int takes = 0, releases = 0, depth = 0, deepest = 0;
    int failed_takes = 0; // takes the system (or take_errors) refused
    int without_undo = 0; // operations lacking SEM_UNDO
};
// Since the last reset (assign {}). A nested take is counted, not performed,
// so a nesting fault shows as deepest > 1 instead of a hang.
inline LockLog lock_log;
// The next takes fail with these errors, first to last, without waiting.
inline std::vector<int> take_errors;
// When set, the next SETVAL fails with this errno.
inline int setval_error = 0;
// When set, runs once just before the next SETVAL reaches the system, with
// the set's id: a creator killed or stopped between its two steps.
inline std::function<void(int)> before_setval;
// When not -1, the first GETVAL writes a byte here (and the descriptor is
// forgotten): the process has started looking at a set.
inline int first_getval_fd = -1;
// When set, GETPID answers 0 and IPC_STAT a sem_otime of 0.
inline bool hide_last_pid = false, hide_otime = false;
// When set, the process sends itself SIGKILL at its next successful take.
inline bool kill_at_take = false;

} // namespace spy

namespace onutest {

// On test3 pnum p is PON index p-1 for p = 1..32, and the type-b trunk pnums
// 43, 44, ... stand for the PON ports 1, 3, ...
inline constexpr int kFirstTrunk = 43;

int sem_value();
// IPC_STAT's sem_otime of the store's set.
long long sem_otime();
// What a process that is not the creator runs at start-up.
void attach_store();

// Forks body, its stderr into err_fd when that is given; body's result is the
// child's exit status. The child is killed after 30 seconds.
pid_t start_child(const std::function<int()> &body, int err_fd = -1);

struct ChildResult {
    int status = -1; // exit status, or 128 + the signal that ended it
    std::string err; // what it wrote to stderr
};
ChildResult in_child(const std::function<int()> &body);

// A text that checks itself: a header naming writer and round, then filler
// that follows from the header.
std::string pattern(int writer, int round, std::size_t size);
// The writer and round of a self-checking text, or {-1, -1} when it is torn.
std::pair<int, int> author(const char *text, std::size_t size);

inline std::string bytes(const void *p, std::size_t n) {
    return {static_cast<const char *>(p), n};
}

// TearDown also checks that every lock the test process took was released,
// never nested and taken with SEM_UNDO.
class Store : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    opt_format_db_t &db() const { return *reinterpret_cast<opt_format_db_t *>(view); }
    // The segment and the mapped bytes after it, where ONU 129 of the last PON lives.
    std::vector<unsigned char> snapshot() const {
        return {view, view + GV_OPT_FORMAT_SHM_SIZE + sizeof(opt_format_onu_t)};
    }

    gvtest::ChassisRoot root{"test3"};
    unsigned char *view = nullptr; // the test's own attachment
};

} // namespace onutest
