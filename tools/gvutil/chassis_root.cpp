#include "chassis_root.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#if GVUTIL_HOST_SIM
#include "chassis_desc.h"
#endif

namespace gvtool {

namespace {

#if GVUTIL_HOST_SIM
std::string &temporary_root() {
    static std::string path;
    return path;
}

void remove_temporary_root() {
    std::error_code ignored;
    std::filesystem::remove_all(temporary_root(), ignored);
}

bool write_default_root() {
    gvsim::ChassisDesc desc;
    std::string error;
    if (!gvsim::parse_chassis(gvsim::default_chassis_text(), desc, error)) {
        std::fprintf(stderr, "gvutil: embedded chassis: %s\n", error.c_str());
        return false;
    }
    std::string dir = (std::filesystem::temp_directory_path() / "gvutil-root.XXXXXX").string();
    if (mkdtemp(dir.data()) == nullptr) {
        std::perror("gvutil: mkdtemp");
        return false;
    }
    temporary_root() = dir;
    std::atexit(remove_temporary_root);
    if (!gvsim::write_root(desc, dir, error)) {
        std::fprintf(stderr, "gvutil: %s\n", error.c_str());
        return false;
    }
    return setenv("GVUTIL_ROOT", dir.c_str(), 1) == 0;
}
#endif

} // namespace

bool select_chassis_root(const char *root) {
    if (root != nullptr) {
        return setenv("GVUTIL_ROOT", root, 1) == 0;
    }
#if GVUTIL_HOST_SIM
    const char *env = std::getenv("GVUTIL_ROOT");
    if (env == nullptr || *env == '\0') {
        return write_default_root();
    }
#endif
    return true;
}

} // namespace gvtool
