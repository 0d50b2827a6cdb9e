#include "fernhorn/dials/pictures.hpp"
#include "fernhorn/testing/dials_fixture.hpp"
#include "fernhorn/testing/event_host.hpp"

#include <QApplication>
#include <QPainter>
#include <QTest>
#include <QToolTip>

#include <gmock/gmock.h>

namespace fernhorn {
namespace {

using platform::testing::showActive;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(Dials, ShowTheFrameOfTheValueWhereItBelongs) {
    struct Case {
        Dial* dial;
        const char* frames;
    };
    LabelDisplayOptions narrow = look;
    narrow.showSuffix = false;
    narrow.labelWidth = 20;
    narrow.valueFontSize = 8;
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const Case cases[] = {
            {new ChaosDial(parameter, ModernDialColor::grey, narrow), "knobs/chaos-dial-grey_"},
            {new MediumDial(parameter, SmallDialColor::red, narrow), "knobs/dial-medium-red-"},
            {new TinyDial(parameter, narrow), "knobs/dial-small-grey-"},
        };
        for (const auto& [dial, frames] : cases) {
            dial->setParent(&window);
            dial->resize(dial->sizeHint());
            dial->ensurePolished();
            for (const auto& [position, frame] : {std::pair(0.0F, 1), {0.5F, 26}, {1.0F, 51}}) {
                setByHost(position);
                EXPECT_EQ(dial->imageIndex(), frame);
                QImage drawn((QSizeF(dial->size()) * scale).toSize(),
                             QImage::Format_ARGB32_Premultiplied);
                QImage expected = drawn;
                drawn.setDevicePixelRatio(scale);
                drawn.fill(Qt::black);
                expected.fill(Qt::black);
                dial->render(&drawn, {}, {}, QWidget::DrawChildren);
                const QString name =
                    QLatin1String(frames) + QStringLiteral("%1").arg(frame, 2, 10, QChar(u'0'));
                const auto* const image = resourceBundle().assets().image(name);
                QPainter(&expected).drawImage(0, 0, image->image(scale));
                // The label covers the lower part.
                const int height = static_cast<int>(image->size().height() * 0.4 * scale);
                const QRect free(0, 0, image->image(scale).width(), height);
                drawn.setDevicePixelRatio(1);
                EXPECT_EQ(drawn.copy(free), expected.copy(free)) << frames << scale << frame;
            }
            delete dial;
        }
    }
}

TEST_F(Dials, FramesAreReducedWhereThereIsLessRoom) {
    const auto* const image =
        resourceBundle().assets().image(QStringLiteral("knobs/chaos-dial-grey_26"));
    QImage drawn(28, 32, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::black);
    QImage expected = drawn;
    QPainter painter(&drawn);
    FilmStrip::ofKit(QStringLiteral("knobs/chaos-dial-grey_"), 51).paint(painter, drawn.rect(), 26);
    FilmStrip::ofKit(QStringLiteral("knobs/none"), 2).paint(painter, drawn.rect(), 1);
    QPainter(&expected).drawImage(
        0, 0,
        image->image(1).scaled(drawn.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    EXPECT_EQ(drawn, expected);
}

TEST_F(Dials, DoubleClickAndAltClickResetTheKnobOnly) {
    auto& dial = placeDial();
    for (const auto modifiers : {Qt::NoModifier, Qt::AltModifier}) {
        setByHost(0.75F);
        QTest::mouseClick(&dial, Qt::LeftButton, modifiers, {5, 5});
        if (modifiers == Qt::NoModifier) {
            EXPECT_THAT(events, IsEmpty());
            QTest::mouseDClick(&dial, Qt::LeftButton, {}, {5, 5});
            QTest::mouseRelease(&dial, Qt::LeftButton, {}, {5, 5});
        }
        EXPECT_EQ(std::exchange(events, {}), (AutomationEvents{{0, 0.5F}}));
    }
    setByHost(0.75F);
    QTest::mouseClick(&dial, Qt::LeftButton, Qt::AltModifier, {dial.width() / 2, 48});
    EXPECT_THAT(events, IsEmpty()); // that was the label's
    EXPECT_TRUE(dial.isEditing());
}

TEST_F(Dials, ADragTurnsTheKnobAlsoFromTheLabel) {
    const struct {
        Dial* dial;
        int minDrag;
        float each; // point beyond that
        bool isOnLabel = false;
    } cases[] = {{new ChaosDial(parameter, ModernDialColor::grey, look), 6, 0.005F},
                 {new ChaosDial(parameter, ModernDialColor::grey, look), 6, 0.005F, true},
                 {new MediumDial(parameter, SmallDialColor::purple, look), 6, 0.005F},
                 {new TinyDial(parameter, look), 3, 0.01F}};
    for (const auto& [dial, minDrag, each, isOnLabel] : cases) {
        setByHost(0.5F);
        events.clear();
        place(dial);
        const QPoint from = isOnLabel ? QPoint(dial->width() / 2, 48) : QPoint(5, 5);
        QTest::mousePress(dial, Qt::LeftButton, {}, from);
        QTest::mouseMove(dial, from - QPoint(0, minDrag - 1));
        EXPECT_THAT(events, IsEmpty());
        QTest::mouseMove(dial, from - QPoint(0, minDrag));
        QTest::mouseMove(dial, from - QPoint(0, minDrag + 10));
        EXPECT_EQ(QToolTip::text(), QString()); // the label says it
        QTest::mouseRelease(dial, Qt::LeftButton, {}, from);
        EXPECT_NEAR(value(), 0.5F + 10 * each, 1e-5);
        EXPECT_EQ(events.size(), 3U);
        EXPECT_FALSE(dial->isEditing());
        delete dial;
    }
}

TEST_F(Dials, KeysThatNobodyNeedsGoOnToTheHost) {
    EventHost host;
    host.resize(200, 200);
    auto* const dial =
        new ChaosDial(parameter, ModernDialColor::grey, look, nullptr, countEnd(), &host);
    auto* const label =
        new DialLabel(parameter, look, dial->formatter(), {}, Qt::red, FernFont::rocket, &host);
    label->move(100, 0);
    showActive(host);
    // Clicks leave the keyboard where it is.
    QApplication::focusWidget()->clearFocus();
    QTest::mouseClick(dial, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
    QTest::keyClick(dial, Qt::Key_Space);
    QTest::keyClick(label, Qt::Key_Space);
    QTest::keyClick(label, Qt::Key_Up);
    EXPECT_THAT(host.keys, ElementsAre(Qt::Key_Space, Qt::Key_Space, Qt::Key_Up));
    host.keys.clear();
    // Return opens the field and gives the keyboard back; in the field, Up is not the knob's.
    dial->setFocus(Qt::TabFocusReason);
    QTest::keyClick(dial, Qt::Key_Return);
    QTest::keyClick(&field(*dial), Qt::Key_Up);
    QTest::keyClick(&field(*dial), Qt::Key_F5);
    EXPECT_THAT(host.keys, ElementsAre(Qt::Key_Up, Qt::Key_F5));
    QTest::keyClick(&field(*dial), Qt::Key_Return);
    EXPECT_TRUE(dial->hasFocus());
    EXPECT_THAT(host.keys, ElementsAre(Qt::Key_Up, Qt::Key_F5));
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(events, IsEmpty());
}

} // namespace
} // namespace fernhorn
