// channel, loglevel and probe: the text channels, the kernel log levels and
// the probes of the running system, as the shell and the agent see them.
#include "commands.h"

#include "gvutil/loglevel.h"
#include "gvutil/sys.h"

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace gvtool {

namespace {

std::string joined(Args words) {
    std::string text;
    for (const char *word : words) {
        text += (text.empty() ? "" : " ") + std::string(word);
    }
    return text;
}

void print_reply(const char *reply) {
    const std::size_t length = std::strlen(reply);
    std::fputs(reply, stdout);
    if (length > 0 && reply[length - 1] != '\n') {
        std::fputs("\n", stdout);
    }
}

// A type by code or by name (gpon, physical-entity...); -1 for no name.
int type_arg(const char *text) {
    const int code = stoi(text);
    return code >= 0 ? code : gv_get_loglevel_typeint(text);
}

// A priority by code (0..7) or by name (err, debug...); -1 for none.
int priority_arg(const char *text) {
    const int code = stoi(text);
    if (code >= 0) {
        return code;
    }
    for (int priority = 0; priority <= 7; ++priority) {
        if (std::strcmp(text, gv_get_loglevel_priostr(priority)) == 0) {
            return priority;
        }
    }
    return -1;
}

int show_loglevels() {
    std::vector<char> reply(GVUTIL_REPLY_SIZE);
    std::printf("%-16s %-6s %-8s %s\n", "type", "index", "enabled", "priority");
    for (int type = 1; type <= 9; ++type) {
        const char *name = gv_get_loglevel_typestr(type);
        for (int index = 0; index < gv_get_logindex_max(name); ++index) {
            int enabled = 0;
            int priority = 0;
            if (gv_get_loglevel_info(type, index, reply.data()) != 0 ||
                std::sscanf(reply.data(), "%d %d", &enabled, &priority) != 2) {
                std::fprintf(stderr, "gvutil: %s %d: %s\n", name, index, reply.data());
                return 1;
            }
            std::printf("%-16s %-6d %-8s %d %s\n", name, index, enabled != 0 ? "yes" : "no",
                        priority, gv_get_loglevel_priostr(priority));
        }
    }
    return 0;
}

int get_loglevel(const char *type_text, const char *index_text) {
    const int type = type_arg(type_text);
    std::vector<char> reply(GVUTIL_REPLY_SIZE);
    if (gv_get_loglevel_info(type, stoi(index_text), reply.data()) != 0) {
        std::printf("(empty reply)\n");
        return 1;
    }
    std::printf("reply     ");
    print_reply(reply.data());
    const int priority = gv_get_loglevel_priority(type, stoi(index_text));
    std::printf("priority  %d %s\n", priority, gv_get_loglevel_priostr(priority));
    return 0;
}

int set_loglevel(Args args) {
    const int type = type_arg(args[0]);
    const int priority = priority_arg(args[2]);
    const bool enable = args.size() < 4 || std::strcmp(args[3], "disable") != 0;
    if (type < 0 || priority < 0) {
        std::fprintf(stderr, "gvutil: unknown %s '%s'\n", type < 0 ? "log type" : "priority",
                     type < 0 ? args[0] : args[2]);
        return 1;
    }
    const int result = gv_set_loglevel_priority(enable ? 1 : 0, type, stoi(args[1]), priority);
    std::printf("result    %d\n", result);
    return result == 0 ? get_loglevel(args[0], args[1]) : 1;
}

} // namespace

int run_channel(Args args) {
    int flag = 0;
    if (args.size() >= 2 && std::strcmp(args[0], "-f") == 0) {
        flag = std::atoi(args[1]);
        args = args.subspan(2);
    }
    if (args.size() < 2) {
        return usage_error("channel");
    }
    std::vector<char> reply(GVUTIL_REPLY_SIZE);
    const int result = sioctl(args[0], joined(args.subspan(1)).c_str(), reply.data(), flag);
    print_reply(reply.data());
    std::printf("result %d\n", result);
    return 0;
}

int run_loglevel(Args args) {
    if (args.empty()) {
        return show_loglevels();
    }
    const std::string verb = args[0];
    if (verb == "get" && args.size() == 3) {
        return get_loglevel(args[1], args[2]);
    }
    if (verb == "set" && (args.size() == 4 || args.size() == 5)) {
        return set_loglevel(args.subspan(1));
    }
    return usage_error("loglevel");
}

int run_probe(Args args) {
    const std::string what = args.empty() ? "" : args[0];
    if (what == "uptime" && args.size() == 1) {
        const std::uint64_t ticks = get_system_uptime();
        const std::uint64_t seconds = ticks / 100;
        std::printf("uptime %" PRIu64 " (%" PRIu64 "d %02d:%02d:%02d.%02d)\n", ticks,
                    seconds / 86400, static_cast<int>(seconds / 3600 % 24),
                    static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60),
                    static_cast<int>(ticks % 100));
        return 0;
    }
    if (what == "config-mem" && args.size() == 1) {
        std::printf("%s\n", gv_check_config_mem() != 0 ? "/.config is 86% full or more"
                                                       : "/.config has room");
        return 0;
    }
    if (what == "timezone" && args.size() == 2) {
        std::printf("%+d hours from GMT\n", gv_get_timezone(args[1]));
        return 0;
    }
    if (what == "ftp-log" && args.size() == 2) {
        char message[64];
        const int size = parse_ftp_error(args[1], message);
        std::printf("size     %d\nmessage  %s\n", size, message[0] != '\0' ? message : "(none)");
        return 0;
    }
    if (what == "host" && args.size() == 2) {
        char address[16];
        if (get_ip_from_host(args[1], address) != 1) {
            std::printf("%s does not resolve\n", args[1]);
            return 1;
        }
        std::printf("%s\n", address);
        return 0;
    }
    return usage_error("probe");
}

} // namespace gvtool
