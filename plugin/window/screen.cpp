#include "gallery/fernhorn/screen.hpp"

#include "fernhorn/controls/button_face.hpp"
#include "platform/ui/accessible_role.hpp"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace gallery {

namespace {

constexpr double inset = 10; // above and below the curve's ends, points

QColor black(double opacity) {
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}
QColor white(double opacity) {
    return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity));
}

} // namespace

Screen::Screen(const QString& name, const Parameters& followed, int columns) : columns_(columns) {
    platform::setAccessibleRole(*this, QAccessible::Graphic);
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    for (const auto& parameter : followed) {
        observers_.push_back(parameter->observeValue([this](float) { update(); }));
    }
}

double Screen::yAt(double position) const {
    return inset + (1 - position) * (height() - 2 * inset);
}

void Screen::paintGround(QPainter& painter) const {
    const QRectF screen(rect());
    QPainterPath shape;
    shape.addRoundedRect(screen, 4, 4);
    painter.fillPath(shape, QColor(0x0f, 0x0d, 0x16));
    QLinearGradient shadow(0, 0, 0, 10);
    shadow.setColorAt(0, black(0.5));
    shadow.setColorAt(1, black(0));
    painter.fillPath(shape, shadow);
    QLinearGradient rim(0, 0, 0, height());
    rim.setColorAt(0, black(0.6));
    rim.setColorAt(0.8, white(0.02));
    rim.setColorAt(1, white(0.1));
    const double pixel = 1 / devicePixelRatioF();
    painter.setPen(QPen(QBrush(rim), pixel));
    painter.drawRoundedRect(screen.adjusted(pixel / 2, pixel / 2, -pixel / 2, -pixel / 2), 4, 4);

    painter.setPen(QPen(white(0.045), pixel));
    const double column = screen.width() / columns_;
    for (int i = 0; i < columns_; ++i) {
        const double x = (i + 0.5) * column;
        painter.drawLine(QPointF(x, 1), QPointF(x, height() - 1));
    }
    for (const double position : {0.0, 0.25, 0.5, 0.75, 1.0}) {
        painter.setPen(QPen(white(position == 0.5 ? 0.13 : 0.045), pixel));
        painter.drawLine(QPointF(1, yAt(position)), QPointF(width() - 1, yAt(position)));
    }
}

void Screen::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);
    QPainterPath glass;
    glass.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    painter.setClipPath(glass);
    if (!isEnabled()) {
        painter.setOpacity(0.4);
    }
    const auto path = line();
    QColor light = fernhorn::kitColor("updateBackground");

    auto area = path;
    area.lineTo(area.currentPosition().x(), yAt(0.5));
    area.lineTo(path.elementAt(0).x, yAt(0.5));
    area.closeSubpath();
    light.setAlphaF(0.13F);
    painter.fillPath(area, light);
    for (const auto& [width, opacity] :
         {std::pair{7.0, 0.06F}, std::pair{4.0, 0.12F}, std::pair{1.6, 1.0F}}) {
        light.setAlphaF(opacity);
        painter.strokePath(path, QPen(light, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
}

BandScreen::BandScreen(Parameters bands)
    : Screen(QStringLiteral("Curve of the band gains"), bands, static_cast<int>(bands.size())),
      bands_(std::move(bands)) {}

QPainterPath BandScreen::line() const {
    const double column = static_cast<double>(width()) / static_cast<double>(bands_.size());
    std::vector<QPointF> points{{}};
    for (std::size_t i = 0; i < bands_.size(); ++i) {
        const auto& band = *bands_[i];
        points.emplace_back((static_cast<double>(i) + 0.5) * column,
                            yAt(static_cast<double>(band.normalizedPosition(band.value()))));
    }
    // It leaves the screen level, at both sides.
    points.front() = {-column / 2, points[1].y()};
    points.emplace_back(width() + column / 2, points.back().y());

    QPainterPath path(points.front());
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const QPointF before = points[i == 0 ? 0 : i - 1];
        const QPointF after = points[std::min(i + 2, points.size() - 1)];
        path.cubicTo(points[i] + (points[i + 1] - before) / 6,
                     points[i + 1] - (after - points[i]) / 6, points[i + 1]);
    }
    return path;
}

WaveScreen::WaveScreen(const QString& name, const Parameters& followed, int turns,
                       std::function<double(double)> wave)
    : Screen(name, followed, turns * 2), turns_(turns), wave_(std::move(wave)) {}

QPainterPath WaveScreen::line() const {
    constexpr double step = 0.5; // points
    QPainterPath path;
    for (double x = -step; x <= width() + step; x += step) {
        const QPointF point(x, yAt(0.5 + 0.5 * wave_(x / width() * turns_)));
        if (path.elementCount() == 0) {
            path.moveTo(point);
        } else {
            path.lineTo(point);
        }
    }
    return path;
}

} // namespace gallery
