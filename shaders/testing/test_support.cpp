#include "shaders/testing/test_support.hpp"

namespace kestrel::testing {
namespace {

/// Runs the windows of all tests on another interface where GPU_TEST_API says so.
class SystemApi final : public ::testing::Environment {
  public:
    void SetUp() override {
        if (qEnvironmentVariable("GPU_TEST_API") == QStringLiteral("Vulkan")) {
            platform::GpuDevice::setSystemApi(platform::GpuApi::vulkan);
        }
    }
};
const ::testing::Environment* const systemApi = ::testing::AddGlobalTestEnvironment(new SystemApi);

} // namespace
} // namespace kestrel::testing
