#include "driftwood/declarative/drift_segmented_control.hpp"
#include "driftwood/declarative/drift_settings.hpp"
#include "driftwood/declarative/drift_slider.hpp"
#include "platform/testing/window_testing.hpp"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

namespace driftwood {
namespace {

using platform::testing::showActive;

class DriftSliders : public ::testing::Test {
  protected:
    DriftSliders() {
        slider = new DriftSlider(model, nullptr, nullptr, &window);
        slider->setValueName(QStringLiteral("Gain"), QStringLiteral("dB"));
        slider->setGeometry(0, 0, 248, 24); // a track of 200
        model->onSlideStarted = [this](double value) { log << 's' << std::lround(value) << ' '; };
        model->onSlideComplete = [this](double value) { log << 'c' << std::lround(value) << ' '; };
        showActive(window);
    }
    std::string told() {
        const std::string text = log.str();
        log.str({});
        return text;
    }
    DriftSliderTrack& track() { return slider->track(); }

    std::ostringstream log;
    std::shared_ptr<DriftSliderModel> model = std::make_shared<DriftSliderModel>(
        std::vector<double>{10, 80}, 40, 0, 100, 10, SliderIconClickBehaviour::increment);
    QWidget window;
    QPointer<DriftSlider> slider;
};

TEST_F(DriftSliders, ListenToMouseKeysAndIcons) {
    QTest::mouseClick(&track(), Qt::LeftButton, Qt::AltModifier, QPoint(150, 12));
    EXPECT_EQ(told(), "c40 ");
    QTest::mouseClick(&track(), Qt::LeftButton, {}, QPoint(150, 12));
    EXPECT_EQ(told(), "s75 c75 ");
    slider->setLayoutDirection(Qt::RightToLeft);
    QTest::mouseClick(&track(), Qt::LeftButton, {}, QPoint(150, 12));
    EXPECT_EQ(told(), "s25 c25 ");
    const std::pair<Qt::Key, const char*> mirrored[] = {{Qt::Key_Left, "c35 "},
                                                        {Qt::Key_Right, "c25 "}};
    for (const auto& [key, expected] : mirrored) {
        QTest::keyClick(&track(), key);
        EXPECT_EQ(told(), expected);
    }
    slider->setLayoutDirection(Qt::LeftToRight);
    const std::pair<Qt::Key, const char*> keys[] = {
        {Qt::Key_Right, "c35 "}, {Qt::Key_Down, "c25 "},      {Qt::Key_PageUp, "c100 "},
        {Qt::Key_Home, "c0 "},   {Qt::Key_Backspace, "c40 "}, {Qt::Key_End, "c100 "}};
    for (const auto& [key, expected] : keys) {
        QTest::keyClick(&track(), key);
        EXPECT_EQ(told(), expected);
    }
    QTest::mouseClick(&slider->rightButton(), Qt::LeftButton);
    QTest::mouseClick(&slider->leftButton(), Qt::LeftButton);
    EXPECT_EQ(told(), "c100 c90 ");
    slider->setEnabled(false);
    QTest::mouseClick(&track(), Qt::LeftButton, {}, QPoint(150, 12));
    QTest::mouseClick(&slider->leftButton(), Qt::LeftButton);
    EXPECT_EQ(told(), "");
}

TEST_F(DriftSliders, CompleteADragOnceHoweverItIsTakenAway) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"disabled", [&] { slider->setEnabled(false); }},
        {"hidden", [&] { window.hide(); }},
        {"for other objects", [&] { slider->setModel(model); }},
        {"destroyed", [&] { delete slider; }}, // the last one
    };
    for (const auto& [what, take] : ways) {
        QTest::mousePress(&track(), Qt::LeftButton, {}, QPoint(150, 12));
        take();
        if (slider != nullptr) {
            QTest::mouseRelease(&track(), Qt::LeftButton, {}, QPoint(10, 12));
            slider->setEnabled(true);
            showActive(window);
        }
        EXPECT_EQ(told(), "s75 c75 ") << what;
    }
    EXPECT_TRUE(slider.isNull());
}

TEST_F(DriftSliders, SayMixedAndNoNumber) {
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&track());
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Gain"));
    EXPECT_EQ(spoken->text(QAccessible::Description), QStringLiteral("Mixed"));
    EXPECT_EQ(spoken->valueInterface(), nullptr);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    ASSERT_NE(spoken->valueInterface(), nullptr);
    EXPECT_EQ(spoken->valueInterface()->currentValue(), 50);
    EXPECT_EQ(spoken->text(QAccessible::Description), QStringLiteral("50 dB"));
    spoken->valueInterface()->setCurrentValue(1000);
    EXPECT_EQ(model->value.value(), 100);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&slider->leftButton())->text(QAccessible::Name),
              QStringLiteral("Decrease Gain"));
    // Five knobs at most; then a full track.
    const auto inks = [&](std::vector<double> starts) {
        slider->setModel(std::make_shared<DriftSliderModel>(std::move(starts), 0, 0, 100, 1,
                                                            SliderIconClickBehaviour::maxMin));
        QImage picture(track().size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::black);
        track().render(&picture, {}, {}, QWidget::DrawChildren);
        int count = 0;
        for (int x = 0; x < picture.width(); ++x) {
            count += picture.pixelColor(x, picture.height() / 2).lightness() > 50;
        }
        return count;
    };
    const int two = inks({20, 60});
    EXPECT_GT(two, 0);
    EXPECT_GT(inks({10, 30, 50, 70, 90}), 2 * two);
    EXPECT_GT(inks({10, 20, 30, 40, 50, 60}), 150);
}

