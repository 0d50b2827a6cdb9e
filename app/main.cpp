#include "app/larkvox_app.hpp"
#include "app/resource_bundle_class.hpp"
#include "app/update_identity.hpp"
#include "platform/system/process.hpp"
#include "platform/ui/locale_services.hpp"
#include "platform/ui/main_queue_driver.hpp"
#include "platform/ui/window_scene.hpp"
#include "updates/install/installation.hpp"
#include "updates/system_surroundings.hpp"

#include <QApplication>

namespace {

updates::UpdaterConfiguration updaterConfiguration() {
    updates::UpdaterConfiguration configuration =
        updates::systemSurroundings(QStringLiteral("larkvox"));
    configuration.identity = larkvox::updateIdentity();
    configuration.version = QApplication::applicationVersion();
    return configuration;
}

} // namespace

int main(int argc, char** argv) {
    // No update may remove the files of this version while it runs.
    const updates::RunningCopy copy(platform::programFile());
    QApplication application(argc, argv);
    const platform::MainQueueDriver driver;
    platform::installLocaleServices();
    const platform::Bundle& bundle = larkvox::ResourceBundleClass::bundle();
    larkvox::prepareApplication(application, bundle);
    larkvox::LarkvoxApp app(updaterConfiguration());
    app.appDelegate().applicationDidFinishLaunching(&application);
    const auto window = app.makeWindow(bundle);
    window->show();
    return QApplication::exec();
}
