#include "platform/controls/line_text.hpp"

#include "platform/assets/system_font.hpp"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace platform {
namespace {

const core::Rect room{{20, 0}, {100, 20}};

QFont font(QFont::Weight weight = QFont::Normal) {
    return systemFont(12, weight);
}

/// Where there is ink of a colour, from the first to the last column; (-1, -1) where there is none.
struct Ink {
    int first = -1;
    int last = -1;
};

using Draw = std::function<void(QPainter&)>;

QImage drawn(const Draw& draw, qreal scale = 1) {
    QImage image((QSizeF(140, 20) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    draw(painter);
    return image;
}

Ink inkIn(const QImage& image, bool isRed) {
    Ink ink;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() > 40 && (color.red() > color.blue()) == isRed) {
                ink.first = ink.first < 0 ? x : ink.first;
                ink.last = x;
            }
        }
    }
    return ink;
}

QImage line(const QString& text, const LineLayout& layout) {
    return drawn(
        [&](QPainter& painter) { LineText().paint(painter, room, text, font(), Qt::red, layout); });
}

TEST(LineText, StandsWhereItIsAsked) {
    const QString text = QStringLiteral("HHH");
    const auto inkOf = [&](LineAlignment alignment, bool isRightToLeft) {
        return inkIn(line(text, {alignment, LineEliding::tail, isRightToLeft}), true);
    };
    const double width = QFontMetricsF(font()).horizontalAdvance(text);
    EXPECT_NEAR(inkOf(LineAlignment::left, true).first, 20, 2);
    EXPECT_NEAR(inkOf(LineAlignment::right, false).last, 119, 2);
    EXPECT_NEAR(inkOf(LineAlignment::centre, false).first, 70 - width / 2, 2);
    EXPECT_NEAR(inkOf(LineAlignment::natural, false).first, 20, 2);
    EXPECT_NEAR(inkOf(LineAlignment::natural, true).last, 119, 2);
}

TEST(LineText, LeavesOutWhatIsAsked) {
    const QString text = QStringLiteral("A preset with a very long name indeed");
    const auto as = [&](LineEliding eliding) {
        return line(text, {LineAlignment::left, eliding, false});
    };
    const auto cut = [&](Qt::TextElideMode mode) {
        return line(QFontMetricsF(font()).elidedText(text, mode, room.size.width),
                    {LineAlignment::left, LineEliding::none, false});
    };
    EXPECT_EQ(as(LineEliding::tail), cut(Qt::ElideRight));
    EXPECT_EQ(as(LineEliding::head), cut(Qt::ElideLeft));
    EXPECT_EQ(as(LineEliding::middle), cut(Qt::ElideMiddle));
    EXPECT_EQ(as(LineEliding::none), cut(Qt::ElideNone));
    // What just fits stays whole.
    const QString fits = QStringLiteral("Fits");
    EXPECT_EQ(line(fits, {LineAlignment::left, LineEliding::tail, false}),
              line(fits, {LineAlignment::left, LineEliding::none, false}));
}

TEST(LineText, RunsKeepTheirLookAndAreCutFromTheEndAsked) {
    const auto inks = [](const QString& label, const QString& title, const LineLayout& layout) {
        const std::array<LineRun, 2> runs{LineRun{label, font(), Qt::red},
                                          LineRun{title, font(QFont::Bold), Qt::blue}};
        const QImage picture =
            drawn([&](QPainter& painter) { LineText().paint(painter, room, runs, layout); });
        return std::pair(inkIn(picture, true), inkIn(picture, false));
    };
    const QString longOne(24, u'H');
    const QString shortOne(2, u'H');
    const auto cut = [](LineEliding eliding) {
        return LineLayout{LineAlignment::left, eliding, false};
    };
    auto [label, title] = inks(shortOne, shortOne, cut(LineEliding::tail));
    EXPECT_NEAR(label.first, 20, 2);
    EXPECT_GT(title.first, label.last);
    std::tie(label, title) = inks(shortOne, shortOne, {LineAlignment::natural, {}, true});
    EXPECT_NEAR(label.last, 119, 2) << "the first stands right";
    EXPECT_LT(title.last, label.first);
    for (const auto eliding : {LineEliding::tail, LineEliding::middle}) {
        std::tie(label, title) = inks(shortOne, longOne, cut(eliding));
        EXPECT_GT(label.last, 30);
        EXPECT_GT(title.last, 105);
        EXPECT_LE(title.last, 120);
    }
    std::tie(label, title) = inks(longOne, shortOne, cut(LineEliding::tail));
    EXPECT_LE(label.last, 120);
    EXPECT_EQ(title.first, -1) << "what follows the cut is left out";
    std::tie(label, title) = inks(longOne, shortOne, cut(LineEliding::head));
    EXPECT_GT(title.first, 80);
    EXPECT_LE(title.last, 120);
    std::tie(label, title) = inks(longOne, shortOne, cut(LineEliding::middle));
    EXPECT_GT(title.first, 80) << "the widest is cut";
}

TEST(LineText, IsLaidOutAgainForAnotherRoomTextFontOrScale) {
    LineText kept;
    const QString name = QStringLiteral("A long name of something");
    const QString other = QStringLiteral("Another name of something");
    const struct {
        QString text;
        double width;
        int weight;
        qreal scale;
        LineEliding eliding;
    } cases[] = {
        {name, 100, 400, 1, LineEliding::tail},   {name, 60, 400, 1, LineEliding::tail},
        {name, 60, 400, 1, LineEliding::head},    {name, 60, 700, 1, LineEliding::head},
        {other, 60, 700, 1, LineEliding::head},   {other, 60, 700, 2, LineEliding::head},
        {"Short", 60, 700, 2, LineEliding::head},
    };
    for (const auto& c : cases) {
        const core::Rect rect{{0, 0}, {c.width, 20}};
        const QFont face = font(static_cast<QFont::Weight>(c.weight));
        const LineLayout layout{LineAlignment::left, c.eliding, false};
        const QImage fresh =
            drawn([&](QPainter& p) { LineText().paint(p, rect, c.text, face, Qt::red, layout); },
                  c.scale);
        const QImage again = drawn(
            [&](QPainter& p) { kept.paint(p, rect, c.text, face, Qt::red, layout); }, c.scale);
        const QImage shared = drawn(
            [&](QPainter& p) { LineText::paintShared(p, rect, c.text, face, Qt::red, layout); },
            c.scale);
        EXPECT_EQ(again, fresh);
        EXPECT_EQ(shared, fresh) << "by the shared cache";
        EXPECT_EQ(kept.size(c.text, face).width, QFontMetricsF(face).horizontalAdvance(c.text));
    }
}

} // namespace
} // namespace platform
