// What the list subcommands share: the shell's output context on standard
// output, and members printed as numbers.
#pragma once

#include "gvutil/cli.h"
#include "gvutil/platform.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace gvtool {

// Prints the library's operator messages as the operator sees them.
cli_ctx shell_output();

// At most this many members are listed one by one.
inline constexpr std::size_t kListedNumbers = 48;

// "label  1 2 3" (the first kListedNumbers, then how many in all), or "(none)".
void print_numbers(const char *label, const std::vector<uint32_t> &numbers);

// "label  1-4 7-7", or "(none)".
void print_ranges(const char *label, const value_range *ranges, int count);

// The most items a ","-separated text can hold: the room its ranges need.
std::size_t items_in(const char *text);

// How many values the ranges name, duplicates counted: the room a list
// expansion of the same text needs.
std::size_t members_in(const std::vector<value_range> &ranges, int count);

// The values the ranges name, ascending, each once.
std::vector<uint32_t> values_of(const std::vector<value_range> &ranges, int count);

} // namespace gvtool
