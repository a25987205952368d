// Watches the zeroed allocations of the library from inside the test
// process. The library's calloc calls reach the definition in calloc_spy.cpp
// first (an executable's symbols come before libc's), so a test can count
// the work buffers a call takes, or make the next one fail.
#pragma once

#include <cstddef>

namespace spy {

// From now on counts the calloc calls of exactly this many bytes.
void count_callocs_of(std::size_t bytes);
int counted_callocs();

// The next calloc of exactly this many bytes answers null.
void fail_next_calloc_of(std::size_t bytes);

} // namespace spy
