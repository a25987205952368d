// The statistics tree: one record per port, read from the switch driver's
// statistics control file and kept in a balanced tree keyed by (slot, port).
#include "gvutil/ifname.h"
#include "gvutil/model.h"
#include "gvutil/stats.h"
#include "stats/columns.h"
#include "stats/driver_reply.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <ctime>

namespace {

static_assert(sizeof(gv_if_stats_t) == GV_IF_STATS_RECORD_SIZE,
              "the record is a 584-byte allocation");

constexpr const char *kSource = GV_IF_STATS_SOURCE;
// Leak reports of the chassis name the free at this line; kept so that
// they still match.
constexpr int kFreeLine = 211;
constexpr const char *kControl = "/proc/switch/pstat/ctrl";
constexpr int kPeriod = 5;
// Flat port numbers read past the physical ports: the interlink ports and
// the first channel groups and trunks.
constexpr int kPnumsPastPhysical = 12;
constexpr unsigned kPhysicalPorts = 1;

// Line-card types whose ports the driver keeps counters for.
constexpr std::array<int, 18> kCountedCards = {12, 13, 14, 16, 17, 18, 19, 20, 21,
                                               22, 23, 24, 25, 27, 28, 32, 33, 34};

struct Key {
    std::int32_t slot;
    std::int32_t port;
};

struct Cache {
    avl_tree *tree = nullptr;
    std::time_t rebuilt = 0;
};

Cache cache;

// Both sides begin with the key: the sought Key or a held record.
Key key_of(const void *item) noexcept {
    Key key{};
    std::memcpy(&key, item, sizeof key);
    return key;
}

int compare_keys(const void *a, const void *b) noexcept {
    const Key x = key_of(a);
    const Key y = key_of(b);
    if (x.slot != y.slot) {
        return x.slot < y.slot ? -1 : 1;
    }
    if (x.port != y.port) {
        return x.port < y.port ? -1 : 1;
    }
    return 0;
}

int free_record(void *item) noexcept {
    memmgr_free(0, item, kSource, kFreeLine);
    return 0;
}

bool new_tree() noexcept {
    if (cache.tree != nullptr) {
        avl_Destroy(cache.tree, free_record);
    }
    cache.tree = avl_Create(compare_keys);
    return cache.tree != nullptr;
}

// The driver's reply, or null when it is empty.
const char *nonempty(char *reply) noexcept {
    return reply != nullptr && *reply != '\0' ? reply : nullptr;
}

const char *interface_reply(int pnum) noexcept {
    char command[32];
    std::snprintf(command, sizeof command, "interface-snmp %d", pnum);
    char *reply = nullptr;
    swch_sioctl(kControl, command, &reply, 0);
    return nonempty(reply);
}

const char *rmon_reply(int pnum) noexcept {
    char command[32];
    std::snprintf(command, sizeof command, "rmon-snmp %d", pnum);
    char *reply = nullptr;
    swch_sioctl(kControl, command, &reply, 0);
    return nonempty(reply);
}

// An empty reply leaves the record as it is.
void read_port(int pnum, gv_if_stats_t &record) noexcept {
    if (const char *reply = interface_reply(pnum)) {
        gv::stats::scan_interface_reply(reply, record);
    }
    if (const char *reply = rmon_reply(pnum)) {
        gv::stats::scan_rmon_reply(reply, record);
    }
}

// A refused allocation skips this record only.
void add_record(int slot, int port, bool named, int pnum) noexcept {
    void *block = mfh_malloc(GV_IF_STATS_RECORD_SIZE, 0, kSource, __LINE__);
    if (block == nullptr) {
        return;
    }
    std::memset(block, 0, GV_IF_STATS_RECORD_SIZE);
    auto *record = static_cast<gv_if_stats_t *>(block);
    record->slot = slot;
    record->port = port;
    if (named) {
        std::snprintf(record->name, sizeof record->name, "%d/%d", slot, port);
    }
    read_port(pnum, *record);
    if (avl_Insert(cache.tree, record) != 0) {
        free_record(record);
    }
}

bool counted_card(int card_type) noexcept {
    return std::find(kCountedCards.begin(), kCountedCards.end(), card_type) != kCountedCards.end();
}

void add_slot_records() noexcept {
    const eqm_global_info *eqm = EqmGlobalInfo;
    if (eqm == nullptr) {
        return;
    }
    for (int slot = get_start_slot(); slot <= eqm->slot_max && slot < EQM_SLOT_ENTRIES; ++slot) {
        const int card = eqm->card_type[slot];
        if (!counted_card(card)) {
            continue;
        }
        const int ports = _get_max_port_by_type(card, slot);
        for (int port = 1; port <= ports; ++port) {
            add_record(slot, port, true, get_port_number_from_slotport(slot, port));
        }
    }
}

// 0, or -1 when the tree cannot be made anew (the getters then answer 0).
int rebuild_when_due() noexcept {
    if (gv_check_update_period(&cache.rebuilt, kPeriod) == 0) {
        return 0;
    }
    if (!new_tree()) {
        return -1;
    }
    add_slot_records();
    const int last = get_port_num(kPhysicalPorts) + kPnumsPastPhysical;
    for (int pnum = 1; pnum <= last; ++pnum) {
        add_record(0, pnum, false, pnum);
    }
    return 0;
}

std::uint64_t lookup(int slot, int port, int table, int column) noexcept {
    if (cache.tree == nullptr) {
        return 0;
    }
    const Key key{slot, port};
    const auto *record = static_cast<const gv_if_stats_t *>(avl_Find(cache.tree, &key));
    return record != nullptr ? gv::stats::column_value(*record, table, column) : 0;
}

std::uint64_t lookup_name(const char *ifname, int table, int column) noexcept {
    int slot = 0;
    int port = 0;
    if (get_slot_port_no_from_ifstr(ifname, &slot, &port) != 0) {
        return 0;
    }
    return lookup(slot, port, table, column);
}

} // namespace

