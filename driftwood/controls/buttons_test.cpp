#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/back_button.hpp"
#include "driftwood/controls/corner_button.hpp"
#include "driftwood/controls/cursor_button.hpp"
#include "driftwood/controls/dark_highlight_button.hpp"
#include "driftwood/controls/kestrel_push_button.hpp"
#include "driftwood/controls/styled_check_box.hpp"
#include "driftwood/controls/tool_button.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/controls/current_event.hpp"
#include "platform/controls/menu.hpp"
#include "platform/testing/window_testing.hpp"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QTest>

#include <gmock/gmock.h>

namespace driftwood {
namespace {

using platform::CellButton;
using platform::CellState;
using platform::StateValue;
using platform::testing::runFor;
using platform::testing::showActive;
using namespace std::chrono_literals;

/// Counts what is sent to it.
class Counter final : public platform::ActionTarget {
  public:
    explicit Counter(CellButton& button) {
        button.setAction([this](ActionTarget&, platform::Control&) { ++count; }, *this);
    }
    int count = 0;
};

const platform::ImageAsset& asset(const char* name) {
    const auto* const image = resourceBundle().assets().image(QString::fromLatin1(name));
    if (image == nullptr) {
        throw std::runtime_error(name);
    }
    return *image;
}

QColor color(const char* name) {
    return resourceBundle().assets().color(QString::fromLatin1(name));
}

template<class Paint>
QImage picture(QSize size, double scale, Paint paint) {
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(QColor("#2a2830"));
    QPainter painter(&image);
    paint(painter);
    return image;
}

QImage pictureOf(const platform::ButtonCell& cell, QSize size, double scale = 1,
                 bool isRightToLeft = false) {
    return picture(size, scale, [&](QPainter& painter) {
        cell.draw({{0, 0}, {double(size.width()), double(size.height())}},
                  {painter, Qt::white, isRightToLeft});
    });
}

QImage pictureOf(const char* image, QRectF place, QSize size, double scale = 1,
                 double opacity = 1) {
    return picture(size, scale, [&](QPainter& painter) {
        painter.setOpacity(opacity);
        platform::paintImage(painter, place, asset(image));
    });
}

int pixels(const QImage& image, const QColor& wanted) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            count += std::abs(c.red() - wanted.red()) + std::abs(c.green() - wanted.green()) +
                         std::abs(c.blue() - wanted.blue()) <
                     9;
        }
    }
    return count;
}

/// No channel differs by more than the rounding of one blend.
bool isAlike(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor p = a.pixelColor(x, y);
            const QColor q = b.pixelColor(x, y);
            if (std::abs(p.red() - q.red()) > 2 || std::abs(p.green() - q.green()) > 2 ||
                std::abs(p.blue() - q.blue()) > 2) {
                return false;
            }
        }
    }
    return true;
}

/// Gives a field of a shared style another value for the length of a test.
template<class StyleType, class Get, class Set, class Value>
class Restyle {
  public:
    Restyle(StyleType& style, Get get, Set set, Value value)
        : style_(style), set_(set), before_((style.*get)()) {
        (style.*set)(value);
    }
    ~Restyle() { (style_.*set_)(before_); }

  private:
    StyleType& style_;
    Set set_;
    Value before_;
};

auto withAlignment(core::EdgeInsets insets) {
    return Restyle(StyledButtonCell::style(), &ButtonCellStyle::alignmentRectInsets,
                   &ButtonCellStyle::setAlignmentRectInsets, insets);
}

// Cells: what they draw, and where.

