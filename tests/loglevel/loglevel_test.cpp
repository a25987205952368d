// Kernel log levels: type and priority names, and thresholds set and read
// through the root's /proc/gv_loglevel, which keeps them as the driver does.
#include "gvsim/gvsim.h"
#include "gvutil/loglevel.h"
#include "gvutil/sys.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

using gvtest::ChassisRoot;

TEST(LogNames, TypesAndPriorities) {
    const char *types[] = {"unknown", "system", "physical-entity", "filter", "dhcp",   "gpon",
                           "epon",    "rmon",   "loop-detect",     "snmp",   "unknown"};
    for (int type = 0; type <= 10; ++type) {
        EXPECT_STREQ(gv_get_loglevel_typestr(type), types[type]) << type;
    }
    EXPECT_STREQ(gv_get_loglevel_typestr(-1), "unknown");
    const char *priorities[] = {"unknown", "emerg",  "alert", "crit",  "err",
                                "warning", "notice", "info",  "debug", "unknown"};
    for (int priority = -1; priority <= 8; ++priority) {
        EXPECT_STREQ(gv_get_loglevel_priostr(priority), priorities[priority + 1]) << priority;
    }
}

// Texts are searched for sys, phy, dhcp, filter, gpon, epon, rmon,
// loop-detect, snmp in that order.
TEST(LogNames, TypeFromText) {
    struct Case {
        const char *text;
        int type, indexes;
    };
    for (const Case c : {
             Case{"system", 1, 8},
             Case{"sys", 1, 8},
             Case{"physical-entity", 2, 10},
             Case{"filter", 3, 6},
             Case{"dhcp", 4, 2},
             Case{"gpon", 5, 29},
             Case{"xgpon", 5, 29},
             Case{"epon", 6, 18},
             Case{"rmon", 7, 3},
             Case{"loop-detect", 8, 10},
             Case{"loop", -1, -1},
             Case{"snmp", 9, 3},
             Case{"dhcp-sys", 1, 8},
             Case{"filter dhcp", 4, 2},
             Case{"gpon-epon", 5, 29},
             Case{"log", -1, -1},
             Case{"", -1, -1},
             Case{"GPON", -1, -1},
         }) {
        EXPECT_EQ(gv_get_loglevel_typeint(c.text), c.type) << c.text;
        EXPECT_EQ(gv_get_logindex_max(c.text), c.indexes) << c.text;
    }
    EXPECT_EQ(gv_get_loglevel_typeint(nullptr), -1);
    EXPECT_EQ(gv_get_logindex_max(nullptr), -1);
}

class LogLevels : public ::testing::Test {
  protected:
    ChassisRoot root{"test3"};
    char reply[GVUTIL_REPLY_SIZE] = {};
};

TEST_F(LogLevels, SetThenGetReturnsWhatWasSet) {
    EXPECT_EQ(gv_get_loglevel_priority(5, 3), 3); // as the root starts: enabled at err
    EXPECT_EQ(gv_set_loglevel_priority(1, 5, 3, 7), 0);
    EXPECT_EQ(gv_get_loglevel_priority(5, 3), 7);
    EXPECT_EQ(gv_get_loglevel_info(5, 3, reply), 0);
    EXPECT_STREQ(reply, "1 7\n");
    EXPECT_EQ(gv_set_loglevel_priority(2, 5, 3, 6), 0); // any flag but 1 disables
    EXPECT_EQ(gv_get_loglevel_info(5, 3, reply), 0);
    EXPECT_STREQ(reply, "0 6\n");
    EXPECT_EQ(gv_get_loglevel_priority(5, 4), 3); // its neighbour is untouched
    EXPECT_EQ(gv_set_loglevel_priority(1, 9, 2, 0), 0);
    EXPECT_EQ(gv_get_loglevel_priority(9, 2), 0);
    EXPECT_EQ(gv_get_loglevel_info(9, 2, reply), 0);
    EXPECT_STREQ(reply, "1 0\n");
    EXPECT_EQ(gv_get_loglevel_info(9, 2, nullptr), 0); // read, nothing copied
}

