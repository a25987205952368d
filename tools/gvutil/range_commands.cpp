// range and instances: id, port and bridge lists read into linked range
// lists, printed back, expanded and rebuilt; per-member instance numbers
// grouped into instances.
#include "commands.h"
#include "list_output.h"

#include "gvutil/range.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace gvtool {

namespace {

// The list text and its ids can be as long as 4094 VLANs make them.
constexpr int kTextSize = 40000;
constexpr int kMostIds = 65536;

std::string nodes_of(const id_range *list) {
    std::string text;
    for (const id_range *node = list; node != nullptr; node = node->next) {
        text += " {" + std::to_string(node->start) + "-" + std::to_string(node->end) + "}";
    }
    return text.empty() ? " (none)" : text;
}

std::string members_of(const id_instance *instance) {
    std::vector<char> text(kTextSize);
    make_range_str(instance->ranges, text.data(), kTextSize);
    return std::to_string(instance->id) + ": " + text.data();
}

void print_instances(const char *label, const id_instance *list) {
    std::printf("%-12s", label);
    for (const id_instance *instance = list; instance != nullptr; instance = instance->next) {
        std::printf("  %s", members_of(instance).c_str());
    }
    std::printf("%s\n", list == nullptr ? " (none)" : "");
}

} // namespace

int run_range(Args args) {
    const bool ports = args.size() == 2 && std::strcmp(args[0], "--ports") == 0;
    const bool bridges = args.size() == 2 && std::strcmp(args[0], "--bridges") == 0;
    if (args.size() != 1 && !ports && !bridges) {
        return usage_error("idrange");
    }
    const char *text = args[args.size() - 1];
    id_range *list = ports     ? get_port_list_br(text)
                     : bridges ? get_br_list_br(text)
                               : get_id_list(text);
    std::printf("%-12s%s\n", "nodes", nodes_of(list).c_str());
    if (list == nullptr) {
        std::printf("not a list: %s\n", text);
        return 1;
    }
    std::vector<char> out(kTextSize);
    make_range_str(list, out.data(), kTextSize);
    std::printf("%-12s %s\n", "text", out.data());
    if (ports) {
        make_range_str_port(list, out.data(), kTextSize);
        std::printf("%-12s %s\n", "port text", out.data());
    }
    std::vector<uint16_t> ids(kMostIds);
    ids.resize(static_cast<std::size_t>(get_range_to_list(list, ids.data(), kMostIds)));
    print_numbers("ids", std::vector<uint32_t>(ids.begin(), ids.end()));
    id_range *rebuilt = get_list_to_range(ids.data(), static_cast<int>(ids.size()));
    make_range_str(rebuilt, out.data(), kTextSize);
    std::printf("%-12s %s\n", "rebuilt", out.data());
    cli_ctx shell = shell_output();
    std::printf("%-12s ", "out_range");
    std::fflush(stdout);
    out_range(&shell, list, "list");
    free_id_range(rebuilt);
    free_id_range(list);
    return 0;
}

int run_instances(Args args) {
    if (args.size() != 1) {
        return usage_error("instances");
    }
    std::vector<uint32_t> ids;
    for (const char *at = args[0]; *at != '\0';) {
        char *end = nullptr;
        const unsigned long id = std::strtoul(at, &end, 10);
        if (end == at || (*end != ',' && *end != '\0')) {
            std::fprintf(stderr, "instances: not a number list: %s\n", args[0]);
            return 2;
        }
        ids.push_back(static_cast<uint32_t>(id));
        at = *end == ',' ? end + 1 : end;
    }
    print_numbers("members", ids);
    std::vector<uint16_t> short_ids(ids.begin(), ids.end());
    id_instance *by_id = make_instance(short_ids.data(), static_cast<int>(short_ids.size()));
    print_instances("by id", by_id);
    id_instance *seen = make_instance32(ids.data(), static_cast<int>(ids.size()));
    print_instances("as seen", seen);
    seen = sort_instance_by_range(seen);
    print_instances("by member", seen);
    release_instance(seen);
    release_instance(by_id);
    return 0;
}

} // namespace gvtool
