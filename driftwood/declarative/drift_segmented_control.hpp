#pragma once

#include "driftwood/declarative/drift_segment_model.hpp"
#include "platform/controls/button.hpp"

#include <vector>

// All of this is for the main thread.
namespace driftwood {

/// A tab: its image and the colour of its label follow from whether it is pressed, which counts
/// first, or selected.
class SegmentedButtonStyle final : public platform::ButtonStyle {
  public:
    explicit SegmentedButtonStyle(bool isSelected) : isSelected_(isSelected) {}

    [[nodiscard]] QFont font() const override;
    [[nodiscard]] double height() const override;
    [[nodiscard]] QMarginsF labelPadding() const override { return {16, 6, 16, 6}; }
    void paint(QPainter& painter, const QRectF& body,
               const platform::ButtonConfiguration& configuration) const override;

  private:
    bool isSelected_;
};

/// A row of tabs over a model. A click selects one, a click on the selected one deselects it. Tab
/// leads to one of them, the arrows, Home and End to the others; Space and Return click. Screen
/// readers find a list of buttons that are checked or not.
class DriftSegmentedControl : public QWidget {
    Q_OBJECT

  public:
    /// The model is not null.
    explicit DriftSegmentedControl(std::shared_ptr<DriftSegmentedControlModel> model,
                                   QWidget* parent = nullptr);

    [[nodiscard]] const std::vector<platform::Button*>& buttons() const { return buttons_; }

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void makeButtons();
    void showSelection();
    void setTabStop(std::size_t index);

    std::shared_ptr<DriftSegmentedControlModel> model_;
    std::vector<platform::Button*> buttons_; // in the order of the items
    std::vector<core::Subscription> changes_;
};

} // namespace driftwood
