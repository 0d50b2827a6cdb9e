#include "fernhorn/header/plugin_header_view.hpp"

#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/header/header_parts.hpp"
#include "fernhorn/testing/test_parameter.hpp"
#include "platform/controls/button.hpp"
#include "platform/testing/recording_workspace.hpp"
#include "platform/testing/window_testing.hpp"

#include <QFontMetricsF>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <gmock/gmock.h>

namespace fernhorn {
namespace {

using platform::testing::pixelsOf;
using platform::testing::showActive;
using testing::ElementsAre;
using testing::Pair;

class PluginHeader : public testing::Test {
  protected:
    core::MainQueue queue;
    platform::testing::RecordingWorkspace workspace;
    std::shared_ptr<AudioParameter> pages = TestParameter{
        .range = {0, 2},
        .valueStrings = std::vector<std::string>{
            "Bands", "Pitch", "straße"}}.on(queue);
    AutomationEvents events;
    QWidget* menu = nullptr;
    std::unique_ptr<PluginHeaderView> header;

    static void SetUpTestSuite() { resourceBundle().assets().registerFonts(); }
    void SetUp() override { recordEvents(*pages, events); }

    void make(const std::shared_ptr<AudioParameter>& tabs,
              std::optional<UpdateAvailableDetails> update = {},
              Qt::LayoutDirection direction = Qt::LeftToRight) {
        menu = new QWidget;
        menu->setFixedSize(30, 20);
        header = std::make_unique<PluginHeaderView>(
            QUrl("https://update.example/"), "1.1.0", tabs, std::move(update), FernFont::rocket,
            menu, nullptr, workspace, QUrl("https://maker.example/"));
        header->setLayoutDirection(direction);
        header->resize(700, 46);
        showActive(*header);
    }
    /// Where a part of the header stands.
    QRect place(const QWidget& part) const {
        return {part.mapTo(header.get(), QPoint()), part.size()};
    }
    std::vector<HeaderTab*> tabs() const {
        const auto found = header->findChildren<HeaderTab*>();
        return {found.begin(), found.end()};
    }
    platform::Button& update() const { return *header->findChild<platform::Button*>(); }
    QLabel& version() const { return *header->findChild<QLabel*>(); }
};

TEST_F(PluginHeader, LaysItsPartsOutInARow) {
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        make(pages, {}, direction);
        EXPECT_EQ(header->height(), 46);
        EXPECT_EQ(header->grab().toImage().pixelColor(350, 3), kitColor("background"));
        // As seen from the leading edge.
        const auto begin = [&](QRect part) {
            return direction == Qt::LeftToRight ? part.left() : 700 - 1 - part.right();
        };
        const auto end = [&](QRect part) { return begin(part) + part.width(); };
        const QRect logo = place(*header->findChild<LogoButton*>());
        EXPECT_EQ(begin(logo), 8);
        EXPECT_EQ(end(place(*menu)), 700 - 16);
        EXPECT_EQ(place(*menu).center().y(), 22);
        EXPECT_LT(end(place(version())), begin(place(*menu)));
        ASSERT_EQ(tabs().size(), 3U);
        int before = end(logo);
        for (HeaderTab* const tab : tabs()) {
            const QRect name = place(*tab).adjusted(HeaderTab::reach, 0, -HeaderTab::reach, 0);
            const double width =
                QFontMetricsF(tab->face().caption.font).horizontalAdvance(tab->face().caption.text);
            EXPECT_EQ(name.width(), std::ceil(width));
            if (tab != tabs().front()) {
                EXPECT_EQ(begin(name) - before, 24);
            } else {
                EXPECT_GT(begin(name), before);
            }
            EXPECT_EQ(tab->face().caption.font,
                      (CustomFontModifier{FernFont::rocket, 16}.resolved()));
            before = end(name);
        }
        EXPECT_GT(begin(place(version())) - before, 100); // all that is left over
    }
}

TEST_F(PluginHeader, TabsAreInCapitalsOfTheUsersLanguage) {
    const auto names = [this](const QLocale& locale) {
        QLocale::setDefault(locale);
        make(pages);
        QLocale::setDefault(QLocale::c());
        QStringList texts;
        for (HeaderTab* const tab : tabs()) {
            texts.append(tab->face().caption.text);
        }
        return texts;
    };
    EXPECT_EQ(names(QLocale(QLocale::German)), QStringList({"BANDS", "PITCH", "STRASSE"}));
    EXPECT_EQ(names(QLocale(QLocale::Turkish)), QStringList({"BANDS", "PİTCH", "STRASSE"}));
    EXPECT_EQ(tabs()[2]->accessibleName(), "straße");
}

TEST_F(PluginHeader, AClickOnATabIsASingleEdit) {
    make(pages);
    const auto expectSelected = [this](float value, std::vector<bool> expected) {
        pages->setValue(value, fromUnit, change);
        queue.drain();
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const QImage picture = tabs()[i]->grab().toImage();
            EXPECT_EQ(pixelsOf(picture, kitColor("tabSelected")) > 5, expected[i]) << value << i;
            EXPECT_EQ(pixelsOf(picture, kitColor("tabUnselected")) > 5, !expected[i]) << value << i;
            EXPECT_EQ(QAccessible::queryAccessibleInterface(tabs()[i])->state().selected,
                      expected[i]);
        }
    };
    expectSelected(0, {true, false, false});
    expectSelected(1.5F, {false, false, false}); // nothing is cut here
    expectSelected(2, {false, false, true});
    QTest::mouseClick(tabs()[1], Qt::LeftButton);
    EXPECT_THAT(events, ElementsAre(Pair(0, 1)));
    queue.drain();
    QTest::mouseClick(tabs()[1], Qt::LeftButton);
    EXPECT_EQ(events.size(), 1U);
    tabs()[1]->setFocus(Qt::TabFocusReason);
    QTest::keyClick(tabs()[1], Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_THAT(events, ElementsAre(Pair(0, 1), Pair(0, 2), Pair(0, 0)));
    EXPECT_EQ(QApplication::focusWidget(), tabs()[0]);
}

TEST_F(PluginHeader, ShowsTheVersionOrTheUpdate) {
    make(pages);
    EXPECT_EQ(version().text(), "1.1.0");
    EXPECT_EQ(version().font(), (CustomFontModifier{FernFont::rocket, 13}.resolved()));
    EXPECT_GT(pixelsOf(version().grab().toImage().scaled(200, 60), kitColor("versionInfo")), 5);
    EXPECT_FALSE(update().isVisible());
    header->setUpdateDetails(UpdateAvailableDetails{"1.2.0b"});
    EXPECT_FALSE(version().isVisible());
    EXPECT_TRUE(update().isVisible());
    EXPECT_EQ(update().text(), "1.2.0B AVAILABLE");
    header->setUpdateDetails({});
    EXPECT_TRUE(version().isVisible());
    header->setEnabled(false); // and it dims with the rest
    EXPECT_EQ(pixelsOf(version().grab().toImage().scaled(200, 60), kitColor("versionInfo")), 0);
    make(TestParameter{}.on(queue),
         UpdateAvailableDetails{"2"}); // without tabs the rest is as ever
    EXPECT_EQ(header->findChild<HeaderTabs*>(), nullptr);
    EXPECT_EQ(place(*header->findChild<LogoButton*>()).left(), 8);
    EXPECT_FALSE(version().isVisible());
    EXPECT_EQ(update().text(), "2 AVAILABLE");
}

TEST_F(PluginHeader, OpensTheMakersWebsiteAndTheUpdate) {
    make(pages, UpdateAvailableDetails{"1.2.0"});
    auto& logo = *header->findChild<LogoButton*>();
    QTest::mouseClick(&logo, Qt::LeftButton);
    QTest::mouseClick(&update(), Qt::LeftButton);
    QTest::keyClick(&logo, Qt::Key_Return);
    const QUrl maker("https://maker.example/");
    EXPECT_EQ(workspace.opened, QList<QUrl>({maker, QUrl("https://update.example/"), maker}));
}

TEST_F(PluginHeader, TabGoesThroughItInItsOrder) {
    make(pages, UpdateAvailableDetails{"1.2.0"});
    menu->setFocusPolicy(Qt::TabFocus);
    // Of the tabs it comes to the chosen one; arrows, Home and End go through them.
    const auto expectRound = [this](QWidget* tab) {
        auto& logo = *header->findChild<LogoButton*>();
        logo.setFocus();
        for (QWidget* const part :
             {static_cast<QWidget*>(&logo), tab, static_cast<QWidget*>(&update()), menu}) {
            EXPECT_EQ(QApplication::focusWidget(), part);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        menu->setFocus();
        QTest::keyClick(menu, Qt::Key_Backtab);
        QTest::keyClick(&update(), Qt::Key_Backtab);
        EXPECT_EQ(QApplication::focusWidget(), tab);
    };
    expectRound(tabs()[0]);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    queue.drain();
    EXPECT_EQ(pages->value(), 2);
    expectRound(tabs()[2]);
    pages->setValue(1, fromUnit, change); // while another one has the keyboard
    queue.drain();
    QTest::keyClick(tabs()[2], Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), header->findChild<LogoButton*>());
    expectRound(tabs()[1]);
    QTest::keyClick(tabs()[1], Qt::Key_Home);
    queue.drain();
    EXPECT_EQ(pages->value(), 0);
    pages->setValue(1.5F, fromUnit, change); // none is chosen
    queue.drain();
    expectRound(tabs()[0]);
    delete tabs()[0];
    expectRound(tabs()[0]);
}

TEST_F(PluginHeader, TheUpdateStyleIsAPlateAroundItsLabel) {
    const auto style = std::make_shared<UpdateButtonStyle>();
    const QFontMetricsF metrics(style->font());
    platform::Button button("HEIL", style);
    EXPECT_EQ(style->font().pixelSize(), 13);
    EXPECT_EQ(button.sizeHint(), QSizeF(std::ceil(metrics.horizontalAdvance("HEIL") + 8),
                                        std::ceil(metrics.height() + 2))
                                     .toSize());
    button.resize(button.sizeHint());
    const auto colorAt = [&](bool isPressed, QPoint point) {
        QImage picture(button.size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::black);
        QPainter painter(&picture);
        style->paint(painter, button.rect(), {"HEIL", isPressed, true});
        painter.end();
        return picture.pixelColor(point);
    };
    const QColor plate = kitColor("updateBackground");
    EXPECT_EQ(colorAt(false, {3, 8}), plate);
    EXPECT_EQ(colorAt(false, {0, 0}), QColor(Qt::black)); // the corner is round
    EXPECT_EQ(colorAt(false, {4, 0}), plate);
    EXPECT_NEAR(colorAt(true, {3, 8}).green(), plate.green() * 0.8, 1);
    button.resize(button.width() * 3, button.height());
    EXPECT_GT(pixelsOf(button.grab().toImage(), kitColor("background")), 20);
}

} // namespace
} // namespace fernhorn
