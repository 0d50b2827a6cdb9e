#pragma once

#include <QDialog>

namespace platform {

class Bundle;

/// The standard about panel: the program's icon, name, version and credits, from the information of
/// its bundle ("CFBundleName", "CFBundleShortVersionString", "CFBundleVersion", "Credits",
/// "NSHumanReadableCopyright"; what is missing is left out) and its image "application-icon-64".
/// Main thread.
class AboutPanel final : public QDialog {
    Q_OBJECT

  public:
    explicit AboutPanel(const Bundle& bundle, QWidget* parent = nullptr);
};

/// Shows the main bundle's panel, or brings it to the front when it is open.
void orderFrontStandardAboutPanel();

} // namespace platform
