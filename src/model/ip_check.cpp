// Sanity checks of host addresses typed by an operator.
#include "gvutil/model.h"

#include <arpa/inet.h>

int check_general_ip(const uint32_t *addr) noexcept {
    const uint32_t host = ntohl(*addr);
    if (host == 0) {
        return -1;
    }
    if (host == 0xFFFFFFFFu) {
        return -2;
    }
    if ((host >> 28) == 0xE) {
        return -3; // multicast
    }
    if ((host >> 28) == 0xF) {
        return -4; // reserved
    }
    return 0;
}

int check_general_ipv6(const uint32_t *addr) noexcept {
    if (addr[0] != 0 || addr[1] != 0) {
        return 0;
    }
    const uint32_t low = ntohl(addr[2]);
    const uint32_t last = ntohl(addr[3]);
    if (low == 0 && last == 0) {
        return -1;
    }
    if (low == 0 && last == 1) {
        return -2; // loopback
    }
    return 0;
}
