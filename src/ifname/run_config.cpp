// Internal names turned back into operator text for the running
// configuration and the interface-range prompt.
#include "gvutil/model.h"
#include "ifname/name_text.h"
#include "sys/scan.h"
#include "sys/text_builder.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <utility>

using gv::ifname::same_letters;
using gv::sys::TextBuilder;

namespace {

constexpr std::size_t kTextSize = 128;

// Each call overwrites its buffer; callers copy the text before the next one.
std::array<char, kTextSize> g_single_text{};
std::array<char, kTextSize> g_range_line{};
std::array<char, kTextSize> g_range_scratch{};

enum class Form { slot_port, number, fixed };

struct ConfigText {
    std::string_view prefix;
    std::string_view word;
    Form form;
    bool in_ranges; // ports; anything else ends a range line
};

constexpr ConfigText kConfigTexts[] = {
    {"FE", "fastethernet", Form::slot_port, true},
    {"GE", "gigabitethernet", Form::slot_port, true},
    {"EPON", "epon", Form::slot_port, true},
    {"XEPON", "xepon", Form::slot_port, true},
    {"XE", "tengigabitethernet", Form::slot_port, true},
    {"CE", "hundredgigabitethernet", Form::slot_port, true},
    {"GPON", "gpon", Form::slot_port, true},
    {"XGPON", "xgpon", Form::slot_port, true},
    {"NGPON", "ngpon", Form::slot_port, true},
    {"XGSPON", "xgspon", Form::slot_port, true},
    {"CG", "channelgroup", Form::number, true},
    {"br", "vlan", Form::number, false},
    {"default", "vlan 1", Form::fixed, false},
    {"mgmt", "management", Form::fixed, false},
    {"lo", "loopback", Form::fixed, false},
    {"Tunnel", "tunnel", Form::number, false},
};

const ConfigText *config_text(std::string_view prefix) noexcept {
    const auto *found =
        std::find_if(std::begin(kConfigTexts), std::end(kConfigTexts),
                     [prefix](const ConfigText &t) { return same_letters(t.prefix, prefix); });
    return found != std::end(kConfigTexts) ? found : nullptr;
}

void format_single(const char *name, TextBuilder &out) noexcept {
    char prefix[GV_IF_PREFIX_SIZE] = {};
    int slot = 0;
    int port = 0;
    if (get_type_slot_port_no_from_ifstr(name, prefix, &slot, &port) != 0) {
        return;
    }
    const ConfigText *text = config_text(prefix);
    if (text == nullptr) {
        return;
    }
    if (is_ethernet_interface(name) != 0) {
        slot = get_user_slot_by_real_slot(slot);
    }
    const int length = static_cast<int>(text->word.size());
    switch (text->form) {
    case Form::slot_port:
        out.appendf("%.*s %d/%d", length, text->word.data(), slot, port);
        break;
    case Form::number: // CG2, br10, Tunnel7: the one number of the name
        out.appendf("%.*s %d", length, text->word.data(), slot);
        break;
    case Form::fixed:
        out.append(text->word);
        break;
    }
}

// Appends one element of a range line; false when the line ends before it.
bool append_range_element(std::string_view element, std::string_view &previous,
                          TextBuilder &line) noexcept {
    std::array<char, kTextSize> name{};
    std::copy_n(element.begin(), std::min(element.size(), name.size() - 1), name.begin());
    if (element == "mgmt1" || is_port_interface(name.data()) == 0) {
        return false;
    }
    const std::string_view prefix = gv::ifname::held_prefix(element);
    const ConfigText *text = config_text(prefix);
    if (text == nullptr || !text->in_ranges) {
        return false;
    }
    const std::string_view rest = element.substr(gv::ifname::prefix_of(element).size());
    if (!previous.empty() && same_letters(prefix, previous)) {
        line.append(",");
        line.append(rest);
    } else {
        if (!previous.empty()) {
            line.append(",");
        }
        // The leading blank, and the one after a comma where the word changes,
        // are part of the line.
        line.append(" ");
        line.append(text->word);
        line.append(" ");
        line.append(rest);
    }
    previous = prefix;
    return true;
}

void sort_records(int count, ifrange_port_t *records) noexcept {
    for (int i = 0; i < count - 1; ++i) {
        for (int j = i + 1; j < count; ++j) {
            const ifrange_port_t &a = records[i];
            const ifrange_port_t &b = records[j];
            if (a.slot > b.slot || (a.slot == b.slot && a.port > b.port)) {
                std::swap(records[i], records[j]);
            }
        }
    }
}

bool follows(long long port, long long previous) noexcept {
    return port == previous + 1;
}

} // namespace

