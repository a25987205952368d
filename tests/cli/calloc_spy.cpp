#include "calloc_spy.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

std::size_t counted_bytes = 0;
int counted = 0;
std::size_t failing_bytes = 0;

} // namespace

namespace spy {

void count_callocs_of(std::size_t bytes) {
    counted_bytes = bytes;
    counted = 0;
}

int counted_callocs() {
    return counted;
}

void fail_next_calloc_of(std::size_t bytes) {
    failing_bytes = bytes;
}

} // namespace spy

// Served by malloc, so no look-up of the real calloc is needed and the
// sanitizers track every block as they track any other.
extern "C" void *calloc(std::size_t count, std::size_t size) noexcept {
    if (size != 0 && count > SIZE_MAX / size) {
        return nullptr;
    }
    const std::size_t bytes = count * size;
    counted += bytes == counted_bytes ? 1 : 0;
    if (failing_bytes != 0 && bytes == failing_bytes) {
        failing_bytes = 0;
        return nullptr;
    }
    void *block = std::malloc(bytes);
    if (block != nullptr) {
        std::memset(block, 0, bytes);
    }
    return block;
}
