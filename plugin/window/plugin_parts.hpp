#pragma once

#include "fernhorn/dials/dial.hpp"

#include <QLabel>
#include <QWidget>

#include <memory>
#include <vector>

class QBoxLayout;

// All of this is for the main thread.
namespace larkvox {

class VocoderSettings;

/// A sheet of the plug-in's front, a little raised, with its heading.
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

/// A line of text in the plug-in's face and one of its colours.
QLabel* makePluginLabel(const QString& text, double size, const char* color);

using Parameter = std::shared_ptr<fernhorn::AudioParameter>;

/// The dials as this plug-in has them, with the name of the parameter, or another.
QWidget* makeChaosCell(const Parameter& parameter);
QWidget* makeMediumCell(const Parameter& parameter, fernhorn::SmallDialColor color);
QWidget* makeTinyCell(const Parameter& parameter, const QString& name = {});

/// Buttons of a panel stand in rows of this height, whatever their own. Points.
inline constexpr int rowHeight = 36;
inline constexpr int rowSpacing = 4;

/// Buttons that belong together, one group for screen readers, row by row.
QWidget* makeGroup(const QString& name, const std::vector<QWidget*>& buttons, int columns);

/// The pages behind the tabs.
QWidget* makeVoicePage(const std::shared_ptr<VocoderSettings>& settings);
QWidget* makeCarrierPage(VocoderSettings& settings);
QWidget* makeMotionPage(VocoderSettings& settings);

} // namespace larkvox
