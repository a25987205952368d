// The library's own heap blocks (range nodes, work buffers), as the host
// chassis hands them out: a test proves that a call gave back everything it
// took, and makes the n-th allocation from now fail. Link gvsim to use it.
#pragma once

#include "gvsim/gvsim.h"

namespace gvtest {

class HeapWatch {
  public:
    HeapWatch() : live_at_start_(gvsim_heap_live_blocks()) {}
    ~HeapWatch() { gvsim_heap_fail_after(-1); }
    HeapWatch(const HeapWatch &) = delete;
    HeapWatch &operator=(const HeapWatch &) = delete;

    // Blocks taken since the watch began and not given back.
    long held() const { return gvsim_heap_live_blocks() - live_at_start_; }
    // The next `successes` allocations succeed, every later one fails.
    static void fail_after(long successes) { gvsim_heap_fail_after(successes); }
    static void never_fail() { gvsim_heap_fail_after(-1); }

  private:
    long live_at_start_;
};

} // namespace gvtest