TEST(DriftSegments, FollowTheirModelAndTheKeys) {
    const auto item = [](int id, const char* title) {
        return std::make_shared<const DriftSegmentItem>(id, title);
    };
    const auto model = std::make_shared<DriftSegmentedControlModel>(
        DriftSegmentedControlModel::Items{item(1, "One"), item(2, "Two"), item(3, "Three")});
    std::string log;
    model->onSelectionChanged = [&](const auto& selected) {
        log += selected != nullptr ? selected->title[1] : '-';
    };
    DriftSegmentedControl control(model);
    showActive(control);
    const auto button = [&](std::size_t i) { return control.buttons()[i]; };
    const auto checked = [&] {
        std::string all;
        for (const QAbstractButton* const one : control.buttons()) {
            EXPECT_EQ(QAccessible::queryAccessibleInterface(const_cast<QAbstractButton*>(one))
                          ->state()
                          .checked,
                      one->isChecked());
            all += one->isChecked() ? 'x' : '.';
        }
        return all;
    };
    QTest::mouseClick(button(1), Qt::LeftButton);
    EXPECT_EQ(checked(), ".x.");
    model->hideSelection.set(true);
    EXPECT_EQ(checked(), "...");
    QTest::mouseClick(button(1), Qt::LeftButton);
    EXPECT_EQ(checked(), ".x.") << "it shows again";
    QTest::mouseClick(button(1), Qt::LeftButton);
    EXPECT_EQ(checked(), "...");
    EXPECT_EQ(log, "ww-");
    button(1)->setFocus(Qt::TabFocusReason);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Space}) {
        QTest::keyClick(QApplication::focusWidget(), key);
    }
    EXPECT_EQ(checked(), "..x");
    control.setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_TRUE(button(1)->hasFocus());
    model->select(1);
    EXPECT_EQ(checked(), "x..");
    EXPECT_EQ(log, "ww-h") << "a program tells nobody";
    // A choice may change the items.
    model->onSelectionChanged = [&](const auto&) { model->items.set({item(7, "Seven")}); };
    QTest::mouseClick(button(1), Qt::LeftButton);
    ASSERT_EQ(control.buttons().size(), 1);
    EXPECT_EQ(button(0)->text(), QStringLiteral("Seven"));
}

TEST(SettingsPanes, KeepTheirColumns) {
    const auto config = std::make_shared<DriftSettingsConfig>(100);
    auto* const button = new QWidget;
    button->setFixedHeight(20);
    const std::vector<QWidget*> three{new QLabel(QStringLiteral("a")),
                                      new QLabel(QStringLiteral("bbbbbbbbbb")), button};
    auto* const first = new DriftSettingsSection(QStringLiteral("Name"), three);
    auto* const second = new DriftSettingsSection(QStringLiteral("A longer name"), {new QLabel});
    DriftSettings pane(400, {first, new DriftSettingsDivider, second});
    platform::setEnvironment(pane, config);
    pane.resize(600, 300);
    showActive(pane);
    const auto columnX = [&](DriftSettingsSection& of) {
        return of.contentColumn().mapTo(&pane, QPoint()).x();
    };
    EXPECT_EQ(columnX(*first), 100 + 20 + 100 + 12) << "the form is in the middle";
    EXPECT_EQ(columnX(*second), columnX(*first));
    int y = three[0]->y();
    for (const QWidget* const child : three) {
        EXPECT_EQ(child->x(), 0);
        EXPECT_EQ(child->width(), first->contentColumn().width());
        EXPECT_EQ(child->y(), y);
        y += child->height() + 4;
    }
    EXPECT_EQ(three[0]->accessibleName(), QStringLiteral("Name"));
    config->labelWidth.set(140);
    QApplication::processEvents();
    EXPECT_EQ(columnX(*first), 272);
    EXPECT_EQ(columnX(*second), 272);
    platform::setEnvironment(pane, std::make_shared<DriftSettingsConfig>(60));
    config->labelWidth.set(200); // nobody's any more
    QApplication::processEvents();
    EXPECT_EQ(columnX(*second), 192);
}

} // namespace
} // namespace driftwood
