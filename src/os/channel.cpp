#include "os/os.h"

#include <cerrno>
#include <climits>
#include <cstdint>
#include <sys/ioctl.h>
#include <sys/stat.h>

#if GVUTIL_HOST_SIM
#include "gvsim/gvsim.h"
#endif

namespace gv::os {

namespace {

constexpr unsigned long kChannelRequest = 0x89F0; // SIOCDEVPRIVATE

// What the driver reads at the request's argument: four words, the first of
// which it writes back.
struct ChannelRecord {
    std::int32_t result;
    std::int32_t flag;
    const char *request;
    char *reply;
};
#if UINTPTR_MAX == 0xffffffffu
static_assert(sizeof(ChannelRecord) == 16, "the driver reads four 32-bit words");
#endif

} // namespace

bool text_channel(int fd, const char *path, int flag, const char *request, std::span<char> reply,
                  int *result) noexcept {
    if (reply.empty() || result == nullptr) {
        errno = EINVAL;
        return false;
    }
#if GVUTIL_HOST_SIM
    struct stat st {};
    char resolved[PATH_MAX];
    if (host_root() != nullptr && ::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) &&
        resolve_path(path, resolved)) {
        return gvsim_channel_exchange(resolved, request, reply.data(), reply.size(), result) == 0;
    }
#else
    (void)path;
#endif
    ChannelRecord record{0, flag, request, reply.data()};
    if (::ioctl(fd, kChannelRequest, &record) < 0) {
        return false;
    }
    reply.back() = '\0';
    *result = record.result;
    return true;
}

} // namespace gv::os
