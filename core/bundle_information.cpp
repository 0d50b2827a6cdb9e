#include "core/bundle_information.hpp"

#include <atomic>

namespace core {
namespace {

std::atomic<BundleInformationSource> informationSource{nullptr};

} // namespace

std::optional<std::string> bundleInformation(std::string_view key) {
    const BundleInformationSource source = informationSource.load(std::memory_order_acquire);
    return source != nullptr ? source(key) : std::nullopt;
}

void setBundleInformationSource(BundleInformationSource source) {
    informationSource.store(source, std::memory_order_release);
}

} // namespace core
