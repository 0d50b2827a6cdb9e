#include "plugin/window/screen.hpp"

#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/fonts/fern_font.hpp"
#include "platform/controls/accessible_role.hpp"
#include "plugin/settings/gain_formatter.hpp"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace larkvox {

namespace {

constexpr double inset = 12; // above and below the curve's ends, points
constexpr double gridLight = 0.075;
constexpr int strands = 9;

QColor faded(QColor color, double opacity) {
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

QColor between(const QColor& from, const QColor& to, double share) {
    const auto part = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {part(from.red(), to.red()), part(from.green(), to.green()),
            part(from.blue(), to.blue())};
}

QColor black(double opacity) {
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}
QColor faintWhite(double opacity) {
    return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity));
}

Screen::Parameters joined(Screen::Parameters all,
                          const std::shared_ptr<fernhorn::AudioParameter>& last) {
    all.push_back(last);
    return all;
}

/// What of the tilt is a band's, from -1 to 1.
float tiltAt(std::size_t band, std::size_t count) {
    return 2 * static_cast<float>(band) / static_cast<float>(count - 1) - 1;
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
    rim.setColorAt(0.8, faintWhite(0.02));
    rim.setColorAt(1, faintWhite(0.1));
    const double pixel = 1 / devicePixelRatioF();
    painter.setPen(QPen(QBrush(rim), pixel));
    painter.drawRoundedRect(screen.adjusted(pixel / 2, pixel / 2, -pixel / 2, -pixel / 2), 4, 4);

    painter.setPen(QPen(faintWhite(gridLight), pixel));
    const double column = screen.width() / columns_;
    for (int i = 0; i < columns_; ++i) {
        const double x = (i + 0.5) * column;
        painter.drawLine(QPointF(x, 1), QPointF(x, height() - 1));
    }
    for (const double position : {0.0, 0.25, 0.5, 0.75, 1.0}) {
        painter.setPen(QPen(faintWhite(position == 0.5 ? 2 * gridLight : gridLight), pixel));
        painter.drawLine(QPointF(1, yAt(position)), QPointF(width() - 1, yAt(position)));
    }
}

void Screen::paintScale(QPainter& painter) const {
    const QStringList marks = scale();
    painter.setFont(fernhorn::CustomFontModifier{fernhorn::FernFont::dosisMedium, 10}.resolved());
    painter.setPen(fernhorn::kitColor("versionInfo"));
    double position = 1;
    for (const QString& mark : marks) {
        painter.drawText(QRectF(5, yAt(position) - 8, 30, 16), Qt::AlignVCenter | Qt::AlignLeft,
                         mark);
        position -= 0.5;
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
    paintScale(painter);
    const auto path = line();
    const QColor light = fernhorn::kitColor("updateBackground");
    const QColor depth = fernhorn::kitColor("pluginPurple");

    // Strands of one voice, from the middle of the screen out to the line.
    const double middle = yAt(0.5);
    for (int i = 0; i < strands; ++i) {
        const double share = static_cast<double>(i) / strands;
        const QTransform squeezed(1, 0, 0, share, 0, middle * (1 - share));
        painter.strokePath(
            squeezed.map(path),
            QPen(faded(between(depth, light, share * share), 0.18 + 0.3 * share), 1));
    }
    for (const auto& [width, opacity] :
         {std::pair{10.0, 0.05}, {6.0, 0.09}, {3.2, 0.22}, {1.6, 1.0}}) {
        painter.strokePath(
            path, QPen(faded(light, opacity), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.setPen(Qt::NoPen);
    for (const QPointF node : nodes()) {
        QRadialGradient halo(node, 8);
        halo.setColorAt(0, faded(light, 0.55));
        halo.setColorAt(1, faded(light, 0));
        painter.setBrush(halo);
        painter.drawEllipse(node, 8, 8);
        painter.setBrush(between(light, Qt::white, 0.75));
        painter.drawEllipse(node, 2.2, 2.2);
    }
}

BandScreen::BandScreen(Parameters bands, std::shared_ptr<fernhorn::AudioParameter> tilt)
    : Screen(QStringLiteral("Curve of the band gains"), joined(bands, tilt),
             static_cast<int>(bands.size())),
      bands_(std::move(bands)),
      tilt_(std::move(tilt)) {}

QStringList BandScreen::scale() const {
    const fernhorn::ValueRange range = bands_.front()->valueRange();
    QStringList marks;
    for (const float value : {range.upper, (range.lower + range.upper) / 2, range.lower}) {
        marks << QString::fromStdString(GainFormatter().format(value));
    }
    return marks;
}

std::vector<QPointF> BandScreen::nodes() const {
    const double column = static_cast<double>(width()) / static_cast<double>(bands_.size());
    std::vector<QPointF> points;
    for (std::size_t i = 0; i < bands_.size(); ++i) {
        const auto& band = *bands_[i];
        const float gain = std::clamp(band.value() + tiltAt(i, bands_.size()) * tilt_->value(),
                                      band.valueRange().lower, band.valueRange().upper);
        points.emplace_back((static_cast<double>(i) + 0.5) * column,
                            yAt(static_cast<double>(band.normalizedPosition(gain))));
    }
    return points;
}

QPainterPath BandScreen::line() const {
    const double column = static_cast<double>(width()) / static_cast<double>(bands_.size());
    auto points = nodes();
    // It leaves the screen level, at both sides.
    points.insert(points.begin(), {-column / 2, points.front().y()});
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

} // namespace larkvox
