#include "artwork/bundle_writer.hpp"
#include "artwork/canvas.hpp"
#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <gmock/gmock.h>

namespace artwork {
namespace {

const QString fonts = ARTWORK_FONTS;

double luminance(const QColor& color) {
    const auto linear = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double x = luminance(a) + 0.05;
    const double y = luminance(b) + 0.05;
    return std::max(x, y) / std::min(x, y);
}

Drawing kitDrawing(const QString& name) {
    const auto drawings = allDrawings(fonts);
    const auto found = std::ranges::find(drawings, name, &Drawing::name);
    EXPECT_NE(found, drawings.end()) << name.toStdString();
    return found == drawings.end() ? drawings.front() : *found;
}

QImage onGround(const QImage& image, std::string_view ground) {
    QImage result(image.size(), QImage::Format_RGB32);
    result.fill(color(ground));
    QPainter(&result).drawImage(0, 0, image);
    return result;
}

constexpr std::array grounds{"background", "Background/Normal", "Background/Darker",
                             "Background/Darkest"};

/// Text on bezels, in the colour it has in that state; `tint` is what the focus ring fills them
/// with, at 30 %.
struct Text {
    const char* ink;
    double least;
    const char* tint;
    std::vector<const char*> images;
};

constexpr double normal = 4.5;
constexpr double pressed = 3;
constexpr const char* focus = "Highlight/System";
const std::vector<Text> texts{
    {"Grey 85%", normal, nullptr, {"dwk-button", "dwk-textfield", "dwk-textfield-tableheader"}},
    {"Grey 85%",
     normal,
     focus,
     {"dwk-button", "organiser-navbar-back", "corner-tool-background", "dwk-popup",
      "dwk-popup-tool", "dwk-popdown", "dwk-combobox", "dwk-textfield-focus",
      "dwk-searchfield-focus", "dwk-window-tab-selected"}},
    {"Grey 50%",
     pressed,
     focus,
     {"dwk-button-down", "dwk-button-selected", "organiser-navbar-back-down",
      "corner-tool-background-down", "dwk-popup-down", "dwk-popup-tool-down", "dwk-popdown-down",
      "dwk-window-tab-down"}},
    {"Grey 50%",
     normal,
     nullptr, // placeholders, too
     {"dwk-button-selected", "corner-tool-background-selected", "dwk-textfield",
      "dwk-textfield-tableheader", "dwk-searchfield"}},
    {"Grey 100%", normal, "Error", {"dwk-textfield-error"}},
    {"Grey 70%", normal, focus, {"dwk-window-tab", "modern-button-down"}},
    {"chaosToggleText",
     normal,
     nullptr,
     {"chaos-button-grey-off", "chaos-button-grey-on-yellow", "chaos-button-narrow-grey-off",
      "chaos-button-narrow-grey-on-yellow"}},
    {"chaosToggleTextPressed",
     normal,
     nullptr,
     {"chaos-button-grey-off-down", "chaos-button-grey-on-yellow-down",
      "chaos-button-narrow-grey-off-down", "chaos-button-narrow-grey-on-yellow-down"}},
    {"ChaosYellowText", normal, nullptr, {"chaos-button-yellow"}},
    {"ChaosYellowText", pressed, nullptr, {"chaos-button-yellow-down"}},
    {"buttonText",
     normal,
     focus,
     {"modern-button", "modern-button-on", "modern-button-on-down", "settings-button",
      "settings-button-down"}},
    {"buttonText", normal, nullptr, {"retro-button", "retro-button-down"}},
};

class Bezels : public testing::TestWithParam<int> {};

TEST_P(Bezels, CarryLegibleText) {
    const int scale = GetParam();
    for (const auto& [ink, least, tint, images] : texts) {
        for (const char* const name : images) {
            const auto drawing = kitDrawing(name);
            const auto bezel = bake(drawing, scale);
            double worst = 21;
            for (const auto* ground : grounds) {
                const auto image = onGround(bezel, ground);
                // A line of 12 points in the middle, where the image stretches.
                const int x = static_cast<int>(drawing.capInsets.left * scale);
                const int middle = image.height() / 2;
                for (int y = middle - 6 * scale; y < middle + 6 * scale; ++y) {
                    const auto pixel = image.pixelColor(x, y);
                    worst = std::min(
                        worst, contrast(tint != nullptr ? mixed(pixel, color(tint), 0.3) : pixel,
                                        color(ink)));
                }
            }
            EXPECT_GE(worst, least) << name << ", " << ink << (tint != nullptr ? ", focused" : "");
        }
    }
}

TEST_P(Bezels, DifferInFormAndNotOnlyInColour) {
    const auto expectDifferent = [](const QString& one, const QString& other) {
        SCOPED_TRACE((one + " and " + other).toStdString());
        const auto a = onGround(bake(kitDrawing(one), GetParam()), "Background/Normal");
        const auto b = onGround(bake(kitDrawing(other), GetParam()), "Background/Normal");
        ASSERT_EQ(a.size(), b.size()) << "a control would jump";
        int different = 0;
        for (int y = 0; y < a.height(); ++y) {
            for (int x = 0; x < a.width(); ++x) {
                different += contrast(a.pixelColor(x, y), b.pixelColor(x, y)) > 1.25 ? 1 : 0;
            }
        }
        const double share = static_cast<double>(different) / (a.width() * a.height());
        EXPECT_GE(share, 0.03) << "alike without colour";
    };
    // Each from the one before it.
    const std::vector<std::vector<const char*>> chains{
        {"dwk-button", "dwk-button-selected", "dwk-button-down"},
        {"corner-tool-background", "corner-tool-background-selected",
         "corner-tool-background-down"},
        {"dwk-checkbox", "dwk-checkbox-on", "dwk-checkbox-mixed"},
        {"organiser-icon-star", "organiser-icon-star-empty"},
        {"dwk-popup-tool", "dwk-popup", "dwk-popdown"},
        {"dwk-combobox", "dwk-combobox-up"},
        {"dwk-textfield", "dwk-textfield-focus", "dwk-textfield-error"},
        {"dwk-slider", "dwk-slider-alley"},
        {"dwk-slider-handle", "dwk-slider-handle-multi"},
        {"dwk-window-tab", "dwk-window-tab-selected", "dwk-window-tab-down"},
        {"organiser-icon-disclose", "organiser-icon-disclose-open"},
        {"chaos-button-grey-off", "chaos-button-grey-on-yellow"},
        {"chaos-button-grey-off-down", "chaos-button-grey-on-yellow-down"},
        {"chaos-button-narrow-grey-off", "chaos-button-narrow-grey-on-yellow"},
        {"chaos-button-narrow-grey-off-down", "chaos-button-narrow-grey-on-yellow-down"},
        {"chaos-button-small-yellow-left", "chaos-button-small-yellow-right"},
        {"retro-button", "modern-button-on", "modern-button"},
        {"modern-button-down", "modern-button-on-down"},
    };
    for (const auto& chain : chains) {
        for (std::size_t i = 1; i < chain.size(); ++i) {
            expectDifferent(chain[i - 1], chain[i]);
        }
    }
    int pressedOnes = 0;
    for (const auto& drawing : allDrawings(fonts)) {
        if (drawing.name.endsWith("-down") && drawing.name != "corner-tool-background-down") {
            expectDifferent(drawing.name.chopped(5), drawing.name);
            ++pressedOnes;
        }
    }
    EXPECT_GT(pressedOnes, 20);
}

TEST_P(Bezels, PatternsContinueAcrossTheirEdges) {
    for (const auto* name : {"dwk-checkerboard", "dwk-checkerboard-small"}) {
        const auto image = bake(kitDrawing(name), GetParam());
        const int half = image.width() / 2;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const int acrossX = (x + half) % image.width();
                const int acrossY = (y + half) % image.height();
                ASSERT_EQ(image.pixel(x, y), image.pixel(acrossX, acrossY)) << name;
                ASSERT_NE(image.pixel(x, y), image.pixel(acrossX, y)) << name;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, Bezels, testing::Values(1, 2, 3));

TEST(Knobs, TurnThroughTheirSweepUnderALightThatStays) {
    struct Strip {
        const char* prefix;
        QPointF axis;
        double face; ///< the radius within the cap's rim, where the indicator is the brightest
    };
    constexpr QPointF mediumAxis(34, 28.5);
    const auto all = drawingsOf("Fernhorn_Fernhorn", fonts);
    for (const auto& [prefix, axis, face] :
         {Strip{"chaos-dial-grey_", {28, 20.5}, 12}, Strip{"dial-medium-blue-", mediumAxis, 13.4},
          Strip{"dial-medium-yellow-", mediumAxis, 13.4},
          Strip{"dial-medium-red-", mediumAxis, 13.4},
          Strip{"dial-medium-purple-", mediumAxis, 13.4},
          Strip{"dial-small-grey-", {17, 20}, 10.5}}) {
        for (int frame = 1; frame <= 51; ++frame) {
            const auto name =
                QStringLiteral("knobs/%1%2").arg(prefix).arg(frame, 2, 10, QChar('0'));
            SCOPED_TRACE(name.toStdString());
            const auto found = std::ranges::find(all, name, &Drawing::name);
            ASSERT_NE(found, all.end());
            const auto image = onGround(bake(*found, 1), "background");
            QPointF pull;
            double upperLeft = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const auto from = QPointF(x + 0.5, y + 0.5) - axis;
                    const double here = luminance(image.pixelColor(x, y));
                    if (std::hypot(from.x(), from.y()) > face) {
                        continue;
                    }
                    if (here > 0.15) {
                        pull += from * here;
                    } else {
                        upperLeft -= here * (from.x() + from.y());
                    }
                }
            }
            const double angle = std::atan2(pull.x(), -pull.y()) * 180 / 3.14159265;
            EXPECT_NEAR(angle, -135 + 5.4 * (frame - 1), 2.5);
            EXPECT_GT(upperLeft, 0) << "the light has moved";
        }
    }
}

TEST_P(Bezels, NoiseTilesWithoutASeamAndFillsItsChannels) {
    const auto image =
        bake(kitDrawing("tern-noise"), GetParam()).convertToFormat(QImage::Format_RGBA8888);
    const auto channel = [&](int x, int y, int which) -> int {
        return image.constScanLine(y % image.height())[4 * (x % image.width()) + which];
    };
    for (int which = 0; which < 4; ++which) {
        int lowest = 255;
        int highest = 0;
        int inside = 0;
        int across = 0;
        for (int i = 0; i < image.width(); ++i) {
            for (int x = 0; x < image.width(); ++x) {
                lowest = std::min(lowest, channel(x, i, which));
                highest = std::max(highest, channel(x, i, which));
                const int step =
                    std::max(std::abs(channel(x + 1, i, which) - channel(x, i, which)),
                             std::abs(channel(i, x + 1, which) - channel(i, x, which)));
                auto& steepest = x + 1 == image.width() ? across : inside;
                steepest = std::max(steepest, step);
            }
        }
        EXPECT_LE(across, inside) << "a seam in channel " << which;
        EXPECT_GE(highest - lowest, which == 3 ? 90 : 180);
        EXPECT_GE(lowest, which == 3 ? 128 : 0) << "too thin to carry the other channels";
    }
}

TEST(Palette, SetsApartTextSelectionAndFocus) {
    for (const auto* ground : grounds) {
        EXPECT_GE(contrast(color("Highlight/System"), color(ground)), 3.0) << ground;
        EXPECT_GE(contrast(color("Error"), color(ground)), 3.0) << ground;
        EXPECT_GE(contrast(color("Grey 60%"), color(ground)), 4.5) << "a label on " << ground;
    }
    EXPECT_GE(contrast(color("Grey 100%"), color("Highlight/System")), 4.5);
    EXPECT_GE(contrast(color("Grey 100%"), color("Error")), 4.5);
    EXPECT_GE(contrast(color("Grey 50%"), color("Background/Darker")), 4.5) << "a group's row";
    EXPECT_GE(contrast(color("buttonText"), color("background")), 7.0);
}

} // namespace
} // namespace artwork
