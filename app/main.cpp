#include "app/larkvox_app.hpp"
#include "app/update_identity.hpp"
#include "platform/assets/bundle.hpp"
#include "platform/ui/locale_services.hpp"
#include "platform/ui/main_queue_driver.hpp"
#include "platform/ui/window_scene.hpp"
#include "platform/updates/install/installation.hpp"
#include "platform/updates/system_surroundings.hpp"

#include <QApplication>

namespace {

platform::UpdaterConfiguration updaterConfiguration() {
    platform::UpdaterConfiguration configuration =
        platform::systemSurroundings(QStringLiteral("larkvox"));
    configuration.identity = larkvox::updateIdentity();
    configuration.version = QApplication::applicationVersion();
    return configuration;
}

} // namespace

int main(int argc, char** argv) {
    // No update may remove the files of this version while it runs.
    const platform::RunningCopy copy("/proc/self/exe");
    QApplication application(argc, argv);
    const platform::MainQueueDriver driver;
    platform::installLocaleServices();
    const platform::Bundle& bundle = platform::Bundle::main();
    larkvox::prepareApplication(application, bundle);
    larkvox::LarkvoxApp app(updaterConfiguration());
    app.appDelegate().applicationDidFinishLaunching(&application);
    const auto window = app.makeWindow(bundle);
    window->show();
    return QApplication::exec();
}
