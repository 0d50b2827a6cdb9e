#pragma once

#include "driftwood/controls/clickable_image_view.hpp"
#include "driftwood/controls/internal/value_accessible.hpp"
#include "driftwood/declarative/drift_slider_track.hpp"
#include "platform/controls/cell_control.hpp"

#include <QMarginsF>

// All of this is for the main thread.
namespace driftwood {

/// Draws the track of a multi-knob slider and nothing around it.
class DriftSliderCell : public platform::Cell {
  public:
    std::shared_ptr<const DriftSliderModel> model; ///< never null once it is drawn
    bool isDragging = false;

    [[nodiscard]] core::Size cellSize() const override { return {120, drift_slider::rowHeight}; }

  protected:
    void drawInterior(const core::Rect& frame, const platform::CellCanvas& canvas) const override;
};

/// The track of a `DriftSlider`, which the keyboard goes to: the arrows step, Page steps by ten,
/// Home and End lead to the ends, Backspace and Delete to the default value, as a click with Alt
/// does. A screen reader hears "Mixed" where the objects disagree, and no number. Whatever takes a
/// drag away completes it, its destruction included: the model's callbacks own what they use.
class DriftSliderTrack final : public platform::CellControl, public ValueControl {
    Q_OBJECT

  public:
    explicit DriftSliderTrack(std::shared_ptr<DriftSliderModel> model, QWidget* parent = nullptr);
    ~DriftSliderTrack() override;

    void setModel(std::shared_ptr<DriftSliderModel> model);
    [[nodiscard]] const std::shared_ptr<DriftSliderModel>& model() const { return model_; }
    /// What the value is followed by for screen readers: "dB".
    void setUnit(const QString& unit) { unit_ = unit; }

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Slider; }
    [[nodiscard]] QAccessibleInterface* makeAccessible() override;
    [[nodiscard]] std::optional<double> spokenValue() const override;
    [[nodiscard]] double lowestValue() const override { return model_->minimumValue; }
    [[nodiscard]] double highestValue() const override { return model_->maximumValue; }
    [[nodiscard]] double smallestStep() const override { return model_->incrementBy; }
    [[nodiscard]] QString valueText() const override;
    void editValue(double value) override;
    void stepValue(double steps) override;

  protected:
    void cancelTracking() override;
    bool handleEvent(QEvent* event) override;

  private:
    [[nodiscard]] DriftSliderCell& sliderCell() { return static_cast<DriftSliderCell&>(cell()); }
    [[nodiscard]] bool takeMouse(const QMouseEvent& event);
    [[nodiscard]] bool takeKey(const QKeyEvent& event);
    void setDragging(bool isDragging);
    void endDrag();

    std::shared_ptr<DriftSliderModel> model_;
    std::unique_ptr<DriftSliderDrag> drag_;
    core::Subscription changes_;
    QString unit_;
    double pressedAt_ = 0; // x from the leading edge
    bool isResetting_ = false;
};

/// A slider that edits one number of several objects at once, in the well of a text field, with a
/// button at each end. It reaches 2 points out of its place at both sides: put it into a layout as
/// a `PaddedItem` with its `padding`.
class DriftSlider : public QWidget {
    Q_OBJECT

  public:
    /// The model is not null; the images outlive the slider.
    DriftSlider(std::shared_ptr<DriftSliderModel> model, const platform::ImageAsset* leftImage,
                const platform::ImageAsset* rightImage, QWidget* parent = nullptr);

    [[nodiscard]] static QMarginsF padding() { return {-2, 0, -2, 0}; }

    /// For other objects. A drag that goes on is complete.
    void setModel(std::shared_ptr<DriftSliderModel> model);
    [[nodiscard]] const std::shared_ptr<DriftSliderModel>& model() const { return track_->model(); }
    [[nodiscard]] DriftSliderTrack& track() const { return *track_; }
    [[nodiscard]] ClickableImageView& leftButton() const { return *left_; }
    [[nodiscard]] ClickableImageView& rightButton() const { return *right_; }
    /// What is edited, for screen readers, and its unit.
    void setValueName(const QString& name, const QString& unit = {});

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void nameButtons();

    QString name_;
    ClickableImageView* left_;
    DriftSliderTrack* track_;
    ClickableImageView* right_;
    core::Subscription leftClicks_;
    core::Subscription rightClicks_;
};

} // namespace driftwood
