// The interface type of a port and the interface clause of a command
// (" gigabitethernet 1/1-4,2/3") built from a list of pnums.
#include "gvutil/cli.h"
#include "gvutil/ifname.h"
#include "gvutil/platform.h"
#include "porttext/pnum_forms.h"
#include "sys/runs.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <strings.h>

using gv::porttext::PnumCounts;

namespace {

struct ClausePrefix {
    const char *type_word;
    const char *prefix;
};

// Looked up without regard to case, in this order.
constexpr ClausePrefix kClausePrefixes[] = {
    {"FE", " fastethernet "}, {"GE", " gigabitethernet "},    {"EPON", " epon "},
    {"XEPON", " xepon "},     {"XE", " tengigabitethernet "}, {"CE", " hundredgigabitethernet "},
    {"GPON", " gpon "},       {"XGPON", " xgpon "},           {"NGPON", " ngpon "},
    {"XGSPON", " xgspon "},   {"CG", " channelgroup "},
};
constexpr const char *kChannelGroupWord = "CG";

const ClausePrefix *find_clause_prefix(const char *type_word) noexcept {
    for (const ClausePrefix &entry : kClausePrefixes) {
        if (strcasecmp(entry.type_word, type_word) == 0) {
            return &entry;
        }
    }
    return nullptr;
}

struct PortRun {
    int slot;
    int first_port;
    int last_port;
};

// The clause holds at most this many runs; callers keep their lists shorter.
constexpr std::size_t kMostRuns = 256;
// The run list is built in a buffer of this size and cut there.
constexpr std::size_t kRunTextSize = 128;

} // namespace

int gv_get_if_type(int pnum, int slot, int port, char *dest, int size) noexcept {
    const PnumCounts counts = PnumCounts::load();
    if (counts.is_beyond(pnum)) {
        return counts.total; // callers look at the type word only
    }
    if (!counts.is_physical(pnum)) {
        if (port <= counts.groups) {
            if (size > 0) {
                std::strncpy(dest, kChannelGroupWord, static_cast<std::size_t>(size) - 1);
                dest[size - 1] = '\0';
            }
            return 0;
        }
        gv::porttext::map_type_b_trunk(pnum, slot, port);
    }
    char name[64] = {};
    get_ifname(slot, port, name);
    return get_interface_type(name, dest, size);
}

int gv_get_cli_format_string_from_plist(uint32_t *list, int count, char *dest) noexcept {
    if (list == nullptr || count <= 0 || dest == nullptr) {
        return -1;
    }
    if (count > 1) {
        std::qsort(list, static_cast<std::size_t>(count), sizeof *list, compare_port);
    }
    std::array<PortRun, kMostRuns> runs;
    std::size_t held = 0;
    const auto same_slot_next = [](int previous, int pnum) noexcept {
        return pnum == previous + 1 &&
               gv_get_slot_number_from_log_pnum(pnum) == gv_get_slot_number_from_log_pnum(previous);
    };
    gv::sys::for_each_list_run(std::span<const uint32_t>(list, static_cast<std::size_t>(count)),
                               same_slot_next, [&](gv::sys::Run run) noexcept {
                                   if (held < runs.size()) {
                                       runs[held++] = {
                                           gv_get_slot_number_from_log_pnum(run.first),
                                           gv_get_slotport_number_from_log_pnum(run.first),
                                           gv_get_slotport_number_from_log_pnum(run.last)};
                                   }
                               });

    char type_word[64] = {};
    gv_get_if_type(static_cast<int>(list[0]), runs[0].slot, runs[0].first_port, type_word,
                   sizeof type_word);
    const ClausePrefix *prefix = find_clause_prefix(type_word);
    if (prefix != nullptr) {
        gv::porttext::put_text(dest, prefix->prefix);
    }
    const bool groups = prefix != nullptr && std::strcmp(prefix->type_word, kChannelGroupWord) == 0;

    char run_text[kRunTextSize] = {};
    gv::sys::RunText text(run_text, sizeof run_text);
    for (std::size_t i = 0; i < held; ++i) {
        const PortRun &run = runs[i];
        char first[32];
        if (groups) {
            std::snprintf(first, sizeof first, "%d", run.first_port);
        } else {
            std::snprintf(first, sizeof first, "%d/%d", get_user_slot_by_real_slot(run.slot),
                          run.first_port);
        }
        text.open(first);
        if (run.last_port != run.first_port) {
            text.close(gv::sys::Decimal(run.last_port));
        }
    }
    std::strcat(dest, run_text);
    return 0;
}