avl_tree *gv_if_stats_regist(void) noexcept {
    return new_tree() ? cache.tree : nullptr;
}

uint64_t gv_if_get_stats_by_pnum(int pnum, const char *ifname, int table, int column) noexcept {
    if (pnum == 0 || !new_tree()) {
        return 0;
    }
    add_record(0, pnum, false, pnum);
    int slot = 0;
    int port = 0;
    if (get_slot_port_no_from_ifstr(ifname, &slot, &port) != 0) {
        return 0;
    }
    return lookup(0, pnum, table, column);
}

uint64_t gv_if_get_stats_all(int pnum, const char *ifname, int table, int column) noexcept {
    if (pnum == 0 || rebuild_when_due() != 0) {
        return 0;
    }
    if (is_cg_interface(ifname) != 0) {
        return lookup(0, pnum, table, column);
    }
    return lookup_name(ifname, table, column);
}

uint64_t gv_if_get_stats_by_ifindex(int ifindex, int table, int column) noexcept {
    if (rebuild_when_due() != 0) {
        return 0;
    }
    const int slot = ifindex / 1000000;
    // An index below 1000000 names the switch-fabric unit's real slot.
    return lookup(slot != 0 ? slot : 3, ifindex % 10000, table, column);
}

uint64_t gv_if_get_stats_by_type(const char *ifname, int table, int column) noexcept {
    if (rebuild_when_due() != 0) {
        return 0;
    }
    return lookup_name(ifname, table, column);
}

int gv_rmon_stats_parse(int pnum, gv_if_stats_t *record) noexcept {
    if (record == nullptr) {
        return -1;
    }
    const char *reply = rmon_reply(pnum);
    if (reply == nullptr) {
        return -1;
    }
    gv::stats::scan_rmon_reply(reply, *record);
    return 0;
}
