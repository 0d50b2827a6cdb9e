#pragma once

#include "core/geometry.hpp"

#include <memory>
#include <string_view>
#include <utility>

namespace driftwood {

/// Something that the platform can draw with. Immutable.
class Asset {
  public:
    Asset() = default;
    Asset(const Asset&) = delete;
    Asset& operator=(const Asset&) = delete;
    virtual ~Asset() = default;

    /// Whether a control looks the same with the other one. One object is always equal to itself.
    [[nodiscard]] virtual bool isEqual(const Asset& other) const { return this == &other; }
};

/// What a `Color` refers to.
class StyleColor : public Asset {};

/// What a `Font` refers to.
class StyleFont : public Asset {};

/// What an `Image` refers to.
class StyleImage : public Asset {
  public:
    [[nodiscard]] virtual core::Size size() const = 0; ///< points
    /// True: only its coverage counts; it is drawn in one colour.
    [[nodiscard]] virtual bool isTemplate() const = 0;
    /// Width by height.
    [[nodiscard]] double aspectRatio() const { return size().width / size().height; }
};

/// A shared reference to an asset, null where there is none. Copies are cheap; equal handles look
/// the same. Main thread.
template<class AssetType>
class AssetHandle {
  public:
    AssetHandle() = default;
    explicit AssetHandle(std::shared_ptr<const AssetType> asset) : asset_(std::move(asset)) {}

    [[nodiscard]] explicit operator bool() const { return asset_ != nullptr; }
    [[nodiscard]] const AssetType* get() const { return asset_.get(); }
    /// Only for a handle that is not null.
    const AssetType* operator->() const { return asset_.get(); }

    friend bool operator==(const AssetHandle& a, const AssetHandle& b) {
        return a.asset_ == b.asset_ || (a && b && a->isEqual(*b.get()));
    }

  private:
    std::shared_ptr<const AssetType> asset_;
};

/// What a style says in each place; null where it says nothing.
using Color = AssetHandle<StyleColor>;
using Font = AssetHandle<StyleFont>;
using Image = AssetHandle<StyleImage>;

enum class FontWeight { regular, medium };
enum class FontDigits { proportional, monospaced };

/// Where the kit's styles get colours, fonts and images from. Main thread.
class AssetSource {
  public:
    virtual ~AssetSource() = default;

    /// Null when there is no colour of that name.
    [[nodiscard]] virtual Color color(std::string_view name) const = 0;
    [[nodiscard]] virtual Color clearColor() const = 0;
    /// Null when there is no image of that name.
    [[nodiscard]] virtual Image image(std::string_view name) const = 0;
    /// The desktop's typeface at a size in points.
    [[nodiscard]] virtual Font systemFont(double size, FontWeight weight,
                                          FontDigits digits) const = 0;
};

/// Gives the kit its assets: once, at start-up, before a style or a catalogue member is first used.
/// A later call serves only what has not been made by then.
void setAssetSource(std::shared_ptr<const AssetSource> source);
[[nodiscard]] bool hasAssetSource();

/// Stops the program when none has been set.
[[nodiscard]] const AssetSource& assetSource();

} // namespace driftwood
