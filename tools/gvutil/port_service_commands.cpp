// portdata, mirror, alive and octets: the services that number ports.
#include "commands.h"

#include "gvutil/model.h"
#include "gvutil/sys.h"
#include "gvutil/sysport.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace gvtool {

namespace {

// "1,3,5" as numbers; false when an item is no number.
bool parse_numbers(const char *text, std::vector<int> &numbers) {
    std::string list = text;
    std::size_t at = 0;
    while (at <= list.size()) {
        const std::size_t comma = std::min(list.find(',', at), list.size());
        const int value = stoi(list.substr(at, comma - at).c_str());
        if (value < 0) {
            return false;
        }
        numbers.push_back(value);
        at = comma + 1;
    }
    return !numbers.empty();
}

// The file a chassis path names in the current root.
std::string rooted(const char *path) {
    const char *root = std::getenv("GVUTIL_ROOT");
    return path[0] == '/' && root != nullptr ? std::string(root) + path : std::string(path);
}

int show_port_data(const char *path) {
    std::ifstream file(rooted(path));
    if (!file) {
        std::printf("%s: no port data\n", path);
        return 1;
    }
    std::cout << file.rdbuf();
    return 0;
}

void print_mirror_list(const char *side, const mirror_entry *list, int count) {
    std::printf("%-4s", side);
    for (int i = 0; i < count; ++i) {
        std::printf(" %d->%d", list[i].port, list[i].number);
    }
    std::printf("%s\n", count == 0 ? " (none)" : "");
}

void print_octets(const char *label, const unsigned char *octets, int count) {
    std::printf("%-10s", label);
    for (int i = 0; i < count; ++i) {
        std::printf("%02x", octets[i]);
    }
    std::printf("%s\n", count == 0 ? "(none)" : "");
}

void print_members(const portset_t &set) {
    std::printf("pnums    ");
    bool any = false;
    for (int port = 1; port <= GV_PORTSET_MAX_PORT; ++port) {
        if (ps_isset(&set, port) != 0) {
            std::printf(" %d", port);
            any = true;
        }
    }
    std::printf("%s\n", any ? "" : " (none)");
}

// Hex digits, two per octet; false for anything else or more than 192 octets.
bool parse_hex(const char *text, std::vector<unsigned char> &octets) {
    const std::size_t length = std::strlen(text);
    if (length == 0 || length % 2 != 0 || length > std::size_t{2} * 192 || is_hex(text) == 0) {
        return false;
    }
    for (std::size_t at = 0; at < length; at += 2) {
        octets.push_back(
            static_cast<unsigned char>(std::stoul(std::string(text + at, 2), nullptr, 16)));
    }
    return true;
}

int octets_from_hex(const char *text) {
    std::vector<unsigned char> octets;
    if (!parse_hex(text, octets)) {
        std::fprintf(stderr, "gvutil: '%s' is not 1..192 octets of hex\n", text);
        return 1;
    }
    const int count = static_cast<int>(octets.size());
    portset_t set;
    ps_zero(&set);
    std::printf("words     %d\n", convert_octet2portset_t(octets.data(), count, &set));
    print_members(set);
    std::vector<unsigned char> back(193);
    print_octets("back", back.data(), convert_portset_t2octet(&set, back.data(), 193));
    uint32_t value = 0;
    convert_octet2int(octets.data(), count, &value);
    std::printf("int       0x%08x (first 4 octets)\n", value);
    std::vector<uint32_t> words((octets.size() + 3) / 4);
    convert_octet2int_ext(octets.data(), count, words.data(), static_cast<int>(words.size()));
    std::printf("ext words");
    for (const uint32_t word : words) {
        std::printf(" %08x", word);
    }
    std::printf("\n");
    reverse_bit(octets.data(), count);
    print_octets("reversed", octets.data(), count);
    return 0;
}

int octets_from_pnums(const char *text) {
    std::vector<int> pnums;
    if (!parse_numbers(text, pnums)) {
        std::fprintf(stderr, "gvutil: '%s' is not a list of pnums\n", text);
        return 1;
    }
    portset_t set;
    ps_zero(&set);
    for (const int pnum : pnums) {
        ps_set(&set, pnum);
    }
    print_members(set);
    std::vector<unsigned char> octets(193);
    print_octets("octets", octets.data(), convert_portset_t2octet(&set, octets.data(), 193));
    return 0;
}

} // namespace

int run_portdata(Args args) {
    const std::string verb = args.empty() ? "" : args[0];
    if (verb == "show" && args.size() == 2) {
        return show_port_data(args[1]);
    }
    std::vector<int> ports;
    if (args.size() < 3 || !parse_numbers(args[2], ports)) {
        return usage_error("portdata");
    }
    const int count = static_cast<int>(ports.size());
    if (verb == "set" && args.size() >= 4) {
        std::string text;
        for (const char *word : args.subspan(3)) {
            text += (text.empty() ? "" : " ") + std::string(word);
        }
        std::printf("%d records written\n",
                    set_port_data(ports.data(), count, text.c_str(), args[1]));
        return show_port_data(args[1]);
    }
    if (verb == "del" && args.size() == 3) {
        std::printf("result %d\n", del_port_data(ports.data(), count, args[1]));
        return 0;
    }
    return usage_error("portdata");
}

int run_mirror(Args args) {
    if (!args.empty()) {
        return usage_error("mirror");
    }
    const auto room = static_cast<std::size_t>(get_port_num(1));
    std::vector<mirror_entry> rx(room);
    std::vector<mirror_entry> tx(room);
    int rx_count = 0;
    int tx_count = 0;
    int enabled = 0;
    const int total = get_mirror_info(rx.data(), &rx_count, tx.data(), &tx_count, &enabled);
    std::printf("mirror    %s, %d entries\n", enabled != 0 ? "enabled" : "disabled", total);
    print_mirror_list("rx", rx.data(), rx_count);
    print_mirror_list("tx", tx.data(), tx_count);
    return 0;
}

int run_alive(Args args) {
    std::vector<int> slots;
    for (const char *arg : args) {
        slots.push_back(std::atoi(arg));
    }
    if (slots.empty()) {
        for (int slot = 1; slot <= std::max(1, get_slot_number()); ++slot) {
            slots.push_back(slot);
        }
    }
    for (const int slot : slots) {
        std::printf("slot %-3d %s\n", slot, is_alive_slot(slot) != 0 ? "alive" : "-");
    }
    return 0;
}

int run_octets(Args args) {
    if (args.size() == 1) {
        return octets_from_hex(args[0]);
    }
    if (args.size() == 2 && std::strcmp(args[0], "-p") == 0) {
        return octets_from_pnums(args[1]);
    }
    return usage_error("octets");
}

} // namespace gvtool
