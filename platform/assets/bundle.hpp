#pragma once

#include "platform/assets/asset_catalog.hpp"

#include <QDir>
#include <QString>

#include <map>
#include <memory>
#include <vector>

namespace platform {

/// A folder of resources: images, colours, fonts, shaders, help pages, and information about the
/// bundle (the string entries of its file "Info.json"). Immutable, any thread; its assets are for
/// the main thread.
class Bundle {
  public:
    explicit Bundle(QDir resourceDirectory);

    [[nodiscard]] const QDir& resourceDirectory() const { return resourceDirectory_; }
    /// The full path of a file of the bundle; the file need not exist.
    [[nodiscard]] QString path(const QString& relative) const {
        return resourceDirectory_.filePath(relative);
    }
    /// An entry of the bundle's information, null when it is missing or not a string.
    [[nodiscard]] QString information(const QString& key) const;
    [[nodiscard]] const AssetCatalog& assets() const { return *assets_; }

    /// The bundle of the running program. Its resource directory is "../share/PROGRAM" as seen from
    /// the program, where that exists, and otherwise the program's own directory. Needs the
    /// application object at the first call.
    static const Bundle& main();

  private:
    QDir resourceDirectory_;
    std::map<QString, QString> information_;
    std::unique_ptr<AssetCatalog> assets_;
};

/// Where a module's resource bundle may stand, in the order of trying: the resource directory of
/// the main bundle, that of the program or shared library which contains the code at `anchor`, and
/// the directory of the main program itself.
std::vector<QDir> moduleBundleCandidates(const void* anchor);

/// Opens the folder "NAME.bundle" in the first of the candidates that has it. Null when none has.
std::unique_ptr<Bundle> openBundle(const QString& name, const std::vector<QDir>& candidates);

/// The resource bundle of a module; `anchor` is the address of anything in the module's code. Stops
/// the program with "unable to find bundle named NAME", reported against the given place, when it
/// stands nowhere. The module's `resourceBundle()` keeps the result, so this runs once.
std::unique_ptr<Bundle> findModuleBundle(const char* name, const void* anchor,
                                         const char* file = __builtin_FILE(),
                                         int line = __builtin_LINE());

} // namespace platform
