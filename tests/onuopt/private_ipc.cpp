// Every test process of the store runs in its own IPC namespace; without one
// the suite must fail rather than touch the machine's real store.
#include "support/ipc_namespace.h"

#include <gtest/gtest.h>

namespace {

class PrivateIpc : public ::testing::Environment {
    void SetUp() override {
        const std::string error = gvtest::enter_private_ipc_namespace();
        ASSERT_TRUE(error.empty()) << error;
    }
};
const auto *const kPrivateIpc = ::testing::AddGlobalTestEnvironment(new PrivateIpc);

} // namespace
