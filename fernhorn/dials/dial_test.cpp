#include "fernhorn/dials/pictures.hpp"
#include "fernhorn/testing/dials_fixture.hpp"

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
using testing::Pair;

TEST_F(Dials, HaveTheirNumbersAndImages) {
    const ChaosDial chaos(parameter, ModernDialColor::grey, look);
    const MediumDial medium(parameter, SmallDialColor::purple, look);
    const TinyDial tiny(parameter, look);
    const struct {
        const Dial& dial;
        double minDrag;
        float factor;
        double overhang;
    } cases[] = {{chaos, 6, 0.005F, 16}, {medium, 6, 0.005F, 16}, {tiny, 3, 0.01F, 0}};
    for (const auto& [dial, minDrag, factor, overhang] : cases) {
        EXPECT_EQ(dial.imageCount(), 51);
        EXPECT_EQ(dial.knobMinDrag(), minDrag);
        EXPECT_EQ(dial.knobDragScaleFactor(), factor);
        EXPECT_EQ(dial.overhang(), overhang);
        EXPECT_EQ(dial.formatter()->format(0.25F), "0.2"); // one place, halves to even
        EXPECT_EQ(dial.imageIndex(), 1);                   // until it is shown
    }
    for (const char* color : {"pluginGrey", "pluginBlue", "pluginYellow", "pluginRed",
                              "pluginPurple", "tinyDialLabel"}) {
        EXPECT_TRUE(resourceBundle().assets().color(QLatin1String(color)).isValid()) << color;
    }
}

TEST_F(Dials, ShowTheFrameOfTheValueWhereItBelongs) {
    struct Case {
        Dial* dial;
        const char* frames;
        QPoint knob; // in a dial of its own size
    };
    LabelDisplayOptions narrow = look;
    narrow.showSuffix = false;
    narrow.labelWidth = 20;
    narrow.valueFontSize = 8;
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const Case cases[] = {
            {new ChaosDial(parameter, ModernDialColor::grey, narrow), "knobs/chaos-dial-grey_", {}},
            {new MediumDial(parameter, SmallDialColor::red, narrow), "knobs/dial-medium-red-", {}},
            {new TinyDial(parameter, narrow), "knobs/dial-small-grey-", {}},
        };
        for (const auto& [dial, frames, knob] : cases) {
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

TEST_F(Dials, FramesAreReducedOnceFromTheNextLargerVariant) {
    const auto* const image =
        resourceBundle().assets().image(QStringLiteral("knobs/chaos-dial-grey_26"));
    const auto reduced = [&](qreal from, qreal to) {
        return image->image(from).scaled((image->size() * to).toSize(), Qt::IgnoreAspectRatio,
                                         Qt::SmoothTransformation);
    };
    EXPECT_EQ(image->image(1.25), reduced(2, 1.25));
    EXPECT_EQ(image->image(1.5), reduced(2, 1.5));
    // Also in a frame that is smaller than the image.
    QImage drawn(28, 32, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::black);
    QImage expected = drawn;
    QPainter painter(&drawn);
    FilmStrip::ofKit(QStringLiteral("knobs/chaos-dial-grey_"), 51).paint(painter, drawn.rect(), 26);
    FilmStrip::ofKit(QStringLiteral("knobs/none"), 2).paint(painter, drawn.rect(), 1);
    QPainter(&expected).drawImage(0, 0, reduced(1, 0.5));
    EXPECT_EQ(drawn, expected);
}

TEST_F(Dials, DoubleClickAndAltClickResetTheKnobOnly) {
    auto& dial = placeDial();
    setByHost(0.75F);
    QTest::mousePress(&dial, Qt::LeftButton, {}, {5, 5});
    QTest::mouseRelease(&dial, Qt::LeftButton, {}, {5, 5});
    QTest::mouseDClick(&dial, Qt::LeftButton, {}, {5, 5});
    QTest::mouseRelease(&dial, Qt::LeftButton, {}, {5, 5});
    EXPECT_THAT(events, ElementsAre(Pair(0, 0.5F)));
    setByHost(0.75F);
    QTest::mouseClick(&dial, Qt::LeftButton, Qt::AltModifier, {5, 5});
    EXPECT_THAT(events, ElementsAre(Pair(0, 0.5F), Pair(0, 0.5F)));
    setByHost(0.75F);
    QTest::mouseClick(&dial, Qt::LeftButton, Qt::AltModifier, {dial.width() / 2, 48});
    EXPECT_EQ(events.size(), 2U); // that was the label's
    EXPECT_TRUE(dial.isEditing());
}

TEST_F(Dials, ADragFromTheLabelTurnsTheKnob) {
    auto& dial = placeDial();
    const QPoint on(dial.width() / 2, 48);
    QTest::mousePress(&dial, Qt::LeftButton, {}, on);
    QTest::mouseMove(&dial, on - QPoint(0, 6));
    QTest::mouseMove(&dial, on - QPoint(0, 16));
    EXPECT_EQ(QToolTip::text(), QString()); // the label says it
    QTest::mouseRelease(&dial, Qt::LeftButton, {}, on);
    EXPECT_NEAR(value(), 0.55F, 1e-5);
    EXPECT_FALSE(dial.isEditing());
    EXPECT_EQ(events.size(), 3U);
}

/// A host that counts the keys it gets.
class Host final : public QWidget {
  public:
    std::vector<int> keys;

  protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
};

TEST_F(Dials, KeysThatNobodyNeedsGoOnToTheHost) {
    Host host;
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
