#include "driftwood/style/asset_source.hpp"

#include "core/fatal.hpp"

namespace driftwood {
namespace {

std::shared_ptr<const AssetSource>& installedSource() {
    static std::shared_ptr<const AssetSource> source;
    return source;
}

} // namespace

void setAssetSource(std::shared_ptr<const AssetSource> source) {
    installedSource() = std::move(source);
}

bool hasAssetSource() {
    return installedSource() != nullptr;
}

const AssetSource& assetSource() {
    const auto& source = installedSource();
    if (source == nullptr) {
        core::fatal("styles are used before setAssetSource");
    }
    return *source;
}

} // namespace driftwood
