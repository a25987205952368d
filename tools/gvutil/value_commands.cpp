// vlans, onus, cos, vrids, ranges, interfaces, gids, macs, gems, trunk-tags
// and ontids: value lists parsed as the shell parses them (its operator
// messages printed as the operator would see them), then the members and
// the texts the library prints for them.
#include "commands.h"
#include "list_output.h"

#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/onuopt.h"
#include "gvutil/settext.h"
#include "gvutil/sys.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/shm.h>
#include <vector>

namespace gvtool {

namespace {

constexpr int kVlanMax = 4094;
constexpr int kOnuMax = GV_OPT_FORMAT_MAX_ONU_ID;
// A range of mappers expands into one range for each of the 32 mappers.
constexpr std::size_t kMappers = 32;

// A number argument of the tool; false when it is none.
bool read_number(const char *text, int &value) {
    value = stoi(text);
    return value >= 0;
}

using TokenParser = int (*)(const char *, value_range *, int, cli_ctx *);

// Ranges with the shell's messages, then the members they name.
int run_value_list(const char *name, TokenParser parser, Args args) {
    int max = 0;
    if (args.size() != 2 || !read_number(args[1], max)) {
        return usage_error(name);
    }
    cli_ctx out = shell_output();
    std::vector<value_range> ranges(items_in(args[0]));
    const int count = parser(args[0], ranges.data(), max, &out);
    print_ranges("ranges", ranges.data(), count);
    print_numbers("members", values_of(ranges, count));
    return count > 0 ? 0 : 1;
}

// Attaches the ONU option store when one exists, so the smallest ONU id is
// the chassis' own; never creates one.
bool attach_existing_store() {
    if (shmget(GV_OPT_FORMAT_KEY, 0, 0) < 0) {
        return false;
    }
    gv_opt_format_attach_shm(gv_opt_format_create_shm());
    gv_opt_format_create_sem();
    return true;
}

std::string mac_text(const char *digits) {
    std::string text;
    for (int i = 0; i < GV_MAC_TOKEN_SIZE; i += 2) {
        text += (i > 0 ? ":" : "") + std::string(digits + i, 2);
    }
    return text;
}

} // namespace

int run_vlans(Args args) {
    if (args.size() != 1) {
        return usage_error("vlans");
    }
    cli_ctx out = shell_output();
    std::vector<value_range> ranges(items_in(args[0]));
    const int count = get_vid_token(args[0], ranges.data(), &out);
    print_ranges("ranges", ranges.data(), count);
    std::vector<uint16_t> listed(members_in(ranges, count));
    const int ids = get_br_list(args[0], listed.data(), nullptr);
    std::array<uint32_t, GV_ID_SET_WORDS> set{};
    for (int i = 0; i < ids; ++i) {
        ::set(set.data(), listed[static_cast<std::size_t>(i)] - 1);
    }
    print_numbers("ids", std::vector<uint32_t>(listed.begin(), listed.begin() + ids));
    std::vector<char> text(40000);
    vlanset2str(text.data(), kVlanMax, set.data());
    std::printf("%-12s %s\n", "vlans", text.data());
    vlanset2str2(text.data(), kVlanMax, set.data());
    std::printf("%-12s %s\n", "bridges", text.data());
    return count > 0 ? 0 : 1;
}

int run_onus(Args args) {
    int max = kOnuMax - 1;
    if (args.empty() || args.size() > 2 || (args.size() == 2 && !read_number(args[1], max))) {
        return usage_error("onus");
    }
    if (!attach_existing_store()) {
        std::printf("no ONU option store: the smallest ONU id reads as %d\n",
                    gv_opt_format_get_min_onu_id());
    }
    std::printf("%-12s %d-%d\n", "onu ids", gv_opt_format_get_min_onu_id(), max);
    cli_ctx out = shell_output();
    std::vector<value_range> ranges(items_in(args[0]));
    const int count = get_onu_token(args[0], ranges.data(), max, &out);
    print_ranges("ranges", ranges.data(), count);
    std::vector<uint8_t> ids(members_in(ranges, count));
    const int listed = get_onu_list(args[0], ids.data(), max, nullptr);
    print_numbers("ids", std::vector<uint32_t>(ids.begin(), ids.begin() + listed));
    return count > 0 ? 0 : 1;
}

int run_cos(Args args) {
    return run_value_list("cos", get_cos_token, args);
}

int run_vrids(Args args) {
    return run_value_list("vrids", get_vrid_token, args);
}

int run_ranges(Args args) {
    return run_value_list("ranges", get_range_token, args);
}

int run_interfaces(Args args) {
    return run_value_list("interfaces", get_interface_token, args);
}

int run_gids(Args args) {
    int limit = 0;
    if (args.size() != 2 || !read_number(args[1], limit)) {
        return usage_error("gids");
    }
    cli_ctx out = shell_output();
    std::string text = args[0]; // cut in place by the parser
    std::vector<uint32_t> ids(std::size_t{GV_GID_ARRAY_WORDS} * 32);
    const int count = get_gid_list(text.data(), ids.data(), limit, &out);
    ids.resize(static_cast<std::size_t>(count));
    print_numbers("ids", ids);
    return count > 0 ? 0 : 1;
}

int run_macs(Args args) {
    if (args.size() != 1) {
        return usage_error("macs");
    }
    cli_ctx out = shell_output();
    std::vector<char> digits(items_in(args[0]) * GV_MAC_TOKEN_SIZE);
    const int count = get_mac_token(args[0], digits.data(), &out);
    for (int i = 0; i < count; ++i) {
        const char *address = digits.data() + static_cast<std::size_t>(i) * GV_MAC_TOKEN_SIZE;
        std::printf("%-12s %.12s  %s\n", "address", address, mac_text(address).c_str());
    }
    std::printf("%d address%s\n", count, count == 1 ? "" : "es");
    return count > 0 ? 0 : 1;
}

int run_gems(Args args) {
    int per = 0;
    int max = 0;
    if (args.size() < 2 || args.size() > 3 || !read_number(args[1], per) ||
        (args.size() == 3 && !read_number(args[2], max))) {
        return usage_error("gems");
    }
    if (args.size() == 2) {
        max = per * 32;
    }
    // The ranges quietly first, then the indexes with the shell's messages.
    uint32_t errors = 0;
    std::vector<mapper_gem_range> ranges(items_in(args[0]) * kMappers);
    const int count = get_mapper_gemport_token(args[0], ranges.data(), &errors, per, nullptr);
    std::printf("%-12s", "ranges");
    for (int i = 0; i < count; ++i) {
        const mapper_gem_range &r = ranges[static_cast<std::size_t>(i)];
        std::printf(" %u/%u-%u", r.mapper, r.first_gem, r.last_gem);
    }
    std::printf("%s   (mapper/GEM ports, %u item errors)\n", count == 0 ? " (none)" : "", errors);
    cli_ctx out = shell_output();
    // Indexes are listed once each, and each lies in 1..max and 1..32 * per.
    const int most = std::max(0, std::min(max, static_cast<int>(kMappers) * per));
    std::vector<uint32_t> indexes(static_cast<std::size_t>(most) + 1);
    const int listed = get_mapper_gemport(args[0], indexes.data(), max, per, &out);
    indexes.resize(static_cast<std::size_t>(listed));
    print_numbers("indexes", indexes);
    std::printf("%-12s", "gem ports");
    for (std::size_t i = 0; i < indexes.size() && i < kListedNumbers; ++i) {
        char text[32];
        std::printf(" %s", sputil_mk_string_from_int_gemport(static_cast<int>(indexes[i]), text,
                                                             sizeof text, per));
    }
    std::printf(indexes.empty() ? " (none)\n" : indexes.size() > kListedNumbers ? " ...\n" : "\n");
    return listed > 0 ? 0 : 1;
}

int run_trunk_tags(Args args) {
    if (args.empty()) {
        return usage_error("trunk-tags");
    }
    int unknown = 0;
    for (const char *word : args) {
        const int index = trunk_tag_to_index(word);
        const char *shown = trunk_index_to_user_tag(index);
        std::printf("%-12s index %d, written back as %s\n", word, index,
                    shown != nullptr ? shown : "(nothing)");
        unknown += index < 0 ? 1 : 0;
    }
    return unknown == 0 ? 0 : 1;
}

int run_ontids(Args args) {
    if (args.empty()) {
        return usage_error("ontids");
    }
    for (const char *word : args) {
        char *end = nullptr;
        const unsigned long ontid = std::strtoul(word, &end, 0);
        if (end == word || *end != '\0') {
            return usage_error("ontids");
        }
        char text[32];
        convert_int_ontid_to_str_ontid(static_cast<uint32_t>(ontid), text);
        std::printf("%-12s %s\n", word, text);
    }
    return 0;
}

} // namespace gvtool
