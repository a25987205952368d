// Parsing interface names, and the internal name lists built from an
// operator's type word and element list, sorted through the platform's
// balanced tree.
#include "gvutil/model.h"
#include "gvutil/platform.h"
#include "gvutil/sys.h"
#include "ifname/name_text.h"
#include "sys/scan.h"
#include "sys/text_builder.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

using gv::ifname::has_digit;
using gv::ifname::held_prefix;
using gv::ifname::prefix_of;
using gv::sys::scan_ints;
using gv::sys::TextBuilder;

static_assert(sizeof(ifname_sort_info_t) == 268, "sort records are 268 bytes");

namespace {

constexpr std::size_t kSeparatedNameSize = 67; // 31-character prefix, three 11-character numbers
constexpr std::size_t kMaxListLength = 99;     // element lists typed by the operator
constexpr std::size_t kInternalListSize = 256; // callers' internal-list buffers
constexpr std::size_t kWorkSize = 1024;        // room for any list built from 99 characters
constexpr std::size_t kMaxSortElements = 512;
constexpr int kMaxTunnel = 1023;
constexpr const char *kSource = "parse_interface"; // leak tracking of the sort records
constexpr int kAllocFlags = 0;

// The one sort tree of the process; it lives only while a list is sorted.
avl_tree *g_sort_tree = nullptr;

void put(int *out, int value) noexcept {
    if (out != nullptr) {
        *out = value;
    }
}

int separate(const char *name, bool translate, int *slot, int *first_port, int *last_port,
             char *normalised) noexcept {
    if (name == nullptr || *name == '\0') {
        return -1;
    }
    const std::string_view text(name);
    const auto slashes = std::count(text.begin(), text.end(), '/');
    if (!has_digit(text)) {
        return -1;
    }
    const std::string_view numbers = text.substr(prefix_of(text).size());
    std::array<int, 4> v{};
    int read = 0;
    int last = 0;
    if (text.find('-') == std::string_view::npos) {
        read = scan_ints(numbers, "%d/%d", v);
    } else if (slashes == 1) {
        read = scan_ints(numbers, "%d/%d-%d", v);
        last = v[2];
    } else if (slashes == 2) {
        read = scan_ints(numbers, "%d/%d-%d/%d", v);
        // A range reaching into another slot is no range.
        if (read < 4 || v[0] != v[2]) {
            return -1;
        }
        last = v[3];
    } else {
        return -1;
    }
    if (read <= 0) {
        return -1;
    }
    const int real_slot = translate ? get_real_slot_by_user_slot(v[0]) : v[0];
    const bool ranged = last != 0;
    const int low = ranged ? std::min(v[1], last) : v[1];
    const int high = ranged ? std::max(v[1], last) : v[1];
    put(slot, real_slot);
    put(first_port, low);
    put(last_port, high);
    if (normalised != nullptr) {
        const std::string_view prefix = held_prefix(text);
        const int length = static_cast<int>(prefix.size());
        if (ranged) {
            std::snprintf(normalised, kSeparatedNameSize, "%.*s%d/%d-%d", length, prefix.data(),
                          real_slot, low, high);
        } else {
            std::snprintf(normalised, kSeparatedNameSize, "%.*s%d/%d", length, prefix.data(),
                          real_slot, low);
        }
    }
    return 0;
}

bool separates(const char *name, bool translate) noexcept {
    return separate(name, translate, nullptr, nullptr, nullptr, nullptr) == 0;
}

ifname_sort_info_t *new_sort_record(const char *element, bool translate) noexcept {
    auto *record = static_cast<ifname_sort_info_t *>(
        mfh_malloc(sizeof(ifname_sort_info_t), kAllocFlags, kSource, __LINE__));
    if (record != nullptr) {
        std::memset(record, 0, sizeof *record);
        separate(element, translate, &record->slot, &record->first_port, &record->last_port,
                 record->name);
    }
    return record;
}

// Sorts names (split in place) into out through the sort tree.
int sort_names(char *names, bool translate, TextBuilder &out) noexcept {
    if (names == nullptr || gv::sys::count_elements(names) > kMaxSortElements) {
        return -1;
    }
    std::array<const char *, kMaxSortElements> separated{};
    std::size_t count = 0;
    char *cursor = names;
    for (char *element = gv::sys::next_element(cursor); element != nullptr;
         element = gv::sys::next_element(cursor)) {
        if (std::strchr(element, '/') == nullptr) {
            printd("[%d] token=%s\n", __LINE__, element);
            continue;
        }
        if (!separates(element, translate)) {
            return -1;
        }
        separated[count++] = element;
    }
    if (g_sort_tree != nullptr) {
        avl_Destroy(g_sort_tree, remove_ifname_sort_info);
    }
    g_sort_tree = avl_Create(compare_ifname_sort_info);
    if (g_sort_tree == nullptr) {
        printd("[%s:%d] Fail AVL Tree Create ! \n", "_de_convert_inter_name_sort", __LINE__);
        return -1;
    }
    for (std::size_t i = 0; i < count; ++i) {
        ifname_sort_info_t *record = new_sort_record(separated[i], translate);
        // A record the tree refuses names ports already listed.
        if (record != nullptr && avl_Insert(g_sort_tree, record) != 0) {
            remove_ifname_sort_info(record);
        }
    }
    const std::size_t start = out.size();
    for (auto *record = static_cast<const ifname_sort_info_t *>(avl_First(g_sort_tree));
         record != nullptr;
         record = static_cast<const ifname_sort_info_t *>(avl_Next(g_sort_tree, record))) {
        if (out.size() > start) {
            out.append(",");
        }
        out.append(record->name);
    }
    avl_Destroy(g_sort_tree, remove_ifname_sort_info);
    g_sort_tree = nullptr;
    return 0;
}

int sort_into(char *names, char *out, bool translate) noexcept {
    if (out == nullptr) {
        return -1;
    }
    TextBuilder appended = TextBuilder::after(out, TextBuilder::kUnbounded);
    return sort_names(names, translate, appended);
}

// An internal list reaches the caller's 256 bytes whole or not at all.
int deliver(const TextBuilder &built, char *out) noexcept {
    if (built.truncated() || built.size() >= kInternalListSize) {
        return -1;
    }
    std::memcpy(out, built.view().data(), built.size());
    out[built.size()] = '\0';
    return 0;
}

int tunnel_name(const char *word, const char *list, char *out) noexcept {
    int number = 0;
    const std::string_view source =
        list != nullptr ? std::string_view(list) : std::string_view(word).substr(6);
    if (scan_ints(source, "%d", {&number, 1}) != 1 || number > kMaxTunnel) {
        return -1;
    }
    char built[kInternalListSize];
    TextBuilder name(built, sizeof built);
    if (list != nullptr) {
        name.append("Tunnel");
        name.append(list);
    } else {
        name.append(word);
    }
    return deliver(name, out);
}

// The leading number of an element, 0 when it has none.
int leading_number(std::string_view element) noexcept {
    int number = 0;
    scan_ints(element, "%d", {&number, 1});
    return number;
}

int build_internal_list(const char *word, const char *list, char *out, bool translate) noexcept {
    if (word == nullptr || out == nullptr ||
        (list != nullptr && std::strlen(list) > kMaxListLength)) {
        return -1;
    }
    if (gv::ifname::begins_with_letters(word, "Tunnel")) {
        return tunnel_name(word, list, out);
    }
    int type = get_interface_type_from_full_prefix(word);
    if (type == GV_IF_BRIDGE && list != nullptr && std::strcmp(list, "1") == 0) {
        type = GV_IF_DEFAULT_BRIDGE;
    }
    if (type == GV_IF_CHANNEL_GROUP && list != nullptr && std::strchr(list, '/') != nullptr) {
        return -1;
    }
    const std::string_view prefix = gv::ifname::short_prefix(type);
    if (prefix.empty()) {
        return -1;
    }
    char built[kWorkSize];
    TextBuilder names(built, sizeof built);
    names.append(prefix);
    if (list == nullptr || type == GV_IF_DEFAULT_BRIDGE) {
        return deliver(names, out);
    }
    const bool ethernet = is_ethernet_interface(built) != 0;
    bool first = true;
    bool slot_seen = false;
    int slot = 0;
    const bool whole = gv::sys::for_each_element(list, [&](std::string_view element) {
        if (!first) {
            names.append(",");
            names.append(prefix);
        }
        first = false;
        if (element.find('/') != std::string_view::npos) {
            slot = leading_number(element);
            slot_seen = true;
        } else if (slot_seen) {
            names.appendf("%d/", slot);
        } else if (ethernet) {
            return false; // a bare port needs a slot before it
        }
        names.append(element);
        return true;
    });
    if (!whole || !ethernet) {
        return deliver(names, out);
    }
    char unsorted[kWorkSize];
    std::memcpy(unsorted, built, names.size() + 1);
    char sorted[kWorkSize];
    TextBuilder sorted_names(sorted, sizeof sorted);
    if (sort_names(unsorted, translate, sorted_names) != 0 || sorted_names.truncated()) {
        return deliver(names, out);
    }
    return deliver(sorted_names, out);
}

} // namespace

