#include "driftwood/bridges/backport.hpp"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QScroller>

#include <utility>

namespace driftwood {
namespace {

class EscapeFilter final : public QObject {
  public:
    EscapeFilter(std::function<void()> action, QObject* parent)
        : QObject(parent), action_(std::move(action)) {}

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() != QEvent::KeyPress ||
            static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) {
            return QObject::eventFilter(object, event);
        }
        const auto action = action_; // it may close the view
        action();
        return true;
    }

  private:
    std::function<void()> action_;
};

} // namespace

Backport& Backport::onEscapePressed(std::function<void()> action) {
    content_.installEventFilter(new EscapeFilter(std::move(action), &content_));
    return *this;
}

Backport& Backport::setWidthPreTahoe(double width) {
    content_.setFixedWidth(qRound(width));
    return *this;
}

Backport& Backport::popoverBackground(const QColor& color) {
    QPalette palette = content_.palette();
    palette.setColor(QPalette::Window, color);
    content_.setPalette(palette);
    content_.setAutoFillBackground(true);
    return *this;
}

Backport& Backport::alternatingRowBackgrounds(bool isAlternating) {
    if (auto* const view = qobject_cast<QAbstractItemView*>(&content_)) {
        view->setAlternatingRowColors(isAlternating);
    }
    return *this;
}

Backport& Backport::removeScrollViewEdgeEffect() {
    auto* const area = qobject_cast<QAbstractScrollArea*>(&content_);
    if (area == nullptr) {
        return *this;
    }
    area->setFrameShape(QFrame::NoFrame);
    QScroller* const scroller = QScroller::scroller(area->viewport());
    QScrollerProperties properties = scroller->scrollerProperties();
    const auto off = QVariant::fromValue(QScrollerProperties::OvershootAlwaysOff);
    properties.setScrollMetric(QScrollerProperties::HorizontalOvershootPolicy, off);
    properties.setScrollMetric(QScrollerProperties::VerticalOvershootPolicy, off);
    scroller->setScrollerProperties(properties);
    return *this;
}

} // namespace driftwood
