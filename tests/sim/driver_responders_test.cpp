// The driver entries every generated root holds: what the statistics
// control, the sensor, scontrol and the switch's misc control answer, and
// the services the statistics rebuild asks of the host.
#include "gvsim/gvsim.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace {

struct Answer {
    int status; // the exchange's result, or -2 when there was none
    std::string reply;
};

Answer ask(const gvtest::ChassisRoot &root, const char *entry, const char *request) {
    char reply[8192];
    int result = 0;
    const std::string path = root.path() + entry;
    if (gvsim_channel_exchange(path.c_str(), request, reply, sizeof reply, &result) != 0) {
        return {-2, ""};
    }
    return {result, reply};
}

std::string read(const gvtest::ChassisRoot &root, const char *relative) {
    std::ifstream in(root.path() + "/" + relative);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// At t = 100 port 1 has in unicast 100 x 1001; the driver knows pnums 1-48
// of test3 and nothing else.
TEST(DriverResponders, StatisticsControlAnswersTheChassisPnums) {
    gvtest::ChassisRoot root{"test3"};
    gvsim_clock_set(100);
    const Answer one = ask(root, "/proc/switch/pstat/ctrl", "interface-snmp 1");
    EXPECT_EQ(one.status, 0);
    EXPECT_NE(
        one.reply.find("IfInUcastPkts   : 100100               IfOutUcastPkts        : 80100\n"),
        std::string::npos)
        << one.reply;
    EXPECT_NE(one.reply.find("IfLastChange    : 107\n"), std::string::npos);
    const Answer last = ask(root, "/proc/switch/pstat/ctrl", "rmon-snmp 48");
    EXPECT_NE(last.reply.find("Octets          : 43130000 "), std::string::npos) << last.reply;
    EXPECT_NE(last.reply.find("Fragments       : 0\n"), std::string::npos);
    for (const char *refused : {"rmon-snmp 49", "rmon-snmp 0", "interface-snmp 01",
                                "interface-snmp -1", "interface-snmp 99999999999999999999",
                                "interface-snmp", "interface-snmp 1 2", "status 1", "* 1"}) {
        const Answer none = ask(root, "/proc/switch/pstat/ctrl", refused);
        EXPECT_EQ(none.status, -1) << refused;
        EXPECT_EQ(none.reply, "") << refused;
    }
    gvsim_clock_release();
}

TEST(DriverResponders, ScontrolSetsWhatTheSensorAnswers) {
    gvtest::ChassisRoot root{"test3"};
    EXPECT_EQ(ask(root, "/proc/sensor", "alarm-led status all").reply, "0 0 0 0\n");
    const std::string scontrol = root.path() + "/bin/scontrol -f " + root.path() + "/proc/sensor ";
    EXPECT_EQ(std::system((scontrol + "maj-led 30 1").c_str()), 0);
    EXPECT_EQ(std::system((scontrol + "min-led 31 1").c_str()), 0);
    EXPECT_EQ(ask(root, "/proc/sensor", "alarm-led status all").reply, "0 1 0 4\n");
    for (const char *bad : {"maj-led 32 1", "led 30 1", "maj-led 30 2", "maj-led 30"}) {
        EXPECT_NE(std::system((scontrol + bad + " 2>/dev/null").c_str()), 0) << bad;
    }
    EXPECT_NE(
        std::system((root.path() + "/bin/scontrol -f /dev/null maj-led 30 1 2>/dev/null").c_str()),
        0);
    EXPECT_EQ(read(root, "var/sensor/scontrol.log"), "maj-led 30 1\nmin-led 31 1\n");
    EXPECT_EQ(ask(root, "/proc/sensor", "alarm-led status").status, -1);
}

TEST(DriverResponders, MiscControlAnswersWhetherTheConfigurationIsApplied) {
    gvtest::ChassisRoot root{"k7100"};
    EXPECT_EQ(ask(root, "/proc/switch/misc/ctrl", "get config").reply, "1\n");
    root.write_file("var/switch/config_applied", "0\n");
    EXPECT_EQ(ask(root, "/proc/switch/misc/ctrl", "get config").reply, "0\n");
    EXPECT_EQ(ask(root, "/proc/switch/misc/ctrl", "get other").status, -1);
    EXPECT_EQ(read(root, "proc/ibc"), "");
}

// A slot's card in the equipment record decides; the ports come from the
// model record.
TEST(DriverResponders, PortsOfACardTypeInASlot) {
    gvtest::ChassisRoot root{"k7100"};
    const struct {
        int card, slot, ports;
    } rows[] = {{12, 1, 8}, {22, 3, 2}, {13, 4, 8}, {19, 7, 8},  {13, 1, 0},
                {0, 9, 0},  {13, 9, 0}, {12, 0, 0}, {12, 34, 0}, {12, -1, 0}};
    for (const auto &row : rows) {
        EXPECT_EQ(_get_max_port_by_type(row.card, row.slot), row.ports)
            << "card " << row.card << " slot " << row.slot;
    }
}

TEST(DriverResponders, OidOrder) {
    const oid a[] = {1, 3, 6, 1};
    const oid b[] = {1, 3, 7};
    EXPECT_EQ(snmp_oid_compare(a, 4, a, 4), 0);
    EXPECT_EQ(snmp_oid_compare(a, 4, b, 3), -1);
    EXPECT_EQ(snmp_oid_compare(b, 3, a, 4), 1);
    EXPECT_EQ(snmp_oid_compare(a, 3, a, 4), -1);
    EXPECT_EQ(snmp_oid_compare(a, 4, a, 2), 1);
    EXPECT_EQ(snmp_oid_compare(a, 0, b, 0), 0);
}

} // namespace
