// A private System V IPC namespace for the running process, so the ONU
// option store's fixed key never meets another process's segment.
#pragma once

#include <string>

namespace gvtest {

// Moves this process (and the children it forks later) into a fresh IPC
// namespace. Where that is refused (no root), it enters a new user namespace
// first, in which this user is root and no other user exists. Empty on
// success, else why neither worked.
std::string enter_private_ipc_namespace();

// True once this process entered its namespace through a user namespace of
// its own: switching to another user (setuid) fails there.
bool in_single_user_namespace();

} // namespace gvtest

// Enters the namespace, or skips the current test with the reason.
#define GVTEST_ENTER_PRIVATE_IPC_NAMESPACE()                                                       \
    do {                                                                                           \
        const std::string gvtest_why = gvtest::enter_private_ipc_namespace();                      \
        if (!gvtest_why.empty()) {                                                                 \
            GTEST_SKIP() << gvtest_why;                                                            \
        }                                                                                          \
    } while (0)
