#include "support/ipc_namespace.h"

#include <cerrno>
#include <cstring>
#include <sched.h>

namespace gvtest {

std::string enter_private_ipc_namespace() {
    if (unshare(CLONE_NEWIPC) != 0) {
        return std::string("unshare(CLONE_NEWIPC): ") + std::strerror(errno) +
               " (the shared-store tests need root to get a private IPC namespace)";
    }
    return {};
}

} // namespace gvtest