TEST(ButtonCells, DrawTheBezelOfTheirStateExactly) {
    const CellState rest{.showsState = false};
    CellState on{.state = StateValue::on};
    CellState pressed{.showsState = false, .isHighlighted = true};
    CellState onUnshown{.state = StateValue::on, .showsState = false};
    CellState disabledPressed{.showsState = false, .isEnabled = false, .isHighlighted = true};
    StyledButtonCell push;
    BackButtonCell back;
    ToolButtonCell tool;
    StyledCheckBoxCell box;
    FavouriteCheckBoxCell star;
    KestrelPushButtonCell kestrel;
    const QSize size(101, 33);
    const QRectF all(QPointF(), size);
    const struct {
        platform::ButtonCell& cell;
        CellState state;
        const char* image;
        QRectF place;
        double opacity;
    } cases[] = {
        {push, rest, "dwk-button", all, 1},
        {push, on, "dwk-button-selected", all, 1},
        {push, onUnshown, "dwk-button", all, 1},
        {push, pressed, "dwk-button-down", all, 1},
        {push, disabledPressed, "dwk-button", all, 0.5},
        {back, pressed, "organiser-navbar-back-down", all, 1},
        {tool, on, "corner-tool-background-selected", all, 1},
        {box, rest, "dwk-checkbox", {-2, 8, 16, 16}, 1},
        {box, {.state = StateValue::mixed}, "dwk-checkbox-mixed", {-2, 8, 16, 16}, 1},
        {box,
         {.state = StateValue::on, .isHighlighted = true},
         "dwk-checkbox-on-down",
         {-2, 8, 16, 16},
         1},
        {box,
         {.state = StateValue::on, .isEnabled = false},
         "dwk-checkbox-on",
         {-2, 8, 16, 16},
         0.5},
        {star, on, "organiser-icon-star", {-2, 8, 16, 16}, 1},
        {kestrel, rest, "dwk-button", {4, 5, 93, 25}, 1},
        {kestrel, disabledPressed, "dwk-button", {4, 5, 93, 25}, 0.5},
    };
    for (const auto& [cell, state, image, place, opacity] : cases) {
        cell.setCellState(state);
        for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            const QImage drawn = pictureOf(cell, size, scale);
            const QImage expected = pictureOf(image, place, size, scale, opacity);
            EXPECT_TRUE(opacity == 1 ? drawn == expected : isAlike(drawn, expected))
                << image << " at " << scale;
        }
    }
    push.setBordered(false);
    EXPECT_EQ(pixels(pictureOf(push, size), QColor("#2a2830")), size.width() * size.height());
}

TEST(ButtonCells, TitlesHaveTheColourOfTheStateAndStayInside) {
    StyledButtonCell cell(QStringLiteral("HHHH"));
    cell.setBordered(false);
    const struct {
        CellState state;
        bool isSelected;
        const char* color;
    } cases[] = {
        {{.showsState = false}, false, "Grey 85%"},
        {{.showsState = false}, true, "Grey 100%"},
        {{.showsState = false, .isHighlighted = true}, false, "Grey 50%"},
        {{.state = StateValue::on}, false, "Grey 50%"},
        {{.showsState = false, .isEnabled = false, .isHighlighted = true}, true, "Grey 40%"},
    };
    for (const auto& [state, isSelected, name] : cases) {
        cell.setCellState(state);
        cell.setSelected(isSelected);
        EXPECT_GT(pixels(pictureOf(cell, {80, 24}, 3), color(name)), 40) << name;
    }
    // Too long a title ends before the edge, and never paints outside of its place.
    cell.setTitle(QStringLiteral("A title that is far too long for its button"));
    const core::Rect place = cell.titleRect({{0, 0}, {80, 24}}, false);
    const QImage image = pictureOf(cell, {80, 24}, 1);
    const QColor ground("#2a2830");
    EXPECT_EQ(pixels(image.copy(int(place.maxX()), 0, 80, 24), ground) % 24, 0);
    EXPECT_LT(pixels(image, ground), 80 * 24 - 60);
}

