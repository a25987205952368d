// The plain heap as the host chassis hands it to the library: malloc, calloc
// and free, counted, and refused on request so tests reach every path the
// library takes when memory runs out.
#include "gvsim/gvsim.h"

#include <atomic>
#include <cstdlib>

namespace {

std::atomic<long> successes_left{-1}; // -1: the heap never refuses
std::atomic<long> live_blocks{0};

// Takes one success from the budget; false when it is spent.
bool may_allocate() {
    long left = successes_left.load();
    while (left > 0 && !successes_left.compare_exchange_weak(left, left - 1)) {
    }
    return left != 0;
}

} // namespace

void *gvsim_heap_alloc(size_t size, int zeroed) {
    if (!may_allocate()) {
        return nullptr;
    }
    void *block = zeroed != 0 ? std::calloc(1, size) : std::malloc(size);
    if (block != nullptr) {
        ++live_blocks;
    }
    return block;
}

void gvsim_heap_free(void *block) {
    if (block != nullptr) {
        --live_blocks;
        std::free(block);
    }
}

void gvsim_heap_fail_after(long successes) {
    successes_left = successes < 0 ? -1 : successes;
}

long gvsim_heap_live_blocks(void) {
    return live_blocks.load();
}
