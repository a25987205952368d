// Writers in several processes on the same ONU. Each run lasts a fixed time
// (kRun) whatever the machine, so it takes as long under an emulator, only
// with fewer rounds.
#include "onuopt/store_fixture.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace onutest {
namespace {

constexpr int kWriters = 4;
constexpr int kPort = 1, kOnu = 1, kSharedUni = 8;
constexpr auto kRun = std::chrono::milliseconds(1500);
constexpr int kFewestRounds = 20;

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

std::array<uint8_t, 6> mac_of(int writer, int round) {
    const auto r = static_cast<uint8_t>(round);
    return {static_cast<uint8_t>(writer),     r,
            static_cast<uint8_t>(r ^ 0x5a),   static_cast<uint8_t>(~r),
            static_cast<uint8_t>(writer * 3), r};
}

struct Tally {
    int rounds = 0;
    int torn = 0;
    int lost = 0; // own UNI text not the one last written
};

// One writer: description, MAC and a shared UNI text of the same ONU, plus
// its own UNI text, then the whole record read back and checked.
void write_and_check(int writer, Tally &tally) {
    attach_store();
    const auto stop = std::chrono::steady_clock::now() + kRun;
    for (int round = 1; std::chrono::steady_clock::now() < stop; ++round) {
        const std::string text = pattern(writer, round, 128), uni = pattern(writer, round, 32);
        const auto mac = mac_of(writer, round);
        gv_opt_format_set_onu_description(kPort, kOnu, text.c_str(), 128);
        gv_opt_format_set_onu_mac_address(kPort, kOnu, mac.data());
        gv_opt_format_set_onu_uni_description(kPort, kOnu, 0, kSharedUni, uni.c_str());
        gv_opt_format_set_onu_uni_description(kPort, kOnu, 0, writer, uni.c_str());
        opt_format_onu_t seen{};
        gv_opt_format_get_onu_info(kPort, kOnu, &seen);
        const int mac_writer = seen.mac[0], mac_round = seen.mac[1];
        tally.torn += author(seen.description, 128).first < 0 ? 1 : 0;
        tally.torn += author(seen.uni_description[kSharedUni], 32).first < 0 ? 1 : 0;
        tally.torn += mac_of(mac_writer, mac_round) != std::to_array(seen.mac) ? 1 : 0;
        tally.lost += std::string(seen.uni_description[writer], 32) != uni ? 1 : 0;
        tally.rounds = round;
    }
}

TEST_F(Store, ConcurrentWritersNeitherTearNorLoseRecords) {
    void *shared = mmap(nullptr, sizeof(Tally) * kWriters, PROT_READ | PROT_WRITE,
                        MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(shared, MAP_FAILED);
    auto *tallies = new (shared) Tally[kWriters];
    std::array<pid_t, kWriters> writers{};
    for (int w = 0; w < kWriters; ++w) {
        writers[w] = fork();
        if (writers[w] == 0) {
            alarm(30);
            write_and_check(w, tallies[w]);
            _exit(0);
        }
    }
    for (const pid_t pid : writers) {
        int status = 0;
        waitpid(pid, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    opt_format_onu_t last{};
    ASSERT_EQ(gv_opt_format_get_onu_info(kPort, kOnu, &last), 0);
    const auto [final_writer, final_round] = author(last.description, 128);
    ASSERT_GE(final_writer, 0) << "torn final description";
    EXPECT_EQ(final_round, tallies[final_writer].rounds) << "a writer's last text was lost";
    for (int w = 0; w < kWriters; ++w) {
        SCOPED_TRACE(w);
        EXPECT_GE(tallies[w].rounds, kFewestRounds);
        EXPECT_EQ(tallies[w].torn, 0);
        EXPECT_EQ(tallies[w].lost, 0);
        EXPECT_EQ(std::string(last.uni_description[w], 32), pattern(w, tallies[w].rounds, 32));
    }
    munmap(shared, sizeof(Tally) * kWriters);
}

} // namespace
} // namespace onutest
