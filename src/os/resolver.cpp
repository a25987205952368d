#include "os/resolver.h"

#include <arpa/inet.h>
#include <cstring>
#include <netdb.h>

namespace gv::os {

bool host_address(const char *host, std::span<char> out) noexcept {
    const hostent *entry = ::gethostbyname(host);
    if (entry == nullptr || entry->h_addrtype != AF_INET || entry->h_addr_list[0] == nullptr) {
        return false;
    }
    in_addr address{};
    std::memcpy(&address, entry->h_addr_list[0], sizeof address);
    const char *dotted = ::inet_ntoa(address);
    const std::size_t length = std::strlen(dotted);
    if (length >= out.size()) {
        return false;
    }
    std::memcpy(out.data(), dotted, length + 1);
    return true;
}

} // namespace gv::os
