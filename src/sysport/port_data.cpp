// Port data: one line of text per port in a file of the caller's, kept
// sorted by port and text. The file is replaced whole on every change.
#include "gvutil/sysport.h"
#include "os/os.h"
#include "os/replace_file.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kMaxRecords = 256;
static_assert(sizeof(sp_data) == 257, "a record is the port byte and 256 bytes of text");
constexpr std::size_t kFileLine = 1024;

struct Records {
    std::array<sp_data, kMaxRecords> items;
    int count = 0;

    sp_data *find(unsigned char port) noexcept {
        for (int i = 0; i < count; ++i) {
            if (items[static_cast<std::size_t>(i)].port == port) {
                return &items[static_cast<std::size_t>(i)];
            }
        }
        return nullptr;
    }
};

void set_text(sp_data &record, const char *text) noexcept {
    std::snprintf(record.data, sizeof record.data, "%s", text);
}

// The records a file holds. The scan's pattern has two conversions and is
// asked for three, so no line is ever taken and a rewrite keeps only what
// the current call gives: the shell has always seen the file that way.
// False when the file cannot be opened.
bool load(const char *path, Records &records) noexcept {
    std::FILE *file = gv::os::open_stream(path, "r");
    if (file == nullptr) {
        return false;
    }
    char line[kFileLine];
    while (std::fgets(line, sizeof line, file) != nullptr) {
        int port = 0;
        char text[sizeof(sp_data::data)] = {};
        if (std::sscanf(line, "%*s %d %*s %255s", &port, text) == 3 &&
            records.count < kMaxRecords) {
            sp_data &record = records.items[static_cast<std::size_t>(records.count++)];
            record.port = static_cast<unsigned char>(port);
            set_text(record, text);
        }
    }
    std::fclose(file);
    return true;
}

bool store(const char *path, Records &records) noexcept {
    std::qsort(records.items.data(), static_cast<std::size_t>(records.count), sizeof(sp_data),
               compare_sp_data);
    gv::os::FileReplacement replacement;
    std::FILE *file = replacement.begin(path);
    if (file == nullptr) {
        return false;
    }
    for (int i = 0; i < records.count; ++i) {
        const sp_data &record = records.items[static_cast<std::size_t>(i)];
        std::fprintf(file, "Port %-2d : %s\n", record.port, record.data);
    }
    return replacement.commit();
}

} // namespace

int compare_sp_data(const void *a, const void *b) noexcept {
    const auto *left = static_cast<const sp_data *>(a);
    const auto *right = static_cast<const sp_data *>(b);
    if (left == nullptr || right == nullptr) {
        return (left != nullptr) - (right != nullptr);
    }
    if (left->port != right->port) {
        return left->port < right->port ? -1 : 1;
    }
    return std::strncmp(left->data, right->data, sizeof left->data);
}

int set_port_data(const int *ports, int count, const char *text, const char *path) noexcept {
    if (ports == nullptr || text == nullptr || path == nullptr) {
        return 0;
    }
    Records records;
    load(path, records);
    for (int i = 0; i < count; ++i) {
        // Ports are kept as one byte: 256 is port 0 again.
        const auto port = static_cast<unsigned char>(ports[i]);
        sp_data *record = records.find(port);
        if (record == nullptr && records.count < kMaxRecords) {
            record = &records.items[static_cast<std::size_t>(records.count++)];
            record->port = port;
        }
        if (record != nullptr) {
            set_text(*record, text);
        }
    }
    if (records.count == 0) {
        return 0;
    }
    return store(path, records) ? records.count : 0;
}

int del_port_data(const int *ports, int count, const char *path) noexcept {
    if (ports == nullptr || path == nullptr) {
        return 0;
    }
    Records records;
    if (!load(path, records)) {
        return 0;
    }
    if (records.count == 0) {
        return 1;
    }
    for (int i = 0; i < count; ++i) {
        sp_data *record = records.find(static_cast<unsigned char>(ports[i]));
        if (record != nullptr) {
            *record = records.items[static_cast<std::size_t>(--records.count)];
        }
    }
    return store(path, records) ? records.count : 0;
}