TEST(ButtonCells, RectanglesFollowTheInsetsOfTheStyle) {
    StyledButtonCell cell;
    cell.setImage(&asset("organiser-icon-star"));
    cell.setImagePosition(platform::ImagePosition::imageOnly);
    const core::Rect bounds{{0, 0}, {100, 20}};
    const auto image = Restyle(StyledButtonCell::style(), &ButtonCellStyle::imageEdgeInsets,
                               &ButtonCellStyle::setImageEdgeInsets, core::EdgeInsets{1, 2, 3, 4});
    EXPECT_EQ(cell.imageRect(bounds, false), (core::Rect{{2, 3}, {94, 16}}));
    // With a title beside it, it returns to the middle.
    cell.setTitle(QStringLiteral("x"));
    cell.setImagePosition(platform::ImagePosition::imageLeading);
    const core::Size size{asset("organiser-icon-star").size().width(),
                          asset("organiser-icon-star").size().height()};
    EXPECT_EQ(cell.imageRect(bounds, false),
              (core::Rect{{2 + 8, std::round(10 - std::min(16.0, size.height) / 2)},
                          {size.width, std::min(16.0, size.height)}}));

    const auto edges = Restyle(StyledButtonCell::style(), &ButtonCellStyle::edgeInsets,
                               &ButtonCellStyle::setEdgeInsets, core::EdgeInsets{3, 0, 2, 12});
    EXPECT_EQ(cell.drawingRect(bounds), (core::Rect{{0, 2}, {88, 15}}));
    EXPECT_EQ(cell.focusRingMaskBounds(bounds), bounds);
    cell.setBordered(false);
    EXPECT_EQ(cell.drawingRect(bounds), bounds);
    EXPECT_EQ(cell.focusRingMaskBounds(bounds), bounds);

    const auto title = Restyle(StyledButtonCell::style(), &ButtonCellStyle::titleEdgeInsets,
                               &ButtonCellStyle::setTitleEdgeInsets, core::EdgeInsets{0, 0, 6, 0});
    cell.setImage(nullptr);
    const core::Rect centred = cell.titleRect(bounds, false);
    cell.setVerticallyCenterTitle(false);
    EXPECT_NEAR(cell.titleRect(bounds, false).origin.y, 6 + (14 - centred.size.height) / 2, 1);
}

TEST(ButtonCells, CheckBoxesMirrorForRightToLeft) {
    StyledCheckBoxCell cell(QStringLiteral("Box"));
    const core::Rect bounds{{0, 0}, {100, 21}};
    EXPECT_EQ(cell.imageRect(bounds, false), (core::Rect{{-2, 2}, {16, 16}})); // 2.5, truncated
    EXPECT_EQ(cell.imageRect(bounds, true), (core::Rect{{86, 2}, {16, 16}}));
    const core::Rect left = cell.titleRect(bounds, false);
    const core::Rect right = cell.titleRect(bounds, true);
    EXPECT_EQ(left.origin.x, 18);
    EXPECT_EQ(right.maxX(), 82);
    EXPECT_EQ(left.size, right.size);
    EXPECT_LE(left.size.width, 60);
}

TEST(ButtonCells, ImagesFadeAndRefuseUnknownScalings) {
    DarkHighlightButtonCell dark;
    const QSize size(16, 16);
    dark.setImage(&asset("organiser-icon-star"));
    const QRectF all(QPointF(), size);
    for (const bool isEnabled : {true, false}) {
        for (const bool isHighlighted : {true, false}) {
            dark.setCellState({.isEnabled = isEnabled, .isHighlighted = isHighlighted});
            EXPECT_TRUE(
                isAlike(pictureOf(dark, size), pictureOf("organiser-icon-star", all, size, 1,
                                                         isEnabled && !isHighlighted ? 1 : 0.5)));
        }
    }
    StyledButtonCell styled;
    KestrelPushButtonCell kestrel;
    for (platform::ButtonCell* const cell :
         std::initializer_list<platform::ButtonCell*>{&styled, &kestrel}) {
        cell->setImage(&asset("organiser-icon-star"));
        cell->setImageScaling(static_cast<platform::ImageScaling>(4));
        EXPECT_DEATH(pictureOf(*cell, size), "Fatal error: Unhandled image scaling value\n");
    }
}

// Sizes.

