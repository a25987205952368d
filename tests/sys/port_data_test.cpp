// Port-data files: their lines and order, the scan that never takes an
// existing line, and writers killed in the middle of a rewrite.
#include "gvutil/sys.h"
#include "gvutil/sysport.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using gvtest::ChassisRoot;

constexpr const char *kFile = "/tmp/port_data";

class PortData : public ::testing::Test {
  protected:
    ChassisRoot root{"test3"};

    std::string file() const { return root.path() + kFile; }
    std::string content() const {
        std::ifstream in(file());
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::vector<std::string> tmp_entries() const {
        std::vector<std::string> names;
        for (const auto &entry : fs::directory_iterator(root.path() + "/tmp")) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
};

TEST_F(PortData, OneSortedLinePerPort) {
    const std::vector<int> ports = {12, 3, 260, 123, 3};
    // 260 is port 4 as a byte; 3 twice is one record.
    EXPECT_EQ(set_port_data(ports.data(), 5, "uplink to core", kFile), 4);
    EXPECT_EQ(content(), "Port 3  : uplink to core\n"
                         "Port 4  : uplink to core\n"
                         "Port 12 : uplink to core\n"
                         "Port 123 : uplink to core\n");
    EXPECT_EQ(tmp_entries(), std::vector<std::string>{"port_data"}); // no temporary file left
    struct stat st {};
    ASSERT_EQ(stat(file().c_str(), &st), 0);
    const mode_t mask = umask(0);
    umask(mask);
    EXPECT_EQ(st.st_mode & 0777, 0666 & ~mask);
}

// The scan asks a two-conversion pattern for three, so the lines already in
// the file never come back: each call writes exactly the ports it is given.
TEST_F(PortData, ExistingLinesAreNotTakenBack) {
    const int first[] = {1, 2};
    const int second[] = {5};
    EXPECT_EQ(set_port_data(first, 2, "a", kFile), 2);
    EXPECT_EQ(set_port_data(second, 1, "b", kFile), 1);
    EXPECT_EQ(content(), "Port 5  : b\n");
    root.write_file("tmp/port_data", "Port 7 : seven x\nPort 1 : one\n7 x 9 y\n");
    EXPECT_EQ(set_port_data(first, 1, "c", kFile), 1);
    EXPECT_EQ(content(), "Port 1  : c\n");
}

TEST_F(PortData, TextAndCountLimits) {
    std::vector<int> ports(300);
    for (int i = 0; i < 300; ++i) {
        ports[static_cast<std::size_t>(i)] = 299 - i;
    }
    // 256 distinct bytes at most; 256..299 land on ports 0..43 again.
    EXPECT_EQ(set_port_data(ports.data(), 300, "x", kFile), 256);
    const std::string lines = content();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 256);
    EXPECT_TRUE(lines.starts_with("Port 0  : x\nPort 1  : x\n"));
    EXPECT_TRUE(lines.ends_with("Port 255 : x\n"));

    const int one[] = {9};
    EXPECT_EQ(set_port_data(one, 1, std::string(255, 't').c_str(), kFile), 1);
    EXPECT_EQ(content(), "Port 9  : " + std::string(255, 't') + "\n");
    EXPECT_EQ(set_port_data(one, 1, std::string(256, 'u').c_str(), kFile), 1);
    EXPECT_EQ(content(), "Port 9  : " + std::string(255, 'u') + "\n");
}

TEST_F(PortData, NothingToWriteLeavesTheFileAlone) {
    const int one[] = {9};
    EXPECT_EQ(set_port_data(one, 0, "x", kFile), 0);
    EXPECT_FALSE(fs::exists(file()));
    EXPECT_EQ(set_port_data(nullptr, 1, "x", kFile), 0);
    EXPECT_EQ(set_port_data(one, 1, nullptr, kFile), 0);
    EXPECT_EQ(set_port_data(one, 1, "x", nullptr), 0);
    EXPECT_EQ(set_port_data(one, 1, "x", "/tmp/no/such/folder/data"), 0);
    EXPECT_EQ(tmp_entries(), std::vector<std::string>{});
}

TEST_F(PortData, DeleteFindsNoRecordToRemove) {
    const int ports[] = {1, 2};
    EXPECT_EQ(del_port_data(ports, 2, kFile), 0); // no file
    EXPECT_EQ(set_port_data(ports, 2, "kept", kFile), 2);
    EXPECT_EQ(del_port_data(ports, 1, kFile), 1);
    EXPECT_EQ(content(), "Port 1  : kept\nPort 2  : kept\n");
    EXPECT_EQ(del_port_data(nullptr, 1, kFile), 0);
}

TEST(ComparePortData, PortThenText) {
    std::vector<sp_data> records(5);
    const std::pair<int, const char *> given[] = {
        {3, "b"}, {1, "z"}, {3, "a"}, {255, ""}, {0, "q"}};
    for (std::size_t i = 0; i < records.size(); ++i) {
        records[i].port = static_cast<unsigned char>(given[i].first);
        std::strcpy(records[i].data, given[i].second);
    }
    std::qsort(records.data(), records.size(), sizeof(sp_data), compare_sp_data);
    std::string order;
    for (const sp_data &record : records) {
        order += std::to_string(record.port) + record.data + " ";
    }
    EXPECT_EQ(order, "0q 1z 3a 3b 255 ");
    EXPECT_EQ(compare_sp_data(&records[0], &records[0]), 0);
    EXPECT_LT(compare_sp_data(nullptr, &records[0]), 0);
    EXPECT_GT(compare_sp_data(&records[0], nullptr), 0);
}

// A writer alternates between two whole files of 256 long lines; killed at
// random moments, it must leave one of them every time.
TEST_F(PortData, KilledWritersLeaveAWholeFile) {
    std::vector<int> ports(256);
    for (int i = 0; i < 256; ++i) {
        ports[static_cast<std::size_t>(i)] = i;
    }
    const std::string texts[2] = {std::string(200, 'a'), std::string(200, 'b')};
    std::string whole[2];
    for (int v = 0; v < 2; ++v) {
        ASSERT_EQ(set_port_data(ports.data(), 256, texts[v].c_str(), kFile), 256);
        whole[v] = content();
    }
    std::mt19937 rng(20240611);
    for (int kill_number = 0; kill_number < 100; ++kill_number) {
        int progress[2];
        ASSERT_EQ(pipe(progress), 0);
        const pid_t writer = fork();
        if (writer == 0) {
            close(progress[0]);
            for (unsigned round = 0;; ++round) {
                set_port_data(ports.data(), 256, texts[round % 2].c_str(), kFile);
                (void)!write(progress[1], "", 1);
            }
        }
        close(progress[1]);
        // Some rewrites done, then the kill lands wherever the next one is.
        const int rounds = static_cast<int>(rng() % 3);
        char byte = 0;
        for (int i = 0; i < rounds; ++i) {
            ASSERT_EQ(read(progress[0], &byte, 1), 1);
        }
        for (unsigned spin = rng() % 200000; spin > 0; --spin) {
            asm volatile("" ::: "memory");
        }
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        close(progress[0]);
        const std::string now = content();
        ASSERT_TRUE(now == whole[0] || now == whole[1])
            << "kill " << kill_number << ": " << now.size() << " bytes";
    }
    // A temporary file left behind is a kill that landed inside a rewrite.
    const std::size_t torn_writes = tmp_entries().size() - 1;
    EXPECT_GT(torn_writes, 10U);
    RecordProperty("kills_inside_a_rewrite", static_cast<int>(torn_writes));
}

} // namespace
