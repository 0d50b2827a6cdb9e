#pragma once

#include "core/observable.hpp"
#include "platform/controls/environment.hpp"

#include <QVBoxLayout>
#include <QWidget>

class QLabel;

// All of this is for the main thread.
namespace driftwood {

/// How wide the labels of all sections are that find it in their environment
/// (`platform::setEnvironment`), in points.
struct DriftSettingsConfig {
    explicit DriftSettingsConfig(double width) : labelWidth(width) {}

    core::Observable<double> labelWidth;
};

/// Lays views out one below the other, 4 points apart, each as wide as the column; controls stand
/// by the lines that they are aligned by.
class FillEachChildLeading final : public QVBoxLayout {
    Q_OBJECT

  public:
    explicit FillEachChildLeading(QWidget* parent = nullptr);

    /// The layout's widget becomes its parent.
    void addChild(QWidget* child);
};

/// A pane of settings of a fixed width, in the middle of its place.
class DriftSettings : public QWidget {
    Q_OBJECT

  public:
    /// `content` in the order from above: sections, dividers and anything else.
    DriftSettings(double settingsWidth, const std::vector<QWidget*>& content,
                  QWidget* parent = nullptr);

    /// In points, of the form within this widget.
    [[nodiscard]] double settingsWidth() const;
    void setSettingsWidth(double width);

  private:
    QWidget* form_;
};

/// A row of a pane: its label, then its controls below each other. Without a configuration in the
/// environment the label is as wide as its text. The label names the first control for screen
/// readers, unless that has a name.
class DriftSettingsSection : public QWidget {
    Q_OBJECT

  public:
    DriftSettingsSection(const QString& label, const std::vector<QWidget*>& content,
                         QWidget* parent = nullptr);

    [[nodiscard]] QWidget& contentColumn() const { return *column_; }

  private:
    void followConfig();
    void applyWidth();

    platform::Environment<DriftSettingsConfig> config_;
    core::Subscription width_;
    QLabel* label_;
    QWidget* column_;
};

/// A line between groups of rows.
class DriftSettingsDivider : public QWidget {
    Q_OBJECT

  public:
    explicit DriftSettingsDivider(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace driftwood
