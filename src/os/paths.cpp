#include "os/os.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace gv::os {

// Read on every call: tests and tools point successive calls at other roots.
const char *host_root() noexcept {
#if GVUTIL_HOST_SIM
    const char *root = secure_getenv("GVUTIL_ROOT");
    return (root != nullptr && *root != '\0') ? root : nullptr;
#else
    return nullptr;
#endif
}

bool resolve_path(const char *path, std::span<char> out) noexcept {
    if (path == nullptr || out.empty()) {
        return false;
    }
    const char *root = host_root();
    int written = 0;
    if (root != nullptr && path[0] == '/') {
        written = std::snprintf(out.data(), out.size(), "%s%s", root, path);
    } else {
        written = std::snprintf(out.data(), out.size(), "%s", path);
    }
    return written >= 0 && static_cast<std::size_t>(written) < out.size();
}

} // namespace gv::os