int get_interface_type(const char *name, char *prefix, int size) noexcept {
    if (name == nullptr || *name == '\0' || prefix == nullptr) {
        return -1;
    }
    if (size > 0) {
        std::memset(prefix, 0, static_cast<std::size_t>(size));
        const std::string_view text = prefix_of(name);
        std::memcpy(prefix, text.data(), std::min(text.size(), static_cast<std::size_t>(size) - 1));
    }
    return 0;
}

int is_interface_string_type(const char *name) noexcept {
    if (name == nullptr || *name == '\0') {
        return 0;
    }
    const char *slash = std::strchr(name, '/');
    if (slash == nullptr) {
        return 1;
    }
    for (const char *c = slash + 1; *c != '\0'; ++c) {
        if (!gv::ifname::is_dec(*c)) {
            return 0;
        }
    }
    return 1;
}

int get_type_slot_port_no_from_ifstr(const char *name, char *prefix, int *slot,
                                     int *port) noexcept {
    if (name == nullptr || *name == '\0') {
        return -1;
    }
    const std::string_view text(name);
    std::array<int, 2> v{};
    scan_ints(text.substr(prefix_of(text).size()), "%d/%d", v);
    put(slot, v[0]);
    put(port, v[1]);
    if (prefix != nullptr) {
        gv::ifname::put_prefix(prefix, prefix_of(text));
    }
    return 0;
}

