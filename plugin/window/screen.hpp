#pragma once

#include "core/subscription.hpp"
#include "fernhorn/model/audio_parameter.hpp"

#include <QPainterPath>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

// All of this is for the main thread.
namespace larkvox {

/// A glowing line of many strands on a small screen that is sunk into its panel. It is drawn anew
/// when one of the parameters changes that it follows.
class Screen : public QWidget {
  public:
    using Parameters = std::vector<std::shared_ptr<fernhorn::AudioParameter>>;

    [[nodiscard]] QSize sizeHint() const override { return {240, 88}; }

  protected:
    /// `columns` is how many parts the grid has.
    Screen(const QString& name, const Parameters& followed, int columns);

    /// From the left edge to the right one, in points.
    [[nodiscard]] virtual QPainterPath line() const = 0;
    /// Points of the line that something below the screen has moved; they are lit.
    [[nodiscard]] virtual std::vector<QPointF> nodes() const { return {}; }
    /// What stands at the left edge for 1, 0.5 and 0, from the top; nothing: no scale.
    [[nodiscard]] virtual QStringList scale() const { return {}; }
    /// The height on the screen for 0 (low) to 1 (high).
    [[nodiscard]] double yAt(double position) const;

    void paintEvent(QPaintEvent* event) override;

  private:
    void paintGround(QPainter& painter) const;
    void paintScale(QPainter& painter) const;

    int columns_;
    std::vector<core::Subscription> observers_;
};

/// The gains of bands, tilted, as a curve: one point in the middle of each of so many equal
/// columns.
class BandScreen final : public Screen {
  public:
    BandScreen(Parameters bands, std::shared_ptr<fernhorn::AudioParameter> tilt);

  protected:
    [[nodiscard]] QPainterPath line() const override;
    [[nodiscard]] std::vector<QPointF> nodes() const override;
    [[nodiscard]] QStringList scale() const override;

  private:
    Parameters bands_;
    std::shared_ptr<fernhorn::AudioParameter> tilt_;
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

} // namespace larkvox
