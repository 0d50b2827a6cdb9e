#pragma once

#include "fernhorn/format/label_display_options.hpp"
#include "fernhorn/format/label_formatter.hpp"

#include <QLabel>
#include <QWidget>

#include <memory>
#include <vector>

class QBoxLayout;

namespace fernhorn {
class AudioParameter;
}

namespace gallery {

class VocoderSettings;

/// A sheet of the plug-in's front, a little raised, with its heading engraved in it.
class Panel final : public QWidget {
  public:
    explicit Panel(const QString& heading);

    /// Where the controls go: a row below the heading.
    [[nodiscard]] QBoxLayout& row() const { return *row_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QBoxLayout* row_;
};

/// A line of text in one of the plug-in's faces and colours.
QLabel* makePluginLabel(const QString& text, double size, const char* color);

/// A control with its name above it.
QWidget* named(QWidget* control, const QString& name);

/// Buttons of one parameter, one group for screen readers, filled row by row.
QWidget* makeGroup(const QString& name, const std::vector<QWidget*>& buttons, int columns);

/// How the dials of the plug-in write their values; the panels write the names.
fernhorn::LabelDisplayOptions valueOptions(const char* color, double size = 13);

/// Numbers without decimal places.
std::shared_ptr<fernhorn::LabelFormatter> wholeNumbers(const fernhorn::AudioParameter& parameter);

/// The pages behind the tabs. The widgets keep the parameters they need.
QWidget* makeVoicePage(VocoderSettings& settings);
QWidget* makeCarrierPage(VocoderSettings& settings);
QWidget* makeMotionPage(VocoderSettings& settings);

} // namespace gallery
