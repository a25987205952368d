// onu-*, olt-red: the shared ONU option store. Each command creates or
// attaches the store as any process of the chassis does; only onu-init
// initialises it, and onu-remove takes it away for a clean start.
#include "commands.h"
#include "port_arg.h"

#include "gvutil/onuopt.h"
#include "gvutil/sys.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <sys/sem.h>
#include <sys/shm.h>

namespace gvtool {

namespace {

int attach_store() {
    const int shm_id = gv_opt_format_create_shm();
    gv_opt_format_attach_shm(shm_id);
    gv_opt_format_create_sem();
    return shm_id;
}

struct OnuArgs {
    int port = -1;
    int onu_id = -1;
};

// PORT ONU at the front of args; false when they do not parse.
bool parse_onu_args(Args args, OnuArgs &out) {
    if (args.size() < 2) {
        return false;
    }
    out.port = parse_port(args[0]);
    out.onu_id = stoi(args[1]);
    return out.port >= 0 && out.onu_id >= 0;
}

// Attaches the store and reads the ONU's record; false (after a message)
// when the store has no such ONU.
bool read_onu(const OnuArgs &id, opt_format_onu_t &onu) {
    attach_store();
    if (gv_opt_format_get_onu_info(id.port, id.onu_id, &onu) == 0) {
        return true;
    }
    std::fprintf(stderr, "gvutil: pnum %d ONU %d is not in the store (PON 1..32, ONU id %d..129)\n",
                 id.port, id.onu_id, gv_opt_format_get_min_onu_id());
    return false;
}

bool parse_mac(const char *text, std::array<uint8_t, 6> &mac) {
    unsigned b[6];
    char end = 0;
    if (std::sscanf(text, "%2x:%2x:%2x:%2x:%2x:%2x%c", &b[0], &b[1], &b[2], &b[3], &b[4], &b[5],
                    &end) != 6) {
        return false;
    }
    for (std::size_t i = 0; i < mac.size(); ++i) {
        mac[i] = static_cast<uint8_t>(b[i]);
    }
    return true;
}

void print_mac(const uint8_t *mac) {
    std::printf("%02x:%02x:%02x:%02x:%02x:%02x", mac[0], mac[1], mac[2], mac[3], mac[4], mac[5]);
}

bool is_zero(const uint8_t *bytes, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) {
        if (bytes[i] != 0) {
            return false;
        }
    }
    return true;
}

int refused(const char *what) {
    std::fprintf(stderr, "gvutil: the store refused the %s\n", what);
    return 1;
}

// One setting of onu-set: the field's name and the words after it.
int set_field(const OnuArgs &onu, Args rest) {
    const char *field = rest[0];
    if (std::strcmp(field, "description") == 0 && rest.size() == 2) {
        const auto length = static_cast<int>(std::strlen(rest[1]));
        if (length > GV_OPT_FORMAT_DESC_OUT_SIZE) {
            std::fprintf(stderr, "gvutil: a description has at most 128 characters\n");
            return 2;
        }
        return gv_opt_format_set_onu_description(onu.port, onu.onu_id, rest[1], length) == 0
                   ? 0
                   : refused("description");
    }
    if (std::strcmp(field, "mac") == 0 && rest.size() == 2) {
        std::array<uint8_t, 6> mac{};
        if (!parse_mac(rest[1], mac)) {
            std::fprintf(stderr, "gvutil: '%s' is no MAC address (xx:xx:xx:xx:xx:xx)\n", rest[1]);
            return 2;
        }
        return gv_opt_format_set_onu_mac_address(onu.port, onu.onu_id, mac.data()) == 0
                   ? 0
                   : refused("MAC address");
    }
    if (std::strcmp(field, "unis") == 0 && rest.size() == 2 && stoi(rest[1]) >= 0) {
        return gv_opt_format_set_onu_num_of_uni(onu.port, onu.onu_id, stoi(rest[1])) == 0
                   ? 0
                   : refused("UNI count (24 at most)");
    }
    if (std::strcmp(field, "uni") == 0 && rest.size() == 3 && stoi(rest[1]) >= 0) {
        std::array<char, GV_OPT_FORMAT_UNI_DESC_SIZE> text{};
        if (std::strlen(rest[2]) > text.size()) {
            std::fprintf(stderr, "gvutil: a UNI description has at most 32 characters\n");
            return 2;
        }
        std::memcpy(text.data(), rest[2], std::strlen(rest[2]));
        return gv_opt_format_set_onu_uni_description(onu.port, onu.onu_id, 0, stoi(rest[1]),
                                                     text.data()) == 0
                   ? 0
                   : refused("UNI (0..23)");
    }
    return usage_error("onu-set");
}

// The PON's own options; false when the port is no PON of the store.
bool print_pon_head(int port) {
    char pn[GV_OPT_FORMAT_PN_SIZE] = {};
    pon_red_info_t red{};
    if (gv_opt_format_get_pon_module_pn(port, pn) != 0 ||
        gv_opt_format_get_pon_red_info(port, &red) != 0) {
        return false;
    }
    std::printf("port %d: module part number '%.16s', ", port, pn);
    if (red.mode == 0) {
        std::printf("no redundancy\n");
    } else {
        std::printf("redundancy mode %u, master PON %u, partner PON %u\n", red.mode, red.master_pon,
                    red.partner_pon);
    }
    return true;
}

bool in_use(const opt_format_onu_t &onu) {
    return onu.description[0] != '\0' || onu.num_of_uni != 0 || !is_zero(onu.mac, 6) ||
           !is_zero(onu.ident_addr, 6);
}

} // namespace

