#pragma once

#include "core/subscription.hpp"
#include "fernhorn/model/audio_parameter.hpp"

#include <QPainterPath>
#include <QWidget>

#include <memory>
#include <vector>

namespace gallery {

/// The gains of bands as a curve, on a small screen sunk into its panel: one point in the middle of
/// each of so many equal columns. Follows the parameters.
class BandCurve final : public QWidget {
  public:
    explicit BandCurve(std::vector<std::shared_ptr<fernhorn::AudioParameter>> bands);

    [[nodiscard]] QSize sizeHint() const override { return {240, 88}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] double yAt(double position) const;
    [[nodiscard]] QPainterPath curve() const;
    void paintScreen(QPainter& painter) const;

    std::vector<std::shared_ptr<fernhorn::AudioParameter>> bands_;
    std::vector<core::Subscription> observers_;
};

} // namespace gallery
