#include "updates/dialogs/update_progress_bar.hpp"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace updates {
namespace {

constexpr int steps = 1000;
constexpr int tickInterval = 33;  // ms
constexpr double roundTrip = 1.8; // s

} // namespace

UpdateProgressBar::UpdateProgressBar(QWidget* parent) : QProgressBar(parent) {
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    ticks_.setInterval(tickInterval);
    connect(&ticks_, &QTimer::timeout, this, [this] {
        phase_ = std::fmod(phase_ + tickInterval / 1000.0 / roundTrip, 1.0);
        update();
    });
    setShare(-1);
}

void UpdateProgressBar::setShare(double share) {
    if (share < 0) {
        setRange(0, 0);
    } else {
        setRange(0, steps);
        setValue(static_cast<int>(std::lround(std::min(share, 1.0) * steps)));
    }
    animate();
}

void UpdateProgressBar::animate() {
    const bool moves = maximum() == 0 && isVisible();
    if (moves != ticks_.isActive()) {
        moves ? ticks_.start() : ticks_.stop();
    }
}

void UpdateProgressBar::showEvent(QShowEvent* event) {
    QProgressBar::showEvent(event);
    animate();
}

void UpdateProgressBar::hideEvent(QHideEvent* event) {
    QProgressBar::hideEvent(event);
    animate();
}

void UpdateProgressBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF groove = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = groove.height() / 2;
    painter.setPen(QPen(QColor(255, 255, 255, 26), 1));
    painter.setBrush(palette().color(QPalette::Base).darker(140));
    painter.drawRoundedRect(groove, radius, radius);

    QRectF filled = groove.adjusted(1, 1, -1, -1);
    const double width = filled.width();
    if (maximum() == 0) {
        const double there = 0.5 - 0.5 * std::cos(phase_ * 2 * 3.14159265358979);
        filled.setWidth(width * 0.28);
        filled.translate((width - filled.width()) * there, 0);
    } else {
        filled.setWidth(width * value() / std::max(1, maximum()));
        if (isRightToLeft()) {
            filled.moveRight(groove.right() - 1);
        }
    }
    if (filled.width() < 1) {
        return;
    }
    const QColor light = palette().color(QPalette::Highlight);
    QLinearGradient gradient(filled.topLeft(), filled.topRight());
    gradient.setColorAt(0, light.darker(125));
    gradient.setColorAt(1, light.lighter(125));
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.setClipRect(filled);
    // A short bar keeps the groove's round end rather than becoming a dot.
    filled.setWidth(std::max(filled.width(), filled.height()));
    painter.drawRoundedRect(filled, radius - 1, radius - 1);
}

} // namespace updates
