// A freshly created ONU option store on the test3 chassis, in the test's
// private IPC namespace, and helpers to look at it as another process would.
#pragma once

#include "gvutil/onuopt.h"
#include "support/chassis_root.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace onutest {

// On test3 pnum p is PON index p-1 for p = 1..32, and the type-b trunk pnums
// 43, 44, ... stand for the PON ports 1, 3, ...
inline constexpr int kFirstTrunk = 43;

// Byte offsets of the shared layout, as every process of the chassis uses them.
inline std::size_t pon_offset(int p) {
    return 8 + static_cast<std::size_t>(p) * 119240;
}
inline std::size_t onu_offset(int p, int o) {
    return pon_offset(p) + 44 + static_cast<std::size_t>(o) * 924;
}

// Bytes the store maps beyond its records: ONU 129 of the last PON lives there.
inline constexpr std::size_t kViewSize = GV_OPT_FORMAT_SHM_SIZE + 924;

int sem_value();
void remove_store();
// What a process that is not the creator runs at start-up.
void attach_store();

struct ChildResult {
    int status = -1; // exit status, -1 when killed
    int signal = 0;
    std::string err; // what it wrote to stderr
};

// Runs body in a forked child whose stderr is captured; body's result is the
// child's exit status. The child is killed after timeout seconds.
ChildResult in_child(const std::function<int()> &body, unsigned timeout = 20);

// std::string of n bytes from p.
inline std::string bytes(const void *p, std::size_t n) {
    return {static_cast<const char *>(p), n};
}

class Store : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    std::string raw(std::size_t offset, std::size_t n) const { return bytes(view + offset, n); }
    int32_t raw32(std::size_t offset) const {
        int32_t v;
        std::memcpy(&v, view + offset, sizeof v);
        return v;
    }
    std::vector<unsigned char> snapshot() const { return {view, view + kViewSize}; }

    gvtest::ChassisRoot root{"test3"};
    int shm_id = -1;
    unsigned char *view = nullptr; // the test's own attachment
};

} // namespace onutest
