#include "list_output.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <set>

namespace gvtool {

namespace {

int print_out(void *, const char *format, ...) {
    va_list args;
    va_start(args, format);
    const int n = std::vprintf(format, args);
    va_end(args);
    return n;
}

} // namespace

cli_ctx shell_output() {
    return cli_ctx{print_out, nullptr};
}

void print_numbers(const char *label, const std::vector<uint32_t> &numbers) {
    std::printf("%-12s", label);
    for (std::size_t i = 0; i < numbers.size() && i < kListedNumbers; ++i) {
        std::printf(" %u", numbers[i]);
    }
    if (numbers.size() > kListedNumbers) {
        std::printf(" ... (%zu in all)", numbers.size());
    }
    std::printf(numbers.empty() ? " (none)\n" : "\n");
}

void print_ranges(const char *label, const value_range *ranges, int count) {
    std::printf("%-12s", label);
    for (int i = 0; i < count; ++i) {
        std::printf(" %u-%u", ranges[i].low, ranges[i].high);
    }
    std::printf(count <= 0 ? " (none)\n" : "\n");
}

std::size_t items_in(const char *text) {
    return static_cast<std::size_t>(std::count(text, text + std::strlen(text), ',')) + 1;
}

std::size_t members_in(const std::vector<value_range> &ranges, int count) {
    std::size_t members = 0;
    for (int i = 0; i < count; ++i) {
        const value_range &range = ranges[static_cast<std::size_t>(i)];
        members += range.high >= range.low ? range.high - range.low + 1U : 0U;
    }
    return members;
}

std::vector<uint32_t> values_of(const std::vector<value_range> &ranges, int count) {
    std::set<uint32_t> values;
    for (int i = 0; i < count; ++i) {
        const value_range &range = ranges[static_cast<std::size_t>(i)];
        for (uint32_t value = range.low; value <= range.high; ++value) {
            values.insert(value);
        }
    }
    return {values.begin(), values.end()};
}

} // namespace gvtool
