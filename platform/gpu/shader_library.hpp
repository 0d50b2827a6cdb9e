#pragma once

#include <QDir>
#include <QString>

#include <memory>
#include <optional>

class QShader;

namespace platform {

class Bundle;

/// A compiled shader function: one stage in the languages of all graphics interfaces. A shared
/// value for any thread.
class ShaderFunction {
  public:
    explicit ShaderFunction(const QShader& shader);
    [[nodiscard]] const QShader& shader() const { return *shader_; }

  private:
    std::shared_ptr<const QShader> shader_;
};

/// The compiled functions of a bundle, by name: the files "Shaders/NAME.qsb". A value for any
/// thread.
class ShaderLibrary {
  public:
    /// Throws `GpuError` when the bundle has no library.
    explicit ShaderLibrary(const Bundle& bundle);

    /// Nothing when there is no function of that name; throws `GpuError` when its file is broken.
    [[nodiscard]] std::optional<ShaderFunction> function(const QString& name) const;

    friend bool operator==(const ShaderLibrary&, const ShaderLibrary&) = default;

  private:
    QDir directory_;
};

} // namespace platform