// Each type's last index is taken and the next one refused, so the
// library's index counts and the driver's agree.
TEST_F(LogLevels, UnknownTypeOrIndexGetsTheDriversText) {
    for (int type = 1; type <= 9; ++type) {
        const int max = gv_get_logindex_max(gv_get_loglevel_typestr(type));
        EXPECT_EQ(gv_set_loglevel_priority(1, type, max - 1, 6), 0) << type;
        EXPECT_EQ(gv_get_loglevel_priority(type, max - 1), 6) << type;
        EXPECT_EQ(gv_set_loglevel_priority(1, type, max, 6), -1) << type;
        EXPECT_EQ(gv_get_loglevel_info(type, max, reply), 0) << type;
        EXPECT_EQ(std::string(reply), "% Invalid log index : " + std::to_string(max) + " (type " +
                                          std::to_string(type) + " has 0-" +
                                          std::to_string(max - 1) + ")\n");
    }
    struct Case {
        int enable, type, index, priority, result;
        const char *text; // what a get of the same type and index answers
        int read;         // and the priority read from it
    };
    for (const Case &c : {
             Case{1, 10, 0, 3, -1, "% Invalid log type : 10\n", 0},
             Case{1, 0, 0, 3, -1, "% Invalid log type : 0\n", 0},
             Case{1, 1, -1, 3, -1, "% Invalid log index : -1 (type 1 has 0-7)\n", 0},
             Case{1, 1, 0, 8, -1, "1 3\n", 3},
             Case{1, 1, 0, -1, -1, "1 3\n", 3},
             Case{1, 1, 0, 7, 0, "1 7\n", 7},
             Case{0, 1, 0, 0, 0, "0 0\n", 0},
         }) {
        EXPECT_EQ(gv_set_loglevel_priority(c.enable, c.type, c.index, c.priority), c.result)
            << c.type << " " << c.index << " " << c.priority;
        EXPECT_EQ(gv_get_loglevel_info(c.type, c.index, reply), 0);
        EXPECT_STREQ(reply, c.text);
        EXPECT_EQ(gv_get_loglevel_priority(c.type, c.index), c.read);
    }
}

// The request lines the driver receives, logged by a responder of our own.
TEST_F(LogLevels, RequestLines) {
    root.write_program(
        "proc/gv_loglevel",
        "#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"$(dirname \"$0\")/../tmp/requests\"\n");
    for (const int enable : {1, 2, 0, -1}) {
        EXPECT_EQ(gv_set_loglevel_priority(enable, 5, 3, 7), 0);
    }
    EXPECT_EQ(gv_set_loglevel_priority(1, -2147483647 - 1, 2147483647, -5), 0);
    gv_get_loglevel_info(9, 2, reply);
    gv_get_loglevel_priority(1, 0);
    std::ifstream requests(root.path() + "/tmp/requests");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(requests), {}),
              "enable 5 3 7\ndisable 5 3 7\ndisable 5 3 7\ndisable 5 3 7\n"
              "enable -2147483648 2147483647 -5\nget 9 2\nget 1 0\n");
}

TEST_F(LogLevels, RepliesThatReadOddly) {
    struct Case {
        const char *reply;
        int info, priority;
    };
    for (const Case c : {Case{"5 6", 0, 6}, Case{"5 6 7\n", 0, 6}, Case{"  5\n 6\n", 0, 6},
                         Case{"5", 0, 0}, Case{"5,6", 0, 0}, Case{"x 6", 0, 0}, Case{"", -1, 0}}) {
        std::filesystem::remove(root.path() + "/proc/gv_loglevel"); // a reply file, not a program
        root.write_file("proc/gv_loglevel", c.reply);
        std::string copied = "untouched";
        copied.resize(GVUTIL_REPLY_SIZE);
        EXPECT_EQ(gv_get_loglevel_info(1, 0, copied.data()), c.info) << c.reply;
        if (c.info == 0) {
            EXPECT_STREQ(copied.c_str(), c.reply);
        } else {
            EXPECT_STREQ(copied.c_str(), "untouched"); // an empty reply copies nothing
        }
        EXPECT_EQ(gv_get_loglevel_priority(1, 0), c.priority) << c.reply;
    }
}

TEST_F(LogLevels, ChannelFailureLeavesItsText) {
    std::filesystem::remove(root.path() + "/proc/gv_loglevel");
    EXPECT_EQ(gv_set_loglevel_priority(1, 1, 0, 3), -1);
    EXPECT_EQ(gv_get_loglevel_info(1, 0, reply), 0);
    EXPECT_STREQ(reply, "%file open error : /proc/gv_loglevel (No such file or directory)\n");
    EXPECT_EQ(gv_get_loglevel_priority(1, 0), 0);
    root.write_program("proc/gv_loglevel", "#!/bin/sh\nexec sleep 30\n");
    gvsim_channel_timeout(200);
    EXPECT_EQ(gv_get_loglevel_info(1, 0, reply), 0);
    gvsim_channel_timeout(0);
    EXPECT_STREQ(reply, "%ioctl open error (Connection timed out)\n");
}

// The remote path of the same channel: another slot's driver through rsctrl.
TEST_F(LogLevels, AnotherSlotThroughRsctrl) {
    EXPECT_EQ(sioctl("/SLOT2/proc/gv_loglevel", "enable 6 17 5", reply, 0), 0);
    EXPECT_EQ(sioctl("/SLOT2/proc/gv_loglevel", "get 6 17", reply, 0), 0);
    EXPECT_STREQ(reply, "1 5\n");
    EXPECT_EQ(sioctl("/SLOT2/proc/gv_loglevel", "get 6 18", reply, 0), -1);
    EXPECT_STREQ(reply, "% Invalid log index : 18 (type 6 has 0-17)\n");
    EXPECT_EQ(gv_get_loglevel_priority(6, 17), 5); // the slots share the root's thresholds
}

} // namespace