TEST(Buttons, AreAsTallAsTheirBezelLessTheAlignmentInsets) {
    StyledButton button(QStringLiteral("A"));
    EXPECT_EQ(button.intrinsicContentSize().height, 24);
    {
        const auto alignment = withAlignment({3, 2, 3, 2});
        EXPECT_EQ(button.intrinsicContentSize(), (core::Size{24 - 4, 18})); // the bezel's width
        EXPECT_EQ(button.sizeHint(), QSize(24, 24)); // the widget has the insets around
        ToolButton tool(QStringLiteral("A"));        // takes the insets of the push buttons, too
        EXPECT_EQ(tool.intrinsicContentSize().height, 32 - 6);
        button.setFixedWidth(100);
        EXPECT_EQ(button.intrinsicContentSize(), (core::Size{96, 18}));
    }
    BackButton back(QStringLiteral("A"));
    EXPECT_EQ(back.intrinsicContentSize().height, 32 - 10);
    StyledButton wide(QStringLiteral("A title wider than the bezel's image"));
    EXPECT_GT(wide.intrinsicContentSize().width, 150);
    wide.setBordered(false);
    EXPECT_LT(wide.intrinsicContentSize().height, 24);
    KestrelPushButton kestrel(QStringLiteral("A"));
    EXPECT_EQ(kestrel.intrinsicContentSize().height, 24); // the bezel
    EXPECT_EQ(kestrel.sizeHint().height(), 32);           // with the room around it
    kestrel.setFixedWidth(10);
    EXPECT_EQ(kestrel.intrinsicContentSize().width, 10);
}

// The mouse and the keyboard.

TEST(Buttons, AClickIsAPressThatEndsInside) {
    StyledButton button(QStringLiteral("A"));
    button.resize(60, 24);
    showActive(button);
    Counter clicks(button);
    const QPoint in(30, 12);
    const QPoint out(30, 60);
    QTest::mousePress(&button, Qt::LeftButton, {}, in);
    EXPECT_TRUE(button.isHighlighted());
    QTest::mouseMove(&button, out);
    EXPECT_FALSE(button.isHighlighted());
    QTest::mouseMove(&button, in);
    EXPECT_TRUE(button.isHighlighted());
    EXPECT_EQ(clicks.count, 0);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, in);
    EXPECT_EQ(clicks.count, 1);
    EXPECT_FALSE(button.isHighlighted());
    EXPECT_EQ(button.state(), StateValue::off); // it does not show its state

    QTest::mousePress(&button, Qt::LeftButton, {}, in);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, out);
    QTest::mouseClick(&button, Qt::RightButton, {}, in);
    QTest::mousePress(&button, Qt::LeftButton, {}, in);
    button.setEnabled(false); // takes the press away
    EXPECT_EQ(button.styledCell().controlState(),
              StyledControlState::default_ | StyledControlState::disabled);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, in);
    QTest::mouseClick(&button, Qt::LeftButton, {}, in);
    button.performClick();
    EXPECT_EQ(clicks.count, 1);
    button.setEnabled(true);
    QTest::mouseClick(&button, Qt::LeftButton, {}, in);
    QTest::mouseDClick(&button, Qt::LeftButton, {}, in); // the press alone
    QTest::mouseRelease(&button, Qt::LeftButton, {}, in);
    EXPECT_EQ(clicks.count, 3);
}

TEST(Buttons, AreUsedFromTheKeyboard) {
    QWidget window;
    StyledButton first(QStringLiteral("A"), &window);
    StyledCheckBox second(QStringLiteral("B"), &window);
    first.setGeometry(0, 0, 60, 24);
    second.setGeometry(0, 30, 60, 24);
    showActive(window);
    Counter clicks(first);
    Counter checks(second);
    QTest::mouseClick(&second, Qt::LeftButton);
    EXPECT_FALSE(second.hasFocus()); // a click leaves the keyboard where it is
    first.setFocus(Qt::TabFocusReason);
    first.performClick();
    EXPECT_TRUE(first.isHighlighted()); // for a moment
    EXPECT_EQ(clicks.count, 1);
    EXPECT_TRUE(platform::testing::runUntil([&] { return !first.isHighlighted(); }));
    QTest::keyPress(&first, Qt::Key_Space);
    QTest::keyClick(&first, Qt::Key_Escape);
    QTest::keyRelease(&first, Qt::Key_Space);
    EXPECT_EQ(clicks.count, 1);
    QTest::keyClick(&first, Qt::Key_Return);
    EXPECT_EQ(clicks.count, 2);
    QTest::keyPress(&first, Qt::Key_Space);
    QTest::keyClick(&window, Qt::Key_Tab); // takes the keyboard away
    EXPECT_FALSE(first.isHighlighted());
    EXPECT_TRUE(second.hasFocus());
    QTest::keyClick(&second, Qt::Key_Space);
    EXPECT_EQ(checks.count, 2);
    EXPECT_EQ(second.state(), StateValue::off);
}

