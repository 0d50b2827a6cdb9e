#include "gallery/house_style.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "gallery/parts.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/controls/focus_ring.hpp"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionSlider>

#include <algorithm>

namespace gallery {
namespace {

constexpr int barExtent = 14;
constexpr double thumbWidth = 5;
constexpr int knob = 16;
constexpr int groove = 6;
constexpr int fieldHeight = 28;
constexpr int fieldEdge = 7; // the picture of a field has a free edge of 2

void paintKitPart(QPainter& painter, const QRectF& place, const char* name) {
    if (const platform::ImageAsset* const image =
            driftwood::resourceBundle().assets().image(QString::fromLatin1(name))) {
        platform::paintImage(painter, place, *image);
    }
}

/// The thumb of a scroll bar and what lies at its sides.
QRect scrollPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
    const bool isUpright = bar.orientation == Qt::Vertical;
    const int room = isUpright ? bar.rect.height() : bar.rect.width();
    const int range = bar.maximum - bar.minimum;
    const int length = range > 0 ? std::max(28, static_cast<int>(qint64(room) * bar.pageStep /
                                                                 (qint64(range) + bar.pageStep)))
                                 : room;
    const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                      room - length, bar.upsideDown);
    const auto along = [&](int from, int size) {
        return isUpright ? QRect(bar.rect.left(), bar.rect.top() + from, bar.rect.width(), size)
                         : QRect(bar.rect.left() + from, bar.rect.top(), size, bar.rect.height());
    };
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return along(start, length);
    case QStyle::SC_ScrollBarSubPage:
        return along(0, start);
    case QStyle::SC_ScrollBarAddPage:
        return along(start + length, room - start - length);
    case QStyle::SC_ScrollBarGroove:
        return bar.rect;
    default: // there are no arrows
        return {};
    }
}

void paintScrollBar(QPainter& painter, const QStyleOptionSlider& bar) {
    if (bar.maximum <= bar.minimum) {
        return;
    }
    const bool isHeld = bar.state.testFlag(QStyle::State_Sunken) &&
                        bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    const bool isUnderPointer = bar.state.testFlag(QStyle::State_MouseOver);
    QRectF thumb(scrollPart(bar, QStyle::SC_ScrollBarSlider));
    const double beside = (barExtent - thumbWidth) / 2;
    thumb = bar.orientation == Qt::Vertical ? thumb.adjusted(beside, 3, -beside, -3)
                                            : thumb.adjusted(3, beside, -3, -beside);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, isHeld ? 110 : isUnderPointer ? 84 : 52));
    painter.drawRoundedRect(thumb, thumbWidth / 2, thumbWidth / 2);
}

QRect knobOf(const QStyleOptionSlider& slider) {
    const int x =
        QStyle::sliderPositionFromValue(slider.minimum, slider.maximum, slider.sliderPosition,
                                        slider.rect.width() - knob, slider.upsideDown);
    return {slider.rect.left() + x, slider.rect.center().y() - knob / 2 + 1, knob, knob};
}

void paintSlider(QPainter& painter, const QStyleOptionSlider& slider) {
    if (!slider.state.testFlag(QStyle::State_Enabled)) {
        painter.setOpacity(0.4);
    }
    const QRectF place(knobOf(slider));
    QRectF track(slider.rect.left() + 2.0, place.center().y() - groove / 2.0,
                 slider.rect.width() - 4.0, groove);
    paintKitPart(painter, track, "dwk-slider-alley");
    slider.upsideDown ? track.setLeft(place.center().x()) : track.setRight(place.center().x());
    if (track.width() > groove + 2) {
        paintKitPart(painter, track, "dwk-slider");
    }
    const bool isHeld = slider.state.testFlag(QStyle::State_Sunken);
    paintKitPart(painter, place, isHeld ? "dwk-slider-handle-down" : "dwk-slider-handle");
    if (slider.state.testFlag(QStyle::State_HasFocus) &&
        slider.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        platform::paintFocusRing(painter, place, knob / 2.0, slider.palette);
    }
}

} // namespace

HouseStyle::HouseStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

int HouseStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    switch (metric) {
    case PM_ScrollBarExtent:
        return barExtent;
    case PM_SliderLength:
    case PM_SliderThickness:
    case PM_SliderControlThickness:
        return knob;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize HouseStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    const QSize made = QProxyStyle::sizeFromContents(type, option, size, widget);
    return type == CT_LineEdit ? QSize(made.width() + 2 * fieldEdge, fieldHeight) : made;
}

QRect HouseStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    return element == SE_LineEditContents ? option->rect.adjusted(fieldEdge, 2, -fieldEdge, -2)
                                          : QProxyStyle::subElementRect(element, option, widget);
}

QRect HouseStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl part, const QWidget* widget) const {
    if (const auto* const slider = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
        if (control == CC_ScrollBar) {
            return scrollPart(*slider, part);
        }
        if (control == CC_Slider && slider->orientation == Qt::Horizontal) {
            return part == SC_SliderHandle ? knobOf(*slider) : slider->rect;
        }
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

void HouseStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    const auto* const slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    const bool isOurs =
        slider != nullptr && (control == CC_ScrollBar ||
                              (control == CC_Slider && slider->orientation == Qt::Horizontal));
    if (!isOurs) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    control == CC_ScrollBar ? paintScrollBar(*painter, *slider) : paintSlider(*painter, *slider);
    painter->restore();
}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    if (element == PE_PanelLineEdit) {
        const bool hasFocus = option->state.testFlag(State_HasFocus);
        paintKitPart(*painter, QRectF(option->rect), "dwk-textfield");
        if (hasFocus) {
            paintKitPart(*painter, QRectF(option->rect), "dwk-textfield-focus");
        }
        return;
    }
    if (element == PE_FrameLineEdit || element == PE_PanelScrollAreaCorner) {
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

} // namespace gallery
