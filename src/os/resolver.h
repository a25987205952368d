// Host name resolution through the system resolver (real in every build).
#pragma once

#include <span>

namespace gv::os {

// The first IPv4 address of a host name in dotted-decimal form; false when
// the name does not resolve (out is then left alone) or out is too small.
bool host_address(const char *host, std::span<char> out) noexcept;

} // namespace gv::os
