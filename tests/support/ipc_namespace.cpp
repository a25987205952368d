#include "support/ipc_namespace.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sched.h>
#include <unistd.h>

namespace gvtest {

namespace {

bool single_user = false;

bool write_file(const char *path, const std::string &text) {
    std::FILE *file = std::fopen(path, "w");
    if (file == nullptr) {
        return false;
    }
    const bool written = std::fputs(text.c_str(), file) >= 0;
    return std::fclose(file) == 0 && written;
}

// This user becomes root of a new user namespace, which owns the new IPC
// namespace.
bool enter_through_user_namespace() {
    const std::string uid = std::to_string(geteuid()), gid = std::to_string(getegid());
    return unshare(CLONE_NEWUSER | CLONE_NEWIPC) == 0 &&
           write_file("/proc/self/setgroups", "deny") &&
           write_file("/proc/self/uid_map", "0 " + uid + " 1") &&
           write_file("/proc/self/gid_map", "0 " + gid + " 1");
}

} // namespace

std::string enter_private_ipc_namespace() {
    if (unshare(CLONE_NEWIPC) == 0) {
        return {};
    }
    const int plain = errno;
    if (enter_through_user_namespace()) {
        single_user = true;
        return {};
    }
    return std::string("no private IPC namespace: unshare(CLONE_NEWIPC): ") + std::strerror(plain) +
           "; through a new user namespace: " + std::strerror(errno);
}

bool in_single_user_namespace() {
    return single_user;
}

} // namespace gvtest