TEST(Buttons, ShowTheirFocusRingInAKeyWindowOnly) {
    QWidget window;
    StyledButton button(QString(), &window);
    button.setGeometry(10, 10, 60, 24);
    button.setBordered(false);
    window.resize(80, 44);
    showActive(window);
    button.setFocus(Qt::TabFocusReason);
    const QColor ring = color("Highlight/System");
    const QImage focused = button.grab().toImage();
    const qreal scale = focused.devicePixelRatio();
    const auto at = [&](double x, double y) {
        return focused.pixelColor(int(x * scale), int(y * scale));
    };
    EXPECT_EQ(at(30, 0.5).rgb(), ring.rgb()); // two points wide, around a line one point inside
    EXPECT_EQ(at(30, 1.5).rgb(), ring.rgb());
    EXPECT_NE(at(30, 2.5).rgb(), ring.rgb());
    EXPECT_NE(at(30, 12).rgb(), window.palette().window().color().rgb()); // lightly filled
    EXPECT_NE(at(0, 0).rgb(), ring.rgb());                                // round corners
    QWidget other;
    showActive(other);
    EXPECT_EQ(pixels(button.grab().toImage(), ring), 0);
}

TEST(Buttons, AnActionMayDestroyItsButton) {
    auto button = std::make_unique<StyledCheckBox>(QStringLiteral("A"));
    button->resize(60, 24);
    Counter target(*button);
    button->setAction([&](platform::ActionTarget&, platform::Control&) { button.reset(); }, target);
    QTest::mousePress(button.get(), Qt::LeftButton);
    QPointF in(30, 12);
    QMouseEvent up(QEvent::MouseButtonRelease, in, in, Qt::LeftButton, {}, {});
    QCoreApplication::sendEvent(button.get(), &up);
    EXPECT_EQ(button, nullptr);
}

TEST(CheckBoxes, GoFromMixedAndOffToOn) {
    StyledCheckBox box(QStringLiteral("A"));
    box.resize(60, 24);
    box.cell().setAllowsMixedState(true);
    box.setState(StateValue::mixed);
    for (const StateValue expected : {StateValue::on, StateValue::off, StateValue::on}) {
        QTest::mouseClick(&box, Qt::LeftButton);
        EXPECT_EQ(box.state(), expected);
    }
    FavouriteCheckBox star({});
    star.resize(16, 16);
    QTest::mousePress(&star, Qt::LeftButton);
    EXPECT_EQ(star.alphaValue(), 0.5);
    QTest::mouseMove(&star, {100, 100}); // still pressed
    EXPECT_EQ(star.alphaValue(), 0.5);
    QTest::mouseRelease(&star, Qt::LeftButton, {}, {100, 100});
    EXPECT_EQ(star.alphaValue(), 1);
}

TEST(BackButtons, FadeOutOfReach) {
    QWidget window;
    BackButton button(QStringLiteral("A"), &window);
    showActive(window);
    button.setAlphaValue(0.4);
    EXPECT_TRUE(button.isVisible());
    button.setAlphaValue(0);
    EXPECT_FALSE(button.isVisible());
    EXPECT_EQ(window.childAt(button.geometry().center()), nullptr);
    button.setAlphaValue(0.1);
    EXPECT_TRUE(button.isVisible());

    auto* const row = new QHBoxLayout(&window);
    auto* const neighbour = new StyledButton(QStringLiteral("B"));
    row->addWidget(&button);
    row->addWidget(neighbour);
    runFor(20);
    const QPoint place = neighbour->pos();
    button.setAlphaValue(0);
    runFor(20);
    EXPECT_EQ(neighbour->pos(), place); // its place stays
}

