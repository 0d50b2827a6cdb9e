#include "app/larkvox_app.hpp"
#include "app/resource_bundle_class.hpp"
#include "app/update_identity.hpp"
#include "platform/gpu/gpu_device.hpp"
#include "platform/system/process.hpp"
#include "platform/system/sole_start.hpp"
#include "platform/ui/bring_forward.hpp"
#include "platform/ui/locale_services.hpp"
#include "platform/ui/main_queue_driver.hpp"
#include "platform/ui/window_scene.hpp"
#include "updates/install/installation.hpp"
#include "updates/system_surroundings.hpp"

#include <QApplication>

#include <optional>
#include <utility>

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
    // One window for each user and desktop: a second start brings it forward.
    platform::SoleStart start("larkvox", platform::startupToken());
    if (!start.isFirst()) {
        return 0;
    }
    // No update may remove the files of this version while it runs.
    const updates::RunningCopy copy(platform::programFile());
    QApplication application(argc, argv);
    platform::GpuDevice::prepareSystemDefault();
    const platform::MainQueueDriver driver;
    platform::installLocaleServices();
    const platform::Bundle& bundle = larkvox::ResourceBundleClass::bundle();
    larkvox::prepareApplication(application, bundle);
    std::optional<platform::LaterStarts> laterStarts;
    updates::UpdaterConfiguration updates = updaterConfiguration();
    updates.startProgram = [&](const auto& program, const auto& arguments) {
        laterStarts->release(); // for the new version
        return platform::startProgram(program, arguments);
    };
    larkvox::LarkvoxApp app(std::move(updates));
    app.appDelegate().applicationDidFinishLaunching(&application);
    const auto window = app.makeWindow(bundle);
    window->show();
    laterStarts.emplace(start, *window);
    const int result = QApplication::exec();
    laterStarts->release(); // who starts now need not wait until all of this one is gone
    return result;
}