int get_slot_port_no_from_ifstr(const char *name, int *slot, int *port) noexcept {
    return get_type_slot_port_no_from_ifstr(name, nullptr, slot, port);
}

int get_interface_name_separation_from_ifname(const char *name, int *slot, int *first_port,
                                              int *last_port, char *normalised) noexcept {
    return separate(name, true, slot, first_port, last_port, normalised);
}

int get_user_interface_name_separation_from_ifname(const char *name, int *slot, int *first_port,
                                                   int *last_port, char *normalised) noexcept {
    return separate(name, false, slot, first_port, last_port, normalised);
}

int get_group_id_from_ifname(const char *name) noexcept {
    int group = 0;
    if (name == nullptr || scan_ints(name, "CG%d", {&group, 1}) != 1) {
        return -1;
    }
    return group;
}

// The last step compares a's end with b's start: an element of the same slot
// and first port counts as the same element unless it ends later. The sort
// relies on exactly this to drop ports named twice.
int compare_ifname_sort_info(const void *a, const void *b) noexcept {
    if (a == nullptr || b == nullptr) {
        return a == b ? 0 : (a == nullptr ? -1 : 1);
    }
    const auto *x = static_cast<const ifname_sort_info_t *>(a);
    const auto *y = static_cast<const ifname_sort_info_t *>(b);
    if (x->slot != y->slot) {
        return x->slot > y->slot ? 1 : -1;
    }
    if (x->first_port != y->first_port) {
        return x->first_port > y->first_port ? 1 : -1;
    }
    if (x->last_port > y->last_port) {
        return 1;
    }
    return x->last_port >= y->first_port ? 0 : -1;
}

int remove_ifname_sort_info(void *info) noexcept {
    if (info != nullptr) {
        memmgr_free(kAllocFlags, info, kSource, __LINE__);
    }
    return 0;
}

int de_convert_inter_name_sort(char *names, char *out) noexcept {
    return sort_into(names, out, true);
}

int de_convert_user_inter_name_sort(char *names, char *out) noexcept {
    return sort_into(names, out, false);
}

int convert_interface_name(const char *word, const char *list, char *out) noexcept {
    return build_internal_list(word, list, out, true);
}

int convert_user_interface_name(const char *word, const char *list, char *out) noexcept {
    return build_internal_list(word, list, out, false);
}