TEST(BackButtons, PointBackWhereOneReadsFromTheRight) {
    BackButtonCell cell;
    StyledButtonCell plain(QString{});
    plain.setImage(&asset("organiser-icon-disclose"));
    plain.setBordered(false);
    plain.setImagePosition(platform::ImagePosition::imageOnly);
    const QSize size(60, 32);
    for (const double scale : {1.0, 1.5, 2.0}) {
        EXPECT_EQ(pictureOf(cell, size, scale, true),
                  pictureOf(cell, size, scale).mirrored(true, false))
            << scale;
        plain.setImageFollowsReading(false);
        const QImage before = pictureOf(plain, {16, 16}, scale, true);
        EXPECT_EQ(before, pictureOf(plain, {16, 16}, scale));
        plain.setImageFollowsReading(true);
        EXPECT_EQ(pictureOf(plain, {16, 16}, scale, true), before.mirrored(true, false)) << scale;
    }
}

/// A window that takes actions without a target.
class Desk final : public QWidget, public platform::ActionTarget {
  public:
    void note(platform::Control&) { ++notes; }
    int notes = 0;
};

TEST(ToolButtons, SendAnActionWithoutATargetThroughTheApplication) {
    Desk desk;
    QWidget panel(&desk);
    ToolButton button({}, &panel);
    button.setSecondaryAction(&Desk::note);
    EXPECT_TRUE(button.hasSecondaryClick());
    EXPECT_EQ(button.secondaryTarget(), nullptr);
    QTest::mouseClick(&button, Qt::RightButton);
    EXPECT_EQ(desk.notes, 1);
    auto other = std::make_unique<Desk>();
    button.setSecondaryAction(&Desk::note, *other);
    QTest::mouseClick(&button, Qt::RightButton);
    EXPECT_EQ(other->notes, 1);
    EXPECT_EQ(desk.notes, 1);
    other.reset();
    QTest::mouseClick(&button, Qt::RightButton);
    EXPECT_EQ(desk.notes, 2);
    panel.setParent(nullptr);
    QTest::mouseClick(&button, Qt::RightButton); // nobody is there
    EXPECT_EQ(desk.notes, 2);
}

TEST(Buttons, AreSetUpOnceAndComplete) {
    class Wide : public ToolButton {
      public:
        using ToolButton::ToolButton;
        int setUps = 0;

      protected:
        void setupButton() override {
            ++setUps;
            setFixedWidth(200);
        }
    };
    Wide button(QStringLiteral("A"));
    EXPECT_EQ(button.setUps, 0);
    EXPECT_EQ(button.sizeHint().width(), 200);
    showActive(button);
    EXPECT_EQ(button.setUps, 1);
}

TEST(ToolButtons, SendOneOfTheirActions) {
    ToolButton button(QStringLiteral("A"), nullptr, 40ms);
    button.resize(32, 32);
    showActive(button);
    Counter primary(button);
    int secondary = 0;
    QTest::mouseClick(&button, Qt::RightButton); // nothing to do yet
    QTest::mouseClick(&button, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(primary.count, 0); // it is no click, either
    button.setSecondaryAction([&](platform::ActionTarget&, platform::Control&) { ++secondary; },
                              primary);
    auto expectSent = [&, p = 0, s = 0](int wantedPrimary, int wantedSecondary) mutable {
        EXPECT_EQ(primary.count - std::exchange(p, primary.count), wantedPrimary);
        EXPECT_EQ(secondary - std::exchange(s, secondary), wantedSecondary);
        EXPECT_FALSE(button.isHighlighted());
    };
    QTest::mouseClick(&button, Qt::LeftButton);
    runFor(80);
    expectSent(1, 0);
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_TRUE(button.isHighlighted());
    runFor(80);
    expectSent(0, 1); // while it is still held
    QTest::mouseRelease(&button, Qt::LeftButton);
    expectSent(0, 0);
    QTest::mouseClick(&button, Qt::RightButton);
    expectSent(0, 1);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::ControlModifier);
    expectSent(0, 1);
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&button, &menuKey);
    expectSent(0, 1);
    // The second click of a series is not held.
    QMouseEvent again(QEvent::MouseButtonDblClick, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                      Qt::LeftButton, {});
    QCoreApplication::sendEvent(&button, &again);
    runFor(80);
    QTest::mouseRelease(&button, Qt::LeftButton);
    expectSent(1, 0);
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::RightButton);
    expectSent(0, 0);
}

