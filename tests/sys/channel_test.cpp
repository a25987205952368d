// Text channels under a chassis root: responders, reply files, the remote
// path through rsctrl, and the failures a caller shows the operator.
#include "gvsim/gvsim.h"
#include "gvutil/sys.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

using gvtest::ChassisRoot;

class Channel : public ::testing::Test {
  protected:
    ChassisRoot root{"test3"};
    char reply[GVUTIL_REPLY_SIZE];
};

TEST_F(Channel, ResponderReplyAndResult) {
    root.write_program("proc/echo", "#!/bin/sh\nprintf 'got %s' \"$1\"\nexit 3\n");
    root.write_program("proc/fails", "#!/bin/sh\necho refused\nexit 255\n");
    root.write_file("proc/plain", "the same for all\n");
    EXPECT_EQ(sioctl("/proc/echo", "get 1 2", reply, 0), 3);
    EXPECT_STREQ(reply, "got get 1 2");
    EXPECT_EQ(sioctl("/proc/fails", "x", reply, 0), -1);
    EXPECT_STREQ(reply, "refused\n");
    EXPECT_EQ(sioctl("/proc/plain", "anything", reply, 0), 0);
    EXPECT_STREQ(reply, "the same for all\n");
}

TEST_F(Channel, FailuresLeaveTheirTextInTheReply) {
    EXPECT_EQ(sioctl("/proc/none", "x", reply, 0), -1);
    EXPECT_STREQ(reply, "%file open error : /proc/none (No such file or directory)\n");
    root.write_program("proc/hangs", "#!/bin/sh\nexec sleep 30\n");
    gvsim_channel_timeout(200);
    EXPECT_EQ(sioctl("/proc/hangs", "x", reply, 0), -1);
    gvsim_channel_timeout(0);
    EXPECT_STREQ(reply, "%ioctl open error (Connection timed out)\n");
    EXPECT_EQ(sioctl(nullptr, "x", reply, 0), -1);
    EXPECT_STREQ(reply, "");
    EXPECT_EQ(sioctl("/proc/none", "x", nullptr, 0), -1);
}

// A reply that fills the buffer keeps its last byte for the terminator.
TEST_F(Channel, LongReplyIsCutAndTerminated) {
    root.write_program("proc/flood", "#!/bin/sh\nyes x | tr -d '\\n' | head -c 20000\n");
    EXPECT_EQ(sioctl("/proc/flood", "x", reply, 0), 0);
    EXPECT_EQ(std::string(reply).size(), GVUTIL_REPLY_SIZE - 1);
}

// rsctrl answers "flag 0 result" and then the reply lines; the fake echoes
// its arguments so the command line is checked too.
TEST_F(Channel, RemoteSlotGoesThroughRsctrl) {
    root.write_program("bin/rsctrl",
                       "#!/bin/sh\n"
                       "case \"$4\" in /SLOT9*) echo 'There is no system'; exit 1;; esac\n"
                       "echo \"$2 0 7\"\necho \"$*\"\n"
                       "[ \"$5\" = long ] && for i in $(seq 200); do "
                       "printf '%050d\\n' \"$i\"; done\nexit 0\n");
    EXPECT_EQ(sioctl("/SLOT2/proc/x", "show", reply, 4), 7);
    EXPECT_STREQ(reply, "-o 4 -v /SLOT2/proc/x show\n");
    EXPECT_EQ(sioctl("/SLOT9/proc/x", "show", reply, 0), -1);
    EXPECT_STREQ(reply, "There is no system\n");
    // 160 lines of 51 bytes and the echoed line fit in 8192 bytes; the
    // next line would not and is dropped with all after it.
    EXPECT_EQ(sioctl("/SLOT2/proc/x", "long", reply, 0), 7);
    const std::string text = reply;
    EXPECT_EQ(text.back(), '\n');
    EXPECT_LE(text.size(), GVUTIL_REPLY_SIZE - 1);
    EXPECT_GT(text.size() + 51, GVUTIL_REPLY_SIZE - 1);
}

