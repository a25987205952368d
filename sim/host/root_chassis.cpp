#include "host/root_chassis.h"

#include <cstdlib>
#include <string>

namespace gvsim {

namespace {

struct Cached {
    std::string root;
    bool loaded = false;
    ChassisDesc desc;
};

} // namespace

const ChassisDesc *root_chassis() noexcept {
    static Cached cache;
    const char *root = secure_getenv("GVUTIL_ROOT");
    if (root == nullptr || *root == '\0') {
        return nullptr;
    }
    if (cache.root != root) {
        std::string error;
        cache.root = root;
        cache.loaded = load_root_chassis(root, cache.desc, error);
    }
    return cache.loaded ? &cache.desc : nullptr;
}

} // namespace gvsim
