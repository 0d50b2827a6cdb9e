#include "app/larkvox_app.hpp"

#include "app/content_view.hpp"
#include "app/dialog_style.hpp"
#include "app/program_windows.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "platform/assets/bundle.hpp"
#include "platform/controls/menu.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "platform/ui/about_panel.hpp"
#include "platform/ui/window_scene.hpp"
#include "platform/ui/workspace.hpp"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

#include <chrono>
#include <utility>

namespace larkvox {

using updates::SPUStandardUpdaterController;

LarkvoxApp::LarkvoxApp(updates::UpdaterConfiguration updates)
    : appDelegate_(std::make_unique<AppDelegate>()),
      sparkleHelper_(std::make_unique<SparkleHelper>()) {
    sparkleHelper_->updaterController = std::make_unique<SPUStandardUpdaterController>(
        SPUStandardUpdaterController::Starting::later, sparkleHelper_.get(), dialogStyle(),
        std::move(updates));
    sparkleHelper_->updaterController->startUpdater();
    appDelegate_->sparkleHelper = sparkleHelper_.get();
}

LarkvoxApp::~LarkvoxApp() = default;

std::unique_ptr<platform::WindowScene> LarkvoxApp::makeWindow(const platform::Bundle& bundle) {
    // The title is the product's name, which is not translated.
    auto window = std::make_unique<platform::WindowScene>(
        QStringLiteral("Larkvox"), QStringLiteral("main"), QSize(400, 572), bundle.assets());
    QPalette palette = window->palette();
    palette.setColor(QPalette::Window, bundle.assets().color(QStringLiteral("background")));
    window->setPalette(palette);
    window->setContent(new ContentView(180, bundle));

    auto* const menu = new platform::Menu(QStringLiteral("Larkvox"));
    connect(&menu->addItem(tr("About")), &QAction::triggered, this,
            [] { platform::orderFrontStandardAboutPanel(); });
    menu->addItem(platform::MenuItem::separator());
    connect(&menu->addItem(tr("Check for Updates…")), &QAction::triggered, this, [this] {
        if (sparkleHelper_->updaterController != nullptr) {
            sparkleHelper_->updaterController->checkForUpdates();
        }
    });
    window->setMenu(menu);
    // Last: by now the driver that it asks for has been loaded beside the rest.
    platform::GpuHost::install(*window);
    return window;
}

namespace {

/// Speaks the first of the languages for which there is a catalogue, and lets the toolkit speak the
/// same. The texts themselves are English: nothing is looked for behind it.
void installCatalogues(QApplication& application, const QString& folder,
                       const QStringList& languages) {
    const auto install = [&](const QString& file, const QString& from) {
        auto translator = std::make_unique<QTranslator>();
        if (!translator->load(file, from)) {
            return false;
        }
        translator->setParent(&application);
        return QCoreApplication::installTranslator(translator.release());
    };
    for (const QString& language : languages) {
        const QLocale locale(language);
        if (locale.language() == QLocale::English || locale.language() == QLocale::C) {
            return;
        }
        if (install(QStringLiteral("larkvox_") + locale.name(), folder)) {
            install(QStringLiteral("qtbase_") + locale.name(),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath));
            return;
        }
    }
}

constexpr std::chrono::milliseconds iconDelay{200};

void setIcon(const platform::Bundle& bundle) {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        if (const auto* const image =
                bundle.assets().image(QStringLiteral("application-icon-%1").arg(size))) {
            icon.addPixmap(QPixmap::fromImage(image->image(1)));
        }
    }
    QApplication::setWindowIcon(icon);
}

} // namespace

void prepareApplication(QApplication& application, const platform::Bundle& bundle,
                        const QStringList& languages) {
    installCatalogues(application, bundle.path(QStringLiteral("Translations")), languages);

    // A typeface that cannot be registered is replaced by the desktop's own.
    fernhorn::resourceBundle().assets().registerFonts();
    driftwood::resourceBundle().assets().registerFonts();

    platform::setStandardAboutPanelLook(aboutPanelLook);
    platform::Workspace::setUnopened(showUnopenedPage);

    QCoreApplication::setApplicationName(bundle.information(QStringLiteral("CFBundleName")));
    QCoreApplication::setApplicationVersion(
        bundle.information(QStringLiteral("CFBundleShortVersionString")));
    QGuiApplication::setDesktopFileName(QStringLiteral("larkvox"));
    // The first frame does not need it; the time counts from when events run, however long it takes
    // until then.
    QTimer::singleShot(0, &application, [&application, &bundle] {
        QTimer::singleShot(iconDelay, &application, [&bundle] { setIcon(bundle); });
    });
}

} // namespace larkvox
