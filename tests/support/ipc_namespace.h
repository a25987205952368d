// A private System V IPC namespace for the running process, so the ONU
// option store's fixed key never meets another process's segment.
#pragma once

#include <string>

namespace gvtest {

// Moves this process (and the children it forks later) into a fresh IPC
// namespace. Empty on success, else what failed. Needs root.
std::string enter_private_ipc_namespace();

} // namespace gvtest
