// The probes of the running system under a chassis root: free configuration
// space, time zone, uptime, FTP logs, host names, and the plain ioctl.
#include "gvutil/sys.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

using gvtest::ChassisRoot;

class Probes : public ::testing::Test {
  protected:
    ChassisRoot root{"test3"};
};

TEST_F(Probes, ConfigSpaceIsFullFrom86Percent) {
    EXPECT_EQ(gv_check_config_mem(), 0); // the root's df: /.config at 34%
    struct Case {
        std::string df;
        int full;
    };
    const std::string header = "Filesystem 1K-blocks Used Available Use% Mounted on\n";
    for (const Case &c : {
             Case{header + "/dev/mtd5 16384 14090 2294 85% /.config\n", 0},
             Case{header + "/dev/mtd5 16384 14091 2293 86% /.config\n", 1},
             Case{header + "/dev/mtd5 16384 16384 0 100% /.config\n", 1},
             // The first .config line decides.
             Case{header + "/dev/a 1 1 0 10% /.config\n/dev/b 1 1 0 99% /.config\n", 0},
             Case{header + "/dev/root 1 1 0 99% /\n", 0},
             Case{header + "/dev/mtd5 16384 14091 2293 - /.config\n", 0},
             Case{"/dev/mtd5 99% /.config\n", 0}, // fewer than five columns
             Case{"", 0},
         }) {
        root.write_program("bin/df", "#!/bin/sh\nprintf '%s' '" + c.df + "'\n");
        EXPECT_EQ(gv_check_config_mem(), c.full) << c.df;
    }
}

TEST_F(Probes, TimeZoneFromTheFirstLine) {
    struct Case {
        std::string line;
        int hours;
    };
    for (const Case &c :
         {Case{"GMT+9\n", 9}, Case{"GMT-5\n", -5}, Case{"GMT+0", 0},
          Case{"KST-9 GMT+9:00 Seoul\n", 9}, Case{"<GMT-10:30>\n", -10}, Case{"UTC\n", 0},
          Case{"GMT+\n", 0}, Case{"gmt+9\n", 0}, Case{"Asia/Seoul\nGMT+9\n", 0}, Case{"", 0}}) {
        root.write_file("etc/TZ", c.line);
        EXPECT_EQ(gv_get_timezone("/etc/TZ"), c.hours) << c.line;
    }
    EXPECT_EQ(gv_get_timezone("/etc/none"), 0);
    EXPECT_EQ(gv_get_timezone(nullptr), 0);
}

TEST_F(Probes, UptimeInHundredths) {
    EXPECT_EQ(get_system_uptime(), 9378452U); // the root's 93784.52
    struct Case {
        std::string text;
        std::uint64_t ticks;
    };
    for (const Case &c :
         {Case{"0.05 1.00\n", 5}, Case{"  12.34\n", 1234}, Case{"42949673.00 1\n", 4294967300U},
          Case{"12\n", 0}, Case{"12.\n", 0}, Case{"up 3 days\n", 0}, Case{"", 0}}) {
        root.write_file("proc/uptime", c.text);
        EXPECT_EQ(get_system_uptime(), c.ticks) << c.text;
    }
    std::filesystem::remove(root.path() + "/proc/uptime");
    EXPECT_EQ(get_system_uptime(), 0U);
}

TEST_F(Probes, FtpLogVerdict) {
    struct Case {
        std::string log;
        int size;
        std::string message;
    };
    for (const Case &c : {
             Case{"220 ready\n213 1024\n226 Transfer complete.\n", 1024, ""},
             Case{"213 100\n213 2048\n", 2048, ""},
             Case{"213 77\n213 \n", 77, ""}, // no second word: the size stays
             Case{"530 Login failed.\n213 5\n", 0, "login failed"},
             Case{"213 77\n550 No such file or directory.\n213 9\n", 77, "can't find file"},
             Case{"550 Not a directory.\n", 0, "can't find file"},
             Case{"452 No space left on device.\n", 0, "no space left on device"},
             Case{"ftp: bind: Address already in use\n", 0, "error in ftp service"},
             Case{"Not connected.\n", 0, "error in ftp service"},
             Case{"421 Service failure.\n", 0, "error in ftp service"},
             Case{"Failed to open file.\n", 0, "error in ftp service"},
             Case{"Nothing here\n", 0, ""},                    // "Not " needs its blank
             Case{std::string(300, 'x') + "213 55\n", 55, ""}, // read in 256-byte pieces
         }) {
        root.write_file("tmp/ftp.log", c.log);
        char message[64] = "stale";
        EXPECT_EQ(parse_ftp_error("/tmp/ftp.log", message), c.size) << c.log;
        EXPECT_EQ(std::string(message), c.message) << c.log;
    }
    char message[64] = "stale";
    EXPECT_EQ(parse_ftp_error("/tmp/none.log", message), 0);
    EXPECT_STREQ(message, "");
}

TEST(HostNames, FirstAddressInDottedForm) {
    char out[16] = "untouched";
    EXPECT_EQ(get_ip_from_host("localhost", out), 1);
    EXPECT_STREQ(out, "127.0.0.1");
    EXPECT_EQ(get_ip_from_host("10.1.2.3", out), 1);
    EXPECT_STREQ(out, "10.1.2.3");
    std::strcpy(out, "untouched");
    EXPECT_EQ(get_ip_from_host("", out), 0);
    EXPECT_STREQ(out, "untouched");
    EXPECT_EQ(get_ip_from_host(nullptr, out), 0);
}

// /proc/strioctl reached through the root: a terminal stands in for the
// driver, so the request really goes down as an ioctl.
TEST_F(Probes, StrioctlPassesTheRequestThrough) {
    errno = 0;
    EXPECT_EQ(strioctl(TIOCGWINSZ, nullptr, 0), -1);
    EXPECT_EQ(errno, ENOENT);
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(master, 0);
    ASSERT_EQ(grantpt(master), 0);
    ASSERT_EQ(unlockpt(master), 0);
    const winsize size{24, 132, 0, 0};
    ASSERT_EQ(ioctl(master, TIOCSWINSZ, &size), 0);
    std::filesystem::create_symlink(ptsname(master), root.path() + "/proc/strioctl");
    winsize seen{};
    EXPECT_EQ(strioctl(TIOCGWINSZ, &seen, 7), 0);
    EXPECT_EQ(seen.ws_col, 132);
    EXPECT_EQ(seen.ws_row, 24);
    close(master);
    std::filesystem::remove(root.path() + "/proc/strioctl");
    root.write_file("proc/strioctl", "");
    EXPECT_EQ(strioctl(TIOCGWINSZ, &seen, 0), -1); // a plain file takes no ioctl
}

} // namespace
