#pragma once

#include "app/app_delegate.hpp"
#include "app/sparkle_helper.hpp"

#include <QLocale>
#include <QObject>
#include <QStringList>

#include <memory>

class QApplication;

namespace platform {
class Bundle;
class WindowScene;
} // namespace platform

namespace larkvox {

/// The application: its delegate, its updater, and its one window. Main thread.
class LarkvoxApp final : public QObject {
    Q_OBJECT

  public:
    /// Without a configuration the updater remembers nothing, and does nothing by itself.
    explicit LarkvoxApp(updates::UpdaterConfiguration updates = {});
    ~LarkvoxApp() override;

    /// Makes the window, which is not shown yet.
    [[nodiscard]] std::unique_ptr<platform::WindowScene> makeWindow(const platform::Bundle& bundle);

    [[nodiscard]] AppDelegate& appDelegate() { return *appDelegate_; }
    [[nodiscard]] SparkleHelper& sparkleHelper() { return *sparkleHelper_; }

  private:
    std::unique_ptr<AppDelegate> appDelegate_;
    std::unique_ptr<SparkleHelper> sparkleHelper_;
};

/// What the program needs before its first window: the user's language, the typefaces of its
/// bundles, its name, and a moment later its icon, for which `bundle` has to stay. `languages` are
/// the user's, the preferred one first ("de-CH", "fr").
void prepareApplication(QApplication& application, const platform::Bundle& bundle,
                        const QStringList& languages = QLocale().uiLanguages());

} // namespace larkvox