int run_onu_init(Args args) {
    if (!args.empty()) {
        return usage_error("onu-init");
    }
    const int shm_id = attach_store();
    gv_opt_format_init_db();
    std::printf("ONU option store initialised: segment %d, key %d, %d bytes\n", shm_id,
                GV_OPT_FORMAT_KEY, GV_OPT_FORMAT_SHM_SIZE);
    return 0;
}

int run_onu_attach(Args args) {
    if (!args.empty()) {
        return usage_error("onu-attach");
    }
    const int shm_id = attach_store();
    const int min_id = gv_opt_format_get_min_onu_id();
    // A store that nobody initialised has zeros where the records are numbered.
    const int first_id = min_id < 0 ? 0 : min_id;
    opt_format_onu_t first{};
    const bool numbered = gv_opt_format_get_onu_info(1, first_id, &first) == 0 && first.pon == 1 &&
                          first.onu_id == first_id;
    std::printf("ONU option store: segment %d, key %d\n", shm_id, GV_OPT_FORMAT_KEY);
    std::printf("minimum ONU id %d, serial numbers in %s\n", min_id,
                gv_opt_format_get_onu_display_sn() != 0 ? "upper case" : "lower case");
    if (!numbered) {
        std::printf("not initialised: run gvutil onu-init\n");
    }
    return 0;
}

int run_onu_set(Args args) {
    OnuArgs onu;
    opt_format_onu_t record{};
    if (args.size() < 3 || !parse_onu_args(args, onu)) {
        return usage_error("onu-set");
    }
    return read_onu(onu, record) ? set_field(onu, args.subspan(2)) : 1;
}

int run_onu_show(Args args) {
    OnuArgs id;
    if (args.size() != 2 || !parse_onu_args(args, id)) {
        return usage_error("onu-show");
    }
    opt_format_onu_t onu{};
    if (!read_onu(id, onu)) {
        return 1;
    }
    (void)print_pon_head(id.port);
    std::printf("ONU %d (record of PON %d, ONU %d)\n", id.onu_id, onu.pon, onu.onu_id);
    std::printf("  description      %.128s\n  MAC address      ", onu.description);
    print_mac(onu.mac);
    std::printf("\n  identity address ");
    print_mac(onu.ident_addr);
    std::printf("\n  UNI ports        %d\n  learning method  %d\n", onu.num_of_uni,
                onu.learning_method);
    for (int uni = 0; uni < GV_OPT_FORMAT_UNIS; ++uni) {
        if (onu.uni_description[uni][0] != '\0') {
            std::printf("  UNI %-2d           %.32s\n", uni, onu.uni_description[uni]);
        }
    }
    return 0;
}

int run_onu_table(Args args) {
    const int port = args.size() == 1 ? parse_port(args[0]) : -1;
    if (port < 0) {
        return usage_error("onu-table");
    }
    attach_store();
    if (!print_pon_head(port)) {
        return refused("port (PON 1..32)");
    }
    const int min_id = gv_opt_format_get_min_onu_id();
    opt_format_onu_t onu{};
    std::printf("%-4s %-17s %-4s %s\n", "ONU", "MAC address", "UNIs", "description");
    int shown = 0;
    // The PON's own records: id 129 would show the next PON's head.
    for (int id = min_id < 0 ? 0 : min_id; id < GV_OPT_FORMAT_ONU_RECORDS; ++id) {
        if (gv_opt_format_get_onu_info(port, id, &onu) != 0 || !in_use(onu)) {
            continue;
        }
        std::printf("%-4d ", id);
        print_mac(onu.mac);
        std::printf(" %-4d %.128s\n", onu.num_of_uni, onu.description);
        ++shown;
    }
    std::printf("%d ONU%s in use\n", shown, shown == 1 ? "" : "s");
    return 0;
}

int run_olt_red(Args args) {
    if (args.size() != 3 || stoi(args[0]) < 0) {
        return usage_error("olt-red");
    }
    const int master = stoi(args[1]);
    const int partner = stoi(args[2]);
    attach_store();
    if (gv_opt_format_set_olt_red(static_cast<uint32_t>(stoi(args[0])), master, partner) != 0) {
        return refused("PON numbers (1..32)");
    }
    for (const int pon : {master, partner}) {
        std::printf("PON %d: master PON %d\n", pon, gv_opt_format_get_olt_red_master_id(pon));
    }
    return 0;
}

int run_onu_remove(Args args) {
    if (!args.empty()) {
        return usage_error("onu-remove");
    }
    const int shm_id = shmget(GV_OPT_FORMAT_KEY, 0, 0);
    const int sem_id = semget(GV_OPT_FORMAT_KEY, 1, 0);
    const bool removed_shm = shm_id >= 0 && shmctl(shm_id, IPC_RMID, nullptr) == 0;
    const bool removed_sem = sem_id >= 0 && semctl(sem_id, 0, IPC_RMID) == 0;
    std::printf("segment %s, semaphore %s\n", removed_shm ? "removed" : "absent",
                removed_sem ? "removed" : "absent");
    return 0;
}

} // namespace gvtool
