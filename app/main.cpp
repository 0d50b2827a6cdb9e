#include "app/larkvox_app.hpp"
#include "platform/assets/bundle.hpp"
#include "platform/ui/locale_services.hpp"
#include "platform/ui/main_queue_driver.hpp"
#include "platform/ui/window_scene.hpp"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const platform::MainQueueDriver driver;
    platform::installLocaleServices();
    const platform::Bundle& bundle = platform::Bundle::main();
    larkvox::prepareApplication(application, bundle);
    larkvox::LarkvoxApp app;
    app.appDelegate().applicationDidFinishLaunching(&application);
    const auto window = app.makeWindow(bundle);
    window->show();
    return QApplication::exec();
}