TEST(ToolButtons, MarkWhatLiesBehind) {
    ToolButtonCell cell;
    const QSize size(32, 32);
    const QImage plain = pictureOf(cell, size);
    cell.setShowMoreIcon(true);
    const QImage expected = picture(size, 1, [&](QPainter& painter) {
        platform::paintImage(painter, {0, 0, 32, 32}, asset("corner-tool-background"));
        platform::paintImage(painter, {0, 0, 32, 32}, asset("corner-tool-more"));
    });
    EXPECT_EQ(pictureOf(cell, size), expected);
    EXPECT_NE(plain, expected);
}

TEST(CursorButtons, HaveAPointerOfTheirOwn) {
    CursorButton button({});
    button.resize(20, 20);
    showActive(button);
    const auto send = [&](auto event) { QCoreApplication::sendEvent(&button, &event); };
    send(QEnterEvent({5, 5}, {5, 5}, {5, 5}));
    EXPECT_EQ(button.cursor().hotSpot(), QPoint(3, 4));
    button.setAttribute(Qt::WA_UnderMouse); // as the toolkit does
    button.setCursorHotSpot({1, 2});
    EXPECT_EQ(button.cursor().hotSpot(), QPoint(1, 2));
    // What an action puts on top of it stays there when the pointer leaves.
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    send(QEvent(QEvent::Leave));
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QGuiApplication::restoreOverrideCursor();

    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_EQ(button.alphaValue(), 0.5);
    QTest::mouseMove(&button, {100, 100});
    EXPECT_EQ(button.alphaValue(), 1);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, {100, 100});
}

TEST(CursorButtons, TellTheirActionTheEventThatSentIt) {
    CursorButton button({});
    button.resize(20, 20);
    std::vector<platform::InputEvent> events;
    button.setAction(
        [&](platform::ActionTarget&, platform::Control&) {
            events.push_back(platform::currentEvent() != nullptr ? *platform::currentEvent()
                                                                 : platform::InputEvent());
        },
        button);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::AltModifier);
    QTest::keyClick(&button, Qt::Key_Space, Qt::ShiftModifier);
    button.performClick();
    using platform::EventKind;
    EXPECT_EQ(events, (std::vector<platform::InputEvent>{{EventKind::leftMouseUp, {.option = true}},
                                                         {EventKind::keyUp, {.shift = true}},
                                                         {}}));
    EXPECT_EQ(platform::currentEvent(), nullptr);
}

// Restyling.

template<class Base>
class Counting final : public Base {
  public:
    using Base::Base;
    int paints = 0;

  protected:
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        Base::paintEvent(event);
    }
};

