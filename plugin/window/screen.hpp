#pragma once

#include "core/subscription.hpp"
#include "fernhorn/model/audio_parameter.hpp"

#include <QPainterPath>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

namespace gallery {

/// A glowing line on a small screen that is sunk into its panel. It is drawn anew when one of the
/// parameters changes that it follows.
class Screen : public QWidget {
  public:
    using Parameters = std::vector<std::shared_ptr<fernhorn::AudioParameter>>;

    [[nodiscard]] QSize sizeHint() const override { return {240, 88}; }

  protected:
    /// `columns` is how many parts the grid has.
    Screen(const QString& name, const Parameters& followed, int columns);

    /// From the left edge to the right one, in points.
    [[nodiscard]] virtual QPainterPath line() const = 0;
    /// The height on the screen for 0 (low) to 1 (high).
    [[nodiscard]] double yAt(double position) const;

    void paintEvent(QPaintEvent* event) override;

  private:
    void paintGround(QPainter& painter) const;

    int columns_;
    std::vector<core::Subscription> observers_;
};

/// The gains of bands as a curve: one point in the middle of each of so many equal columns.
class BandScreen final : public Screen {
  public:
    explicit BandScreen(Parameters bands);

  protected:
    [[nodiscard]] QPainterPath line() const override;

  private:
    Parameters bands_;
};

/// A wave over some turns, -1…1.
class WaveScreen final : public Screen {
  public:
    WaveScreen(const QString& name, const Parameters& followed, int turns,
               std::function<double(double turns)> wave);

  protected:
    [[nodiscard]] QPainterPath line() const override;

  private:
    int turns_;
    std::function<double(double)> wave_;
};

} // namespace gallery
