// ifname, ifuser, ifreal and ifconfig: interface names between the operator's
// text and the internal names, on the chosen chassis.
#include "commands.h"

#include "gvutil/ifname.h"
#include "gvutil/model.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace gvtool {

namespace {

constexpr std::size_t kMaxPromptPorts = 1536;

const char *list_code_text(int code) {
    switch (code) {
    case 0:
        return "every port exists";
    case -2:
        return "the list does not convert, or an element does not parse";
    case -3:
        return "not a port list, or a port that this chassis does not have";
    case -4:
        return "more than 1000 elements";
    case -5:
        return "a range runs backwards";
    default:
        return "no list";
    }
}

std::vector<std::string> elements_of(const std::string &list) {
    std::vector<std::string> elements;
    std::size_t start = 0;
    while (start <= list.size()) {
        const std::size_t comma = std::min(list.find(',', start), list.size());
        if (comma > start) {
            elements.push_back(list.substr(start, comma - start));
        }
        start = comma + 1;
    }
    return elements;
}

// Every port of the elements that share the first one's prefix, as the shell
// hands them to the prompt.
std::vector<ifrange_port_t> ports_of(const std::vector<std::string> &elements) {
    std::vector<ifrange_port_t> ports;
    char first_prefix[GV_IF_PREFIX_SIZE] = {};
    char prefix[GV_IF_PREFIX_SIZE] = {};
    for (const auto &element : elements) {
        if (get_interface_type(element.c_str(), prefix, sizeof prefix) != 0 ||
            (first_prefix[0] != '\0' && std::strcmp(prefix, first_prefix) != 0)) {
            continue;
        }
        std::memcpy(first_prefix, prefix, sizeof prefix);
        int slot = 0;
        int first = 0;
        int last = 0;
        if (get_slot_and_port_range_from_ifstr(element.c_str(), nullptr, &slot, &first, &last) !=
            0) {
            continue;
        }
        // The prompt is the operator's: slots in user numbering.
        const int shown =
            is_ethernet_interface(element.c_str()) != 0 ? get_user_slot_by_real_slot(slot) : slot;
        for (long long port = first; port <= last && ports.size() < kMaxPromptPorts; ++port) {
            ports.push_back(ifrange_port_t{shown, static_cast<int32_t>(port), {0, 0}});
        }
    }
    return ports;
}

} // namespace

int run_ifname(Args args) {
    if (args.empty() || args.size() > 2) {
        return usage_error("ifname");
    }
    const char *list = args.size() == 2 ? args[1] : nullptr;
    char internal[256] = {};
    if (convert_interface_name(args[0], list, internal) != 0) {
        std::printf("%s %s: no internal name\n", args[0], list != nullptr ? list : "");
        return 1;
    }
    std::string copy = internal;
    std::printf("internal  %s\n", internal);
    std::printf("user      %s\n", convert_user_ifname_from_real_ifname(copy.data(), nullptr));
    if (list != nullptr) {
        std::vector<char> out(std::strlen(list) + 1);
        const int code = get_port_str_by_interface_name(
            args[0], list, static_cast<int>(std::strlen(list)), out.data());
        std::printf("ports     %s\n", list_code_text(code));
    }
    return 0;
}

int run_ifuser(Args args) {
    if (args.size() != 1) {
        return usage_error("ifuser");
    }
    std::string names = args[0];
    std::printf("%s\n", convert_user_ifname_from_real_ifname(names.data(), nullptr));
    return 0;
}

int run_ifreal(Args args) {
    if (args.size() != 1) {
        return usage_error("ifreal");
    }
    char out[128] = {};
    std::printf("%s\n", convert_real_ifname_from_user_ifname(args[0], out));
    return 0;
}

int run_ifconfig(Args args) {
    if (args.size() != 1) {
        return usage_error("ifconfig");
    }
    const std::vector<std::string> elements = elements_of(args[0]);
    for (const auto &element : elements) {
        std::printf("%-14s interface %s\n", element.c_str(),
                    get_interface_string_for_run_config_from_ifstr(element.c_str()));
    }
    std::printf("range line    \"interface range%s\"\n",
                get_interface_range_string_for_run_config_from_ifranstr(args[0]));
    std::vector<ifrange_port_t> ports = ports_of(elements);
    if (!elements.empty() && !ports.empty()) {
        std::string prompt = elements.front();
        prompt.resize(prompt.size() + ports.size() * 24);
        get_interface_range_prompt_string(prompt.data(), static_cast<int>(ports.size()),
                                          ports.data());
        std::printf("range prompt  (config-if-range %s)#\n", prompt.c_str());
    }
    return 0;
}

} // namespace gvtool
