// The tracked allocator of the host chassis. Every block remembers the source
// that asked for it, so tests can prove that each caller gives back what it
// took; a block freed twice or never handed out stops the process at once.
#include "gvsim/gvsim.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

namespace {

struct Block {
    std::string source;
    int line;
};

std::map<void *, Block> &live_blocks() {
    static std::map<void *, Block> blocks;
    return blocks;
}

long successes_left = -1; // -1: allocations never fail
long refused_in = 0;      // the allocation this many from now fails alone; 0: none

} // namespace

void *mfh_malloc(size_t size, int /*flags*/, const char *source, int line) {
    if (successes_left == 0 || (refused_in > 0 && --refused_in == 0)) {
        return nullptr;
    }
    void *block = std::malloc(size != 0 ? size : 1);
    if (block == nullptr) {
        return nullptr;
    }
    if (successes_left > 0) {
        --successes_left;
    }
    live_blocks()[block] = Block{source != nullptr ? source : "", line};
    return block;
}

void memmgr_free(int /*flags*/, void *ptr, const char *source, int line) {
    if (ptr == nullptr) {
        return;
    }
    auto &blocks = live_blocks();
    const auto found = blocks.find(ptr);
    if (found == blocks.end()) {
        std::fprintf(stderr, "memmgr_free: %p from %s:%d was not allocated here\n", ptr,
                     source != nullptr ? source : "?", line);
        std::abort();
    }
    blocks.erase(found);
    std::free(ptr);
}

long gvsim_live_allocations(void) {
    return static_cast<long>(live_blocks().size());
}

long gvsim_live_allocations_from(const char *source) {
    long count = 0;
    for (const auto &[block, info] : live_blocks()) {
        count += source != nullptr && info.source == source ? 1 : 0;
    }
    return count;
}

void gvsim_allocator_fail_after(long successes) {
    successes_left = successes < 0 ? -1 : successes;
}

void gvsim_allocator_fail_nth(long nth) {
    refused_in = nth > 0 ? nth : 0;
}