char *get_interface_string_for_run_config_from_ifstr(const char *name) noexcept {
    TextBuilder text(g_single_text.data(), g_single_text.size());
    if (name != nullptr && std::strcmp(name, "mgmt1") != 0) {
        format_single(name, text);
    }
    return g_single_text.data();
}

char *get_interface_range_string_for_run_config_from_ifranstr(const char *names) noexcept {
    TextBuilder line(g_range_line.data(), g_range_line.size());
    if (names == nullptr) {
        return g_range_line.data();
    }
    TextBuilder scratch(g_range_scratch.data(), g_range_scratch.size());
    scratch.append(names);
    std::string_view previous;
    gv::sys::for_each_element(scratch.view(), [&](std::string_view element) {
        return append_range_element(element, previous, line);
    });
    return g_range_line.data();
}

int get_slot_and_port_range_from_ifstr(const char *name, char *prefix, int *slot, int *first_port,
                                       int *last_port) noexcept {
    if (slot == nullptr || first_port == nullptr || last_port == nullptr) {
        return -1;
    }
    *slot = *first_port = *last_port = 0;
    if (name == nullptr || *name == '\0') {
        return -1;
    }
    const std::string_view text(name);
    if (!gv::ifname::has_digit(text)) {
        return 0;
    }
    const std::string_view numbers = text.substr(gv::ifname::prefix_of(text).size());
    const bool ranged = text.find('-') != std::string_view::npos;
    std::array<int, 4> v{};
    if (is_ethernet_interface(name) != 0) {
        if (!ranged) {
            if (gv::sys::scan_ints(numbers, "%d/%d", v) != 2) {
                return -1;
            }
            v[2] = v[1];
        } else if (const int read = gv::sys::scan_ints(numbers, "%d/%d-%d/%d", v); read == 4) {
            if (v[0] != v[2]) {
                return -1;
            }
            v[2] = v[3];
        } else if (gv::sys::scan_ints(numbers, "%d/%d-%d", v) != 3) {
            return -1;
        }
        *slot = v[0];
        *first_port = v[1];
        *last_port = v[2];
    } else if (is_cg_interface(name) != 0) {
        if (gv::sys::scan_ints(numbers, ranged ? "%d-%d" : "%d", v) != (ranged ? 2 : 1)) {
            return -1;
        }
        *first_port = v[0];
        *last_port = ranged ? v[1] : v[0];
    }
    if (prefix != nullptr) {
        gv::ifname::put_prefix(prefix, gv::ifname::prefix_of(text));
    }
    return 0;
}

void get_interface_range_prompt_string(char *name, int count, ifrange_port_t *records) noexcept {
    char *digit = name != nullptr ? std::strpbrk(name, "0123456789") : nullptr;
    if (digit == nullptr || records == nullptr || count <= 0) {
        return;
    }
    const bool ethernet = is_ethernet_interface(name) != 0;
    sort_records(count, records);
    TextBuilder out(digit, TextBuilder::kUnbounded);
    if (ethernet) {
        out.appendf("%d/", records[0].slot);
    }
    out.appendf("%d", records[0].port);
    long long previous = records[0].port; // p
    long long before = 0;                 // q, the port before p in the same slot
    bool have_before = false;
    for (int i = 1; i < count; ++i) {
        const ifrange_port_t &record = records[i];
        // A run closes only when the next port does not follow it, even across
        // slots: 1/1, 1/2, 2/3 prompts as 1/1,2/3. Operators have always seen
        // the prompt this way; the configuration itself is unaffected.
        if (!follows(record.port, previous) && have_before && follows(previous, before)) {
            out.appendf("-%lld", previous); // a run of two or more has just ended
        }
        if (record.slot != records[i - 1].slot) {
            out.appendf(",%d/%d", record.slot, record.port);
            have_before = false;
        } else {
            if (!follows(record.port, previous)) {
                out.appendf(",%d", record.port);
            } else if (i == count - 1) {
                out.appendf("-%d", record.port);
            }
            before = previous;
            have_before = true;
        }
        previous = record.port;
    }
}
