#pragma once

#include "platform/controls/button.hpp"

#include <QDialog>
#include <QFont>

#include <functional>
#include <memory>
#include <optional>

namespace platform {

class Bundle;

/// How a program's about panel looks; what is missing is the toolkit's own. A value.
struct AboutPanelLook {
    std::shared_ptr<const ButtonStyle> button;
    std::optional<QFont> nameFont;
    /// Makes what stands at the top in place of the program's icon: of a height of its own, as wide
    /// as the panel, which owns it. Null for the icon.
    std::function<QWidget*(QDialog& panel)> picture;
};

/// The standard about panel: the program's icon, name, version and credits, from the information of
/// its bundle ("CFBundleName", "CFBundleShortVersionString", "CFBundleVersion", "Credits",
/// "NSHumanReadableCopyright"; what is missing is left out) and its image "application-icon-64".
/// The credits are translated by the catalogues, context "Information". Main
/// thread.
class AboutPanel final : public QDialog {
    Q_OBJECT

  public:
    explicit AboutPanel(const Bundle& bundle, const AboutPanelLook& look = {},
                        QWidget* parent = nullptr);
};

/// Who gives the main bundle's panel its look, asked when it is made. Main thread.
void setStandardAboutPanelLook(std::function<AboutPanelLook()> look);
/// Shows the main bundle's panel, or brings it to the front when it is open. Main thread.
void orderFrontStandardAboutPanel();

} // namespace platform
