#include "os/os.h"

#include <cstdlib>

#if GVUTIL_HOST_SIM
#include "gvsim/gvsim.h"
#endif

namespace gv::os {

void *heap_alloc(std::size_t size) noexcept {
#if GVUTIL_HOST_SIM
    return gvsim_heap_alloc(size, 0);
#else
    return std::malloc(size);
#endif
}

void *heap_alloc_zeroed(std::size_t size) noexcept {
#if GVUTIL_HOST_SIM
    return gvsim_heap_alloc(size, 1);
#else
    return std::calloc(1, size);
#endif
}

void heap_free(void *block) noexcept {
#if GVUTIL_HOST_SIM
    gvsim_heap_free(block);
#else
    std::free(block);
#endif
}

} // namespace gv::os
