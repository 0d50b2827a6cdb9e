// gallery                     shows the pages
// gallery --list              prints their names
// gallery --shot PAGE FILE    writes a picture of a page; QT_SCALE_FACTOR chooses its scale
// The GPU's part is in a picture only where there is a screen. With --vulkan in front it draws
// through Vulkan and nothing else.

#include "app/larkvox_app.hpp"
#include "driftwood/bridges/bundle_asset_source.hpp"
#include "gallery/gallery_window.hpp"
#include "gallery/house_style.hpp"
#include "platform/assets/bundle.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "platform/ui/appearance.hpp"
#include "platform/ui/main_queue_driver.hpp"

#include <QApplication>
#include <QEventLoop>
#include <QPixmap>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

int fail(const char* what) {
    std::fprintf(stderr, "gallery: %s\n", what);
    return 2;
}

int shoot(gallery::GalleryWindow& window, const QString& name, const QString& file) {
    const auto& all = gallery::pages();
    const auto page = std::ranges::find(all, name, &gallery::Page::identifier);
    if (page == all.end()) {
        return fail("there is no page of that name");
    }
    window.show(*page);
    if (platform::GpuDevice::systemDefault() == nullptr) {
        window.setAttribute(Qt::WA_DontShowOnScreen); // laid out and painted, but nobody sees it
    }
    window.QWidget::show();
    window.resize(window.wholePageSize());
    QApplication::setActiveWindow(&window);
    QEventLoop loop;
    QTimer::singleShot(page->settlingTime, &loop, &QEventLoop::quit);
    loop.exec();
    return window.grab().save(file) ? 0 : fail("the picture cannot be written");
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--list") { // without a display
        for (const gallery::Page& page : gallery::pages()) {
            std::printf("%s\n", qPrintable(page.identifier));
        }
        return 0;
    }
    QApplication application(argc, argv);
    // In the program's language and with its icon.
    const platform::Bundle bundle(
        QDir(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/larkvox")));
    larkvox::prepareApplication(application, bundle);
    QApplication::setApplicationName(QStringLiteral("gallery"));
    platform::setAppearance(application, platform::Appearance::darkAqua);
    const QPalette palette = QApplication::palette();
    QApplication::setStyle(new gallery::HouseStyle); // owned by the application
    QApplication::setPalette(palette);
    driftwood::installKitAssets();
    const platform::MainQueueDriver driver;

    QStringList arguments = QApplication::arguments();
    if (arguments.removeAll(QStringLiteral("--vulkan")) > 0) {
        platform::GpuDevice::setSystemApi(platform::GpuApi::vulkan);
    }
    gallery::GalleryWindow window;
    if (arguments.value(1) == QStringLiteral("--shot") && arguments.size() == 4) {
        return shoot(window, arguments[2], arguments[3]);
    }
    if (arguments.size() > 1) {
        return fail("usage: gallery [--vulkan] [--list | --shot PAGE FILE]");
    }
    window.QWidget::show();
    return QApplication::exec();
}
