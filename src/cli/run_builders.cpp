// Lists of ports, ids, VLANs, GEM ports and ONUs written back as the text an
// operator types.
#include "cli/run_text.h"
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "sys/operator_message.h"

#include <cstdlib>
#include <optional>
#include <span>

namespace {

using gv::sys::ConvertedText;
using gv::sys::Decimal;
using gv::sys::RunText;

// Every builder starts the caller's text empty; false when there is no list
// to write (a null list or no members), or nowhere to write it.
bool start_text(const void *list, int count, char *dest) noexcept {
    if (dest == nullptr) {
        return false;
    }
    dest[0] = '\0';
    return list != nullptr && count > 0;
}

template <typename T> std::span<T> members(T *list, int count) noexcept {
    return {list, static_cast<std::size_t>(count)};
}

template <typename T>
void sort_members(T *list, int count, int (*compare)(const void *, const void *)) noexcept {
    std::qsort(list, static_cast<std::size_t>(count), sizeof(T), compare);
}

Decimal number_text(int value) noexcept {
    return Decimal(value);
}

} // namespace

int get_int_list_str(int *list, int count, char *dest) noexcept {
    if (!start_text(list, count, dest)) {
        return 0;
    }
    sort_members(list, count, compare_int);
    RunText text(dest);
    gv::cli::write_runs(members<const int>(list, count), gv::sys::kConsecutive, number_text, text);
    return static_cast<int>(text.length());
}

int get_port_str(uint32_t *list, int count, char *dest) noexcept {
    if (!start_text(list, count, dest)) {
        return 0;
    }
    return static_cast<int>(
        gv::cli::write_port_list(members(list, count), dest, RunText::kUnbounded));
}

int get_arragne_str(const uint32_t *list, int count, char *dest) noexcept {
    if (!start_text(list, count, dest)) {
        return 0;
    }
    RunText text(dest);
    gv::cli::write_runs(members(list, count), gv::sys::kConsecutive, gv::cli::port_text, text);
    return static_cast<int>(text.length());
}

int get_br_str(const uint16_t *ids, int count, char *dest) noexcept {
    if (!start_text(ids, count, dest)) {
        return 0;
    }
    return static_cast<int>(
        gv::cli::write_bridge_list(members(ids, count), dest, RunText::kUnbounded));
}

int get_gemport_str(uint32_t *list, int count, char *dest, int per) noexcept {
    if (!start_text(list, count, dest)) {
        return 0;
    }
    sort_members(list, count, compare_gemport);
    if (per <= 0) {
        return 0; // no mapper holds a GEM port: nothing to name
    }
    // A run ends at the last GEM port of a mapper: none crosses into the next.
    const auto same_mapper_next = [per](int previous, int index) noexcept {
        return gv::sys::kConsecutive(previous, index) && previous % per != 0;
    };
    const auto gem_text = [per](int index) noexcept { return gv::cli::gem_port_text(index, per); };
    RunText text(dest);
    gv::cli::write_runs(members<const uint32_t>(list, count), same_mapper_next, gem_text, text);
    return static_cast<int>(text.length());
}

int get_onu_str(uint8_t *ids, int count, char *dest) noexcept {
    if (!start_text(ids, count, dest)) {
        return 0;
    }
    sort_members(ids, count, compare_onuid);
    RunText text(dest);
    gv::cli::write_runs(members<const uint8_t>(ids, count), gv::sys::kConsecutive, number_text,
                        text);
    return static_cast<int>(text.length());
}

void pr_cli_str(int *list, int count, cli_ctx *ctx) noexcept {
    if (list == nullptr || count <= 0) {
        return;
    }
    sort_members(list, count, compare_int);
    // Each run is printed as it closes; only the last goes without a ",".
    const auto print = [ctx](gv::sys::Run run, bool last) noexcept {
        const ConvertedText first = gv::cli::port_text(run.first);
        if (run.single()) {
            gv::sys::say(ctx, last ? "%s" : "%s,", first.c_str());
            return;
        }
        const ConvertedText end = gv::cli::port_text(run.last);
        gv::sys::say(ctx, last ? "%s-%s" : "%s-%s,", first.c_str(), end.c_str());
    };
    std::optional<gv::sys::Run> held;
    gv::sys::for_each_list_run(members<const int>(list, count), gv::sys::kConsecutive,
                               [&](gv::sys::Run run) noexcept {
                                   if (held) {
                                       print(*held, false);
                                   }
                                   held = run;
                               });
    if (held) {
        print(*held, true);
    }
}
