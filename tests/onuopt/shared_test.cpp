// Several processes on one store.
#include "onuopt/harness.h"
#include "support/ipc_namespace.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <sys/sem.h>
#include <sys/wait.h>

namespace onutest {
namespace {

std::string description(int port, int id) {
    char out[128] = {};
    return gv_opt_format_get_onu_description(port, id, out) == 0 ? std::string(out) : "<refused>";
}

// A creator that has gone leaves its store to the next process, and the
// processes see each other's writes.
TEST_F(Store, ProcessesCreateOrAttachAndSeeEachOthersWrites) {
    ASSERT_EQ(gvtest::enter_private_ipc_namespace(), "") << "a namespace without a store";
    const ChildResult creator = in_child([] {
        attach_store();
        gv_opt_format_init_db();
        return gv_opt_format_set_onu_description(2, 3, "by the creator", 14);
    });
    ASSERT_EQ(creator.status, 0) << creator.err;
    attach_store();
    EXPECT_EQ(description(2, 3), "by the creator");
    EXPECT_EQ(gv_opt_format_get_min_onu_id(), 1);
    ASSERT_EQ(gv_opt_format_set_onu_description(7, 9, "by the parent", 13), 0);
    const ChildResult reader = in_child([] {
        attach_store();
        return description(7, 9) == "by the parent" ? 0 : 1;
    });
    EXPECT_EQ(reader.status, 0) << reader.err;
}

// A later process's set-up must not release the lock another one holds.
TEST_F(Store, LaterCreatorLeavesTheSemaphoreAlone) {
    const int sem = semget(GV_OPT_FORMAT_KEY, 1, 0);
    sembuf take{0, -1, SEM_UNDO}, give{0, +1, SEM_UNDO};
    ASSERT_EQ(semop(sem, &take, 1), 0);
    const ChildResult child = in_child([] {
        attach_store();
        return sem_value();
    });
    EXPECT_EQ(child.status, 0) << "the semaphore was reset while held";
    ASSERT_EQ(semop(sem, &give, 1), 0);
}

// The kernel undoes the lock of a process killed while holding it; what was
// stored before stays.
TEST_F(Store, KilledHolderDoesNotBlockTheOthers) {
    ASSERT_EQ(gv_opt_format_set_pon_module_pn(1, "PN-KEPT"), 0);
    const ChildResult holder = in_child([] {
        spy::kill_at_take = true;
        return gv_opt_format_set_pon_module_pn(1, "NEVER");
    });
    EXPECT_EQ(holder.status, 128 + SIGKILL) << "the holder never took the lock";
    ASSERT_EQ(sem_value(), 1);
    char pn[17] = {};
    EXPECT_EQ(gv_opt_format_get_pon_module_pn(1, pn), 0);
    EXPECT_STREQ(pn, "PN-KEPT");
}

// Writers in several processes on one ONU. Each runs for a fixed time, so the
// test takes as long under an emulator, only with fewer rounds.
constexpr int kWriters = 4, kFewestRounds = 20;
constexpr auto kRun = std::chrono::milliseconds(1500);

// A text that checks itself: a header naming writer and round, then filler
// that follows from the header.
std::string pattern(int writer, int round, std::size_t size) {
    char head[24];
    std::snprintf(head, sizeof head, "w%d r%d:", writer, round);
    std::string text = head;
    for (std::size_t i = text.size(); i < size; ++i) {
        text += static_cast<char>('a' + (writer * 7 + round + static_cast<int>(i)) % 26);
    }
    return text;
}

// The writer and round of a self-checking text, or {-1, -1} when it is torn.
std::pair<int, int> author(const char *text, std::size_t size) {
    int writer = -1, round = -1;
    if (std::sscanf(text, "w%d r%d:", &writer, &round) != 2 ||
        pattern(writer, round, size) != std::string(text, size)) {
        return {-1, -1};
    }
    return {writer, round};
}

// Each round: the shared description, then the writer's own UNI text, then
// the whole record read back. Exit status 1: a torn description, 2: its own
// text lost, 3: too few rounds to mean anything.
int write_and_check(int writer) {
    attach_store();
    const auto stop = std::chrono::steady_clock::now() + kRun;
    int round = 0;
    while (std::chrono::steady_clock::now() < stop) {
        ++round;
        const std::string text = pattern(writer, round, 128), uni = pattern(writer, round, 32);
        gv_opt_format_set_onu_description(1, 1, text.c_str(), 128);
        gv_opt_format_set_onu_uni_description(1, 1, 0, writer, uni.c_str());
        opt_format_onu_t seen{};
        gv_opt_format_get_onu_info(1, 1, &seen);
        if (author(seen.description, 128).first < 0) {
            return 1;
        }
        if (std::string(seen.uni_description[writer], 32) != uni) {
            return 2;
        }
    }
    return round < kFewestRounds ? 3 : 0;
}

TEST_F(Store, ConcurrentWritersNeitherTearNorLoseRecords) {
    std::array<pid_t, kWriters> writers{};
    for (int w = 0; w < kWriters; ++w) {
        writers[w] = start_child([w] { return write_and_check(w); });
    }
    for (const pid_t pid : writers) {
        int status = -1;
        waitpid(pid, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "wait status " << status;
    }
    // The last description is its writer's last round, as that writer's UNI
    // text (written after it) shows.
    opt_format_onu_t last{};
    ASSERT_EQ(gv_opt_format_get_onu_info(1, 1, &last), 0);
    const std::pair<int, int> final_text = author(last.description, 128);
    ASSERT_GE(final_text.first, 0) << "torn final description";
    EXPECT_EQ(author(last.uni_description[final_text.first], 32), final_text);
    for (int w = 0; w < kWriters; ++w) {
        EXPECT_EQ(author(last.uni_description[w], 32).first, w);
    }
}

} // namespace
} // namespace onutest