// The root's own rsctrl: an empty slot of the k7100 (9) has no system, a
// fitted one answers from the root's entry, and the MAC table, longer than
// a reply, is cut after its last whole line that fits.
TEST(GeneratedRsctrl, SlotsAndLongReplies) {
    ChassisRoot root("k7100");
    char reply[GVUTIL_REPLY_SIZE];
    struct Case {
        const char *path;
        int result;
        const char *reply;
    };
    for (const Case c : {
             Case{"/SLOT9/proc/gv_loglevel", -1, "There is no system\n"},
             Case{"/SLOT13/proc/gv_loglevel", -1, "There is no system\n"},
             Case{"/SLOTx/proc/gv_loglevel", -1, "There is no system\n"},
             Case{"/SLOT10/proc/gv_loglevel", 0, "1 3\n"},
             Case{"/SLOT1/proc/none", -1,
                  "%file open error : /proc/none (No such file or directory)\n"},
         }) {
        EXPECT_EQ(sioctl(c.path, "get 1 0", reply, 0), c.result) << c.path;
        EXPECT_STREQ(reply, c.reply) << c.path;
    }
    std::ifstream file(root.path() + "/proc/switch/mac_table");
    const std::string table{std::istreambuf_iterator<char>(file), {}};
    ASSERT_GT(table.size(), GVUTIL_REPLY_SIZE);
    const std::string whole = table.substr(0, table.rfind('\n', GVUTIL_REPLY_SIZE - 2) + 1);
    EXPECT_EQ(sioctl("/SLOT1/proc/switch/mac_table", "show", reply, 0), 0);
    EXPECT_EQ(std::string(reply), whole);
    EXPECT_EQ(sioctl("/proc/switch/mac_table", "show", reply, 0),
              0); // a local reply is cut anywhere
    EXPECT_EQ(std::string(reply), table.substr(0, GVUTIL_REPLY_SIZE - 1));
}

TEST_F(Channel, StrIoctlKeepsTheReplyInItsArea) {
    root.write_program("proc/echo", "#!/bin/sh\nprintf '%s' \"$1\"\n");
    char *first = nullptr;
    EXPECT_EQ(str_ioctl("/proc/echo", "one", &first, 0), 0);
    EXPECT_STREQ(first, "one");
    char *second = nullptr;
    EXPECT_EQ(str_ioctl("/proc/echo", "two", &second, 0), 0);
    EXPECT_EQ(first, second);
    EXPECT_STREQ(first, "two");
    EXPECT_EQ(str_ioctl("/proc/echo", std::string(9000, 'r').c_str(), nullptr, 0), 0);
}

TEST_F(Channel, SwitchServiceChannel) {
    root.write_program("proc/switch/pstat/ctrl", "#!/bin/sh\necho \"$1 at $GVSIM_NOW\"\n");
    gvsim_clock_set(1000);
    char *answer = nullptr;
    EXPECT_EQ(swch_sioctl("/proc/switch/pstat/ctrl", "interface-snmp 3", &answer, 0), 0);
    EXPECT_STREQ(answer, "interface-snmp 3 at 1000\n");
    EXPECT_EQ(swch_sioctl("/proc/switch/none", "x", &answer, 0), -1);
    EXPECT_STREQ(answer, "");
    gvsim_clock_release();
}

TEST(UpdatePeriod, ExpiresAfterTheGivenSeconds) {
    gvsim_clock_set(5000);
    time_t stamp = 0;
    EXPECT_EQ(gv_check_update_period(&stamp, 10), 1);
    EXPECT_EQ(stamp, 5000);
    gvsim_clock_advance(9);
    EXPECT_EQ(gv_check_update_period(&stamp, 10), 0);
    gvsim_clock_advance(1);
    EXPECT_EQ(gv_check_update_period(&stamp, 10), 1);
    EXPECT_EQ(stamp, 5010);
    gvsim_clock_set(100); // set back: the stamp lies ahead
    EXPECT_EQ(gv_check_update_period(&stamp, 10), 1);
    EXPECT_EQ(stamp, 100);
    gvsim_clock_release();
}

} // namespace
