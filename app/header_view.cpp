#include "app/header_view.hpp"

#include "fernhorn/fonts/fern_font.hpp"
#include "platform/controls/shadowed_label.hpp"
#include "shaders/metal_shader.hpp"

#include <QColorSpace>
#include <QColorTransform>

namespace larkvox {
namespace {

/// The colour of the name's shadows is given in Display P3.
QColor shadowColor(float opacity) {
    const QColor wide = QColor::fromRgbF(0.0485F, 0.0245F, 0.1257F);
    QColor color = QColorSpace(QColorSpace::DisplayP3)
                       .transformationToColorSpace(QColorSpace(QColorSpace::SRgb))
                       .map(wide);
    color.setAlphaF(opacity);
    return color;
}

} // namespace

HeaderView::HeaderView(const QString& productName, QWidget* parent)
    : QWidget(parent),
      visual_(new kestrel::ContentViewShader(this)),
      name_(new platform::ShadowedLabel(productName,
                                        {{shadowColor(0.4F), 0, {0, 1}},
                                         {shadowColor(0.4F), 1, {0, 2}},
                                         {shadowColor(0.3F), 4, {0, 4}}},
                                        this)) {
    fernhorn::rocketFont(*name_, 36);
    QPalette palette = name_->palette();
    palette.setColor(QPalette::WindowText, Qt::white);
    name_->setPalette(palette);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
}

void HeaderView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // It fades out before its edges; the window's rim and round corners stay free.
    constexpr int rim = 3;
    visual_->setGeometry(rect().adjusted(rim, rim, -rim, 0));
    // Room for the shadows around the text.
    constexpr int reach = 12;
    QRect place(QPoint(), name_->sizeHint() + QSize(2 * reach, 2 * reach));
    place.moveCenter(rect().center());
    name_->setGeometry(place);
}

} // namespace larkvox
