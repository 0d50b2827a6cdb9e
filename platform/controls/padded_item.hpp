#pragma once

#include <QLayoutItem>
#include <QMarginsF>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace platform {

/// A widget in a layout with room around it; negative padding lets the widget reach out of its
/// place. The layout owns the item. Main thread.
class PaddedItem final : public QWidgetItem {
  public:
    PaddedItem(QWidget* widget, const QMarginsF& padding)
        : QWidgetItem(widget), padding_(padding.toMargins()) {}

    [[nodiscard]] QSize sizeHint() const override {
        return QWidgetItem::sizeHint().grownBy(padding_);
    }
    [[nodiscard]] QSize minimumSize() const override {
        return QWidgetItem::minimumSize().grownBy(padding_);
    }
    [[nodiscard]] QSize maximumSize() const override {
        return QWidgetItem::maximumSize().grownBy(padding_);
    }
    void setGeometry(const QRect& place) override {
        // An item that is aligned is as large as it wants to be.
        const QSize size(
            alignment() & Qt::AlignHorizontal_Mask ? std::min(place.width(), sizeHint().width())
                                                   : place.width(),
            alignment() & Qt::AlignVertical_Mask ? std::min(place.height(), sizeHint().height())
                                                 : place.height());
        widget()->setGeometry(
            QStyle::alignedRect(widget()->layoutDirection(), alignment(), size, place)
                .marginsRemoved(padding_));
    }
    [[nodiscard]] QRect geometry() const override {
        return widget()->geometry().marginsAdded(padding_);
    }

  private:
    QMargins padding_;
};

} // namespace platform
