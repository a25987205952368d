// portcmd, idcmd, slotif and the grouped configuration commands: lists read
// as the shell reads them and written back as command text.
#include "commands.h"
#include "list_output.h"

#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/range.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace gvtool {

namespace {

// Texts as long as the longest lists make them.
constexpr std::size_t kTextSize = 40000;
constexpr int kMostPnums = 4096;
constexpr int kGemPortsPerMapper = 8;

// "A:B[:C],..." into rows of numbers; false when an element is not that form.
bool parse_rows(const char *text, std::size_t width, std::vector<std::vector<long>> &rows) {
    std::string list(text);
    std::size_t at = 0;
    while (at <= list.size()) {
        const std::size_t comma = std::min(list.find(',', at), list.size());
        std::vector<long> row;
        std::string element = list.substr(at, comma - at) + ":";
        for (std::size_t colon; (colon = element.find(':')) != std::string::npos;) {
            char *end = nullptr;
            row.push_back(std::strtol(element.c_str(), &end, 10));
            if (end != element.c_str() + colon || colon == 0) {
                return false;
            }
            element.erase(0, colon + 1);
        }
        if (row.size() != width) {
            return false;
        }
        rows.push_back(row);
        at = comma + 1;
    }
    return !rows.empty();
}

void print_ids_text(const std::vector<uint32_t> &ids) {
    std::vector<char> text(kTextSize);
    std::vector<int> ints(ids.begin(), ids.end());
    get_int_list_str(ints.data(), static_cast<int>(ints.size()), text.data());
    std::printf("%-12s %s\n", "ints", text.data());
    std::vector<uint16_t> vlans(ids.begin(), ids.end());
    get_br_str(vlans.data(), static_cast<int>(vlans.size()), text.data());
    std::printf("%-12s %s\n", "vlans", text.data());
    if (std::all_of(ids.begin(), ids.end(), [](uint32_t id) { return id <= 255; })) {
        std::vector<uint8_t> onus(ids.begin(), ids.end());
        get_onu_str(onus.data(), static_cast<int>(onus.size()), text.data());
        std::printf("%-12s %s\n", "onus", text.data());
    }
    std::vector<uint32_t> gems = ids;
    get_gemport_str(gems.data(), static_cast<int>(gems.size()), text.data(), kGemPortsPerMapper);
    std::printf("%-12s %s\n", "gem ports/8", text.data());
}

void print_slotif(const char *text) {
    // Names begin with a letter (GE105, ge105); range strings with a slot.
    if (std::isalpha(static_cast<unsigned char>(text[0])) != 0) {
        slot_port_pair pair{};
        const int result = get_slot_port_from_interface_name(text, &pair);
        std::printf("%-12s %d", text, result);
        if (result == 0) {
            std::printf("   slot %u port %u", pair.slot, pair.port);
        }
        std::printf("\n");
        return;
    }
    cli_ctx shell = shell_output();
    std::vector<slot_port_range> ranges(4096);
    const int count = parse_slotif_range_string(&shell, text, ranges.data());
    std::printf("%-12s %d", text, count);
    for (int i = 0; i < count; ++i) {
        const slot_port_range &r = ranges[static_cast<std::size_t>(i)];
        std::printf("  (%u, %u, %u)", r.slot, r.first_port, r.last_port);
    }
    std::printf("\n");
}

using Row = std::vector<long>;

// WORD OPTION TAIL ROWS: the texts of a grouped command and its entries, one
// made from each row; every printer prints its lines from a fresh copy.
template <typename Entry, typename MakeEntry, typename... Printers>
int run_grouped(Args args, const char *name, std::size_t width, MakeEntry make_entry,
                Printers... printers) {
    std::vector<Row> rows;
    if (args.size() != 4 || !parse_rows(args[3], width, rows)) {
        return usage_error(name);
    }
    std::vector<Entry> entries;
    entries.reserve(rows.size());
    for (const Row &row : rows) {
        entries.push_back(make_entry(row));
    }
    cli_ctx shell = shell_output();
    for (const auto printer : {printers...}) {
        std::vector<Entry> copy = entries;
        const int lines =
            printer(copy.data(), static_cast<int>(copy.size()), args[0], args[1], args[2], &shell);
        std::printf("(%d lines)\n", lines);
    }
    return 0;
}

} // namespace

int run_portcmd(Args args) {
    if (args.size() != 1) {
        return usage_error("portcmd");
    }
    cli_ctx shell = shell_output();
    std::vector<uint32_t> pnums(kMostPnums);
    const int listed = get_port_list(args[0], pnums.data(), get_port_num(0), &shell);
    pnums.resize(static_cast<std::size_t>(listed));
    print_numbers("pnums", pnums);
    if (listed == 0) {
        return 1;
    }
    std::vector<char> text(kTextSize);
    get_arragne_str(pnums.data(), listed, text.data());
    std::printf("%-12s %s\n", "as typed", text.data());
    std::vector<uint32_t> sorted = pnums;
    get_port_str(sorted.data(), listed, text.data());
    std::printf("%-12s %s\n", "ports", text.data());
    std::vector<int> printed(pnums.begin(), pnums.end());
    std::printf("%-12s ", "printed");
    std::fflush(stdout);
    pr_cli_str(printed.data(), listed, &shell);
    std::printf("\n");
    std::vector<uint16_t> ids(sorted.begin(), sorted.end());
    id_range *list = get_list_to_range(ids.data(), listed);
    make_range_str_port(list, text.data(), static_cast<int>(kTextSize));
    std::printf("%-12s %s\n", "range text", text.data());
    free_id_range(list);
    return 0;
}

int run_idcmd(Args args) {
    if (args.size() != 1) {
        return usage_error("idcmd");
    }
    id_range *list = get_id_list(args[0]);
    std::vector<uint16_t> ids(65536);
    ids.resize(static_cast<std::size_t>(get_range_to_list(list, ids.data(), 65536)));
    free_id_range(list);
    if (ids.empty()) {
        std::printf("not an id list: %s\n", args[0]);
        return 1;
    }
    std::vector<uint32_t> members(ids.begin(), ids.end());
    print_numbers("ids", members);
    print_ids_text(members);
    return 0;
}

int run_slotif(Args args) {
    if (args.empty()) {
        return usage_error("slotif");
    }
    for (const char *text : args) {
        print_slotif(text);
    }
    return 0;
}

int run_brcmds(Args args) {
    return run_grouped<br_info_t>(
        args, "brcmds", 2,
        [](const Row &row) {
            return br_info_t{static_cast<uint16_t>(row[0]), static_cast<uint16_t>(row[1])};
        },
        get_br_info_cmds);
}

int run_portcmds(Args args) {
    return run_grouped<port_info_t>(
        args, "portcmds", 2,
        [](const Row &row) {
            return port_info_t{static_cast<uint8_t>(row[0]), static_cast<int32_t>(row[1]), 0};
        },
        get_info_port_cmds, get_port_info_cmds);
}

int run_vpcmds(Args args) {
    return run_grouped<vp_info_t>(
        args, "vpcmds", 3,
        [](const Row &row) {
            return vp_info_t{static_cast<uint16_t>(row[0]), static_cast<uint8_t>(row[1]), 0,
                             static_cast<uint16_t>(row[2])};
        },
        get_vp_info_cmds);
}

} // namespace gvtool
