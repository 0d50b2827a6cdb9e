#include "app/dialog_style.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/declarative/button_styles.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/assets/system_font.hpp"

#include <QApplication>
#include <QPainter>
#include <QPalette>

namespace larkvox {
namespace {

const platform::AssetCatalog& kit() {
    return driftwood::resourceBundle().assets();
}

void paintKitImage(QPainter& painter, const QRectF& place, const QString& name) {
    if (const platform::ImageAsset* const image = kit().image(name)) {
        platform::paintImage(painter, place, *image);
    }
}

/// The maker's button in the colour of the product: what a dialog is about.
class LitButtonStyle final : public platform::ButtonStyle {
  public:
    [[nodiscard]] QFont font() const override { return plain_.font(); }
    [[nodiscard]] double height() const override { return plain_.height(); }
    [[nodiscard]] QMarginsF padding() const override { return plain_.padding(); }

    void paint(QPainter& painter, const QRectF& body,
               const platform::ButtonConfiguration& configuration) const override {
        paintKitImage(painter, body,
                      configuration.isPressed ? QStringLiteral("dwk-button-down")
                                              : QStringLiteral("dwk-button"));
        // Over the bezel's body, whose light and shadow stay.
        QColor light = QApplication::palette().color(QPalette::Highlight);
        light.setAlphaF(configuration.isPressed ? 0.35F : configuration.isHovered ? 0.8F : 0.65F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(light);
        painter.drawRoundedRect(body.adjusted(1, 1, -1, -2), 3.5, 3.5);
        painter.setPen(QColor(255, 255, 255, configuration.isPressed ? 170 : 255));
        painter.setFont(font());
        painter.drawText(body, Qt::AlignCenter | Qt::TextSingleLine, configuration.label);
    }

  private:
    driftwood::FennickButtonStyle plain_;
};

class CheckBoxStyle final : public platform::ButtonStyle {
  public:
    explicit CheckBoxStyle(const QString& image) : image_(image) {}

    [[nodiscard]] QFont font() const override {
        return platform::systemFont(12, QFont::Medium, platform::FontDesign::rounded);
    }
    [[nodiscard]] double height() const override { return boxSize + 2 * inset; }
    [[nodiscard]] QMarginsF labelPadding() const override {
        return {boxSize + gap + inset, 0, inset, 0};
    }
    [[nodiscard]] QMarginsF padding() const override { return {-inset, 0, 0, 0}; }

    void paint(QPainter& painter, const QRectF& body,
               const platform::ButtonConfiguration& configuration) const override {
        const bool isMirrored = painter.layoutDirection() == Qt::RightToLeft;
        const QRectF box(isMirrored ? body.right() - inset - boxSize : body.left() + inset,
                         body.top() + inset, boxSize, boxSize);
        paintKitImage(painter, box,
                      configuration.isPressed ? image_ + QStringLiteral("-down") : image_);
        painter.setPen(kit().color(QStringLiteral("Grey 85%")));
        painter.setFont(font());
        painter.drawText(isMirrored ? body.adjusted(inset, 0, -(boxSize + gap + inset), 0)
                                    : body.adjusted(boxSize + gap + inset, 0, -inset, 0),
                         static_cast<int>(Qt::AlignVCenter | Qt::TextSingleLine) |
                             (isMirrored ? Qt::AlignRight : Qt::AlignLeft),
                         configuration.label);
    }

  private:
    static constexpr double boxSize = 16;
    static constexpr double gap = 6;
    static constexpr double inset = 3; // room for the focus ring

    QString image_;
};

} // namespace

updates::DialogStyle dialogStyle() {
    return {std::make_shared<driftwood::FennickButtonStyle>(), std::make_shared<LitButtonStyle>(),
            std::make_shared<CheckBoxStyle>(QStringLiteral("dwk-checkbox")),
            std::make_shared<CheckBoxStyle>(QStringLiteral("dwk-checkbox-on"))};
}

} // namespace larkvox
