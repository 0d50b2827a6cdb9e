#include "platform/assets/bundle.hpp"
#include "platform/gpu/shade_image.hpp"
#include "platform/gpu/shader_effect.hpp"

#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace platform {
namespace {

/// A library is a folder; these shaders have no function for a GPU.
ShaderLibrary emptyLibrary() {
    static const QTemporaryDir directory;
    QDir(directory.path()).mkpath(QStringLiteral("Shaders"));
    return ShaderLibrary(Bundle(QDir(directory.path())));
}

Shader makeShader(Shader::ProcessorFunction function, std::vector<Float4> arguments = {}) {
    return {emptyLibrary(), QStringLiteral("none"), std::move(arguments), function};
}

Shader swapped() { // red and blue change places
    return makeShader(
        [](LightRow& light, const Shader::Arguments&) { std::swap(light.red, light.blue); });
}

/// Nested widgets of many kinds.
class Form final : public QWidget {
  public:
    Form() {
        auto* const column = new QVBoxLayout(this);
        column->addWidget(new QPushButton(QStringLiteral("Push"), this));
        edit = new QLineEdit(QStringLiteral("Text"), this);
        edit->setStyleSheet(QStringLiteral("background: #c02040; color: #30ff80"));
        column->addWidget(edit);
        auto* const area = new QScrollArea(this);
        inner = new QWidget;
        inner->setFixedSize(400, 400);
        inner->setStyleSheet(QStringLiteral("background: #2040c0"));
        area->setWidget(inner);
        column->addWidget(area);
        setAutoFillBackground(true);
        resize(240, 200);
    }
    QLineEdit* edit;
    QWidget* inner;
};

QImage picture(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

TEST(ShaderEffect, ShadesAWholeSubtree) {
    Form form;
    form.show();
    const QImage plain = picture(form);
    form.setGraphicsEffect(new ShaderEffect(swapped()));
    EXPECT_EQ(picture(form), plain.rgbSwapped());

    // Twice is as before: an effect within another one.
    form.inner->setGraphicsEffect(new ShaderEffect(swapped()));
    const QImage nested = picture(form);
    const QPoint within = form.inner->mapTo(&form, QPoint(8, 8)) * form.devicePixelRatio();
    EXPECT_EQ(nested.pixel(within), plain.pixel(within));
    EXPECT_EQ(nested.pixel(2, 2), plain.rgbSwapped().pixel(2, 2));

    auto* const effect = static_cast<ShaderEffect*>(form.graphicsEffect());
    effect->setShader({});
    form.inner->setGraphicsEffect(nullptr);
    EXPECT_EQ(picture(form), plain);
    effect->setShader(makeShader(nullptr)); // nothing for the processor
    EXPECT_EQ(picture(form), plain);
}

TEST(ShaderEffect, FollowsWhatChanges) {
    Form form;
    auto* const effect = new ShaderEffect(swapped());
    form.setGraphicsEffect(effect);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    const QImage before = picture(form);
    form.edit->setText(QStringLiteral("Another"));
    const QImage after = picture(form);
    EXPECT_NE(after, before);
    // Only a part is painted anew, and it is shaded, too, in its place.
    QImage part = after.copy();
    form.render(&part, QPoint(20, 30), QRegion(20, 30, 60, 60));
    EXPECT_EQ(part.convertToFormat(QImage::Format_RGB32), after);

    effect->setShader(makeShader(
        [](LightRow& light, const Shader::Arguments& arguments) {
            light.red.fill(arguments[0][0]);
            light.green.fill(0);
            light.blue.fill(arguments[3][3]); // not given
        },
        {{1, 0, 0, 0}}));
    EXPECT_EQ(picture(form).pixelColor(30, 30), QColor(Qt::red));
}

TEST(ShadeImage, KeepsToItsAreaAndItsRange) {
    const Shader negative = makeShader([](LightRow& light, const Shader::Arguments&) {
        for (std::size_t i = 0; i < LightRow::size; ++i) {
            light.red[i] = 0.0F / (light.alpha[i] - light.alpha[i]); // no number
            light.green[i] = 1e30F;
            light.blue[i] = -5;
        }
    });
    QImage image(150, 20, QImage::Format_RGB32);
    image.fill(QColor(10, 20, 30));
    shadeImage(image, negative, QRect(70, 5, 500, 4));
    EXPECT_EQ(image.pixelColor(70, 5), QColor(0, 255, 0));
    EXPECT_EQ(image.pixelColor(149, 8), QColor(0, 255, 0));
    for (const QPoint kept : {QPoint(69, 5), QPoint(70, 4), QPoint(149, 9), QPoint(0, 0)}) {
        EXPECT_EQ(image.pixelColor(kept), QColor(10, 20, 30));
    }
    const QImage before = image;
    shadeImage(image, negative, QRect(-50, -50, 10, 10));
    shadeImage(image, makeShader([](LightRow&, const Shader::Arguments&) {}));
    EXPECT_EQ(image, before);
}

} // namespace
} // namespace platform
