#pragma once

#include "platform/ui/workspace.hpp"

#include <QWidget>

class QBoxLayout;

namespace platform {
class Bundle;
}

namespace larkvox {

/// The welcome view: the product's name over the moving waveform, what to know about the plug-in,
/// the version, the maker's logo, and two buttons. It never changes after it is made.
class ContentView final : public QWidget {
    Q_OBJECT

  public:
    /// `buttonWidth` is the width of each button's label in points. `bundle` gives the version, the
    /// colours and the help page; it and `workspace` outlive the view.
    explicit ContentView(int buttonWidth, const platform::Bundle& bundle,
                         platform::Workspace& workspace = platform::Workspace::shared());

    /// The version line of a bundle: its short version, then its version in parentheses; what is
    /// missing is empty.
    [[nodiscard]] static QString versionLine(const platform::Bundle& bundle);

  private:
    QWidget* makeMessages();
    QWidget* makeLogo();
    void addButtons(QBoxLayout& column, int width);
    void openHelp();

    const platform::Bundle& bundle_;
    platform::Workspace& workspace_;
    QColor textColor_;
};

} // namespace larkvox