TEST(Restyling, RepaintsEveryInstanceOfTheClassOnce) {
    for (const int count : {3, 200}) {
        QWidget window;
        window.resize(800, 600);
        std::vector<std::unique_ptr<Counting<StyledButton>>> buttons;
        for (int i = 0; i < count; ++i) {
            auto& button = *buttons.emplace_back(
                std::make_unique<Counting<StyledButton>>(QStringLiteral("A"), &window));
            button.setGeometry(i % 20 * 40, i / 20 * 24, 40, 24);
        }
        Counting<KestrelPushButton> other(QStringLiteral("A"), &window);
        other.setGeometry(700, 550, 60, 32);
        showActive(window);
        runFor(20);
        buttons.front()->hide(); // what is not seen is not painted, and what is gone not told
        buttons.erase(buttons.begin() + 1);
        const auto reset = [&] {
            runFor(20);
            for (auto& button : buttons) {
                button->paints = 0;
            }
            other.paints = 0;
        };
        const auto expectPaints = [&](int paints) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
            for (std::size_t i = 0; i < buttons.size(); ++i) {
                EXPECT_EQ(buttons[i]->paints, i == 0 ? 0 : paints) << count << ' ' << i;
            }
            EXPECT_EQ(other.paints, 0);
            reset();
        };
        reset();
        auto& style = StyledButtonCell::style();
        const Color before = style.textColor();
        style.setTextColor(makeColor(Qt::red));
        expectPaints(1);
        style.setTextColor(makeColor(Qt::red)); // nothing new
        expectPaints(0);
        {
            const StyleEdit edit(style);
            style.setTextColor(before);
            style.setTitleEdgeInsets({1, 1, 1, 1});
            style.setTitleEdgeInsets({});
        }
        expectPaints(1);
    }
}

// Screen readers.

TEST(Accessibility, TellsRoleNameStatesAndActions) {
    StyledCheckBox box(QStringLiteral("Loop"));
    ToolButton tool({});
    tool.setToolTip(QStringLiteral("Pencil"));
    CornerButton corner({});
    corner.setAccessibleName(QStringLiteral("More"));
    corner.setAlternateMenu(std::make_unique<platform::Menu>());
    const auto interface = [](QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget);
    };
    EXPECT_EQ(interface(box)->role(), QAccessible::CheckBox);
    EXPECT_EQ(interface(box)->text(QAccessible::Name), QStringLiteral("Loop"));
    EXPECT_EQ(interface(tool)->text(QAccessible::Name), QStringLiteral("Pencil"));
    EXPECT_EQ(interface(corner)->text(QAccessible::Name), QStringLiteral("More"));
    EXPECT_EQ(interface(corner)->role(), QAccessible::ButtonMenu);
    EXPECT_TRUE(interface(corner)->state().hasPopup);
    const QAccessibleInterface* const menu = interface(corner)->child(0);
    ASSERT_NE(menu, nullptr) << "its menu is its child";
    EXPECT_EQ(menu->role(), QAccessible::PopupMenu);
    EXPECT_EQ(interface(corner)->childCount(), 1);
    EXPECT_EQ(interface(corner)->indexOfChild(menu), 0);
    for (const StateValue value : {StateValue::off, StateValue::on, StateValue::mixed}) {
        box.setState(value);
        const QAccessible::State state = interface(box)->state();
        EXPECT_TRUE(state.checkable);
        EXPECT_EQ(state.checked, value == StateValue::on);
        EXPECT_EQ(state.checkStateMixed, value == StateValue::mixed);
    }
    // A button that shows its state is a check box to them, and selected is a state.
    EXPECT_EQ(interface(tool)->role(), QAccessible::Button);
    tool.setShowsState(true);
    tool.setState(StateValue::on);
    tool.setSelected(true);
    EXPECT_EQ(interface(tool)->role(), QAccessible::CheckBox);
    EXPECT_TRUE(interface(tool)->state().checkable && interface(tool)->state().checked);
    EXPECT_TRUE(interface(tool)->state().selected);
    EXPECT_FALSE(interface(box)->state().selected);
    box.setHighlighted(true);
    EXPECT_TRUE(interface(box)->state().pressed);
    Counter clicks(box);
    auto* const actions = interface(box)->actionInterface();
    EXPECT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(clicks.count, 1);
    EXPECT_EQ(box.state(), StateValue::on);
    box.setEnabled(false);
    EXPECT_TRUE(interface(box)->state().disabled);
    EXPECT_FALSE(interface(box)->state().pressed);
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(clicks.count, 1);
    EXPECT_TRUE(interface(corner)->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::showMenuAction()));
}

} // namespace
} // namespace driftwood
