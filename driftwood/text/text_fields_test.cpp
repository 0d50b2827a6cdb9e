#include "driftwood/bridges/bundle_asset_source.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/style/styles.hpp"
#include "driftwood/text/declarative_text_fields.hpp"
#include "driftwood/text/validating_properties_field.hpp"

#include "platform/testing/window_testing.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QScrollArea>
#include <QTest>

#include <gtest/gtest.h>

#include <limits>

namespace driftwood {
namespace {

using platform::testing::showActive;

/// Hears what a field's owner is told.
class Owner final : public platform::TextFieldDelegate {
  public:
    ~Owner() override { retire(); }
    QStringList heard;
    std::function<void(platform::TextField&)> onChange;

  private:
    void controlTextDidBeginEditing(platform::TextField& /*field*/) override { heard += "begin"; }
    void controlTextDidChange(platform::TextField& field) override {
        heard += field.stringValue();
        if (onChange) {
            onChange(field);
        }
    }
    void controlTextDidEndEditing(platform::TextField& /*field*/) override { heard += "end"; }
};

class TextFields : public ::testing::Test {
  protected:
    TextFields() {
        window.resize(300, 200);
        other.setGeometry(10, 100, 120, 24);
    }

    template<class Field>
    Field& add(Field* field) {
        field->setParent(&window);
        field->setGeometry(10, 10, 120, 24);
        field->show();
        showActive(window);
        return *field;
    }
    template<class Field>
    Field& focused(Field* field) {
        add(field).setFocus(Qt::TabFocusReason);
        return *field;
    }
    static void compose(QWidget& field, const QString& preedit, const QString& commit = {}) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QCoreApplication::sendEvent(&field, &event);
    }

    QWidget window;
    StyledTextField other{&window};
};

TEST_F(TextFields, CountTheirInsetsAndBaselinesAsStated) {
    StyledTextField field(nullptr, 4);
    EXPECT_EQ(field.alignmentRectInsets(), (core::EdgeInsets{4, 2, 4, 2}));
    field.setBezeled(false);
    EXPECT_EQ(field.alignmentRectInsets(), core::EdgeInsets());
    field.setBordered(true);
    EXPECT_EQ(field.alignmentRectInsets(), (core::EdgeInsets{4, 2, 4, 2}));
    EXPECT_GE(field.intrinsicContentSize().height, 24) << "the bezel's image";
    const core::Rect bounds{{0, 1}, {100, 24}};
    const core::Rect title{{6, 6}, {88, 13}};
    const core::EdgeInsets insets{3, 2, 5, 2};
    EXPECT_EQ(firstBaselineOffset(bounds, title, insets, ViewOrientation::flipped), 17);
    EXPECT_EQ(firstBaselineOffset(bounds, title, insets, ViewOrientation::upright), 22);
    EXPECT_EQ(lastBaselineOffset(bounds, title, insets, ViewOrientation::flipped), 11);
    EXPECT_EQ(lastBaselineOffset(bounds, title, insets, ViewOrientation::upright), 2);
    // The padding moves by its lower inset; while an editor is laid over it, it does not count.
    StyledTextFieldCell cell;
    EXPECT_EQ(cell.drawingRect(bounds), bounds);
    cell.setBezeled(true);
    cell.setVerticallyCenter(false);
    StyledTextFieldCell::style().setPadding({1, 6, 5, 6});
    EXPECT_EQ(cell.drawingRect(bounds), (core::Rect{{6, 6}, {88, 18}}));
    StyledTextFieldCell::style().setPadding({2, 6, 2, 6});
    QWidget view;
    QLineEdit editor(&view);
    cell.edit({{0, 0}, {100, 24}}, editor);
    EXPECT_EQ(editor.geometry().width(), 100);
    EXPECT_FALSE(cell.isBeingEdited());
}

TEST_F(TextFields, KeepCellsOfTheirOwnClass) {
    StyledTextLabel label(QStringLiteral("Gain"));
    EXPECT_EQ(&label.styledCell().controlStyle(), &StyledTextLabelCell::style());
    label.setCell(std::make_unique<StyledTextLabelCell>(QStringLiteral("Pan")));
    EXPECT_EQ(label.stringValue(), QStringLiteral("Pan"));
    EXPECT_DEATH(label.setCell(std::make_unique<StyledTextFieldCell>()),
                 "class that the text field");
    EXPECT_DEATH(static_cast<void>(lineBreakMode(static_cast<TruncationMode>(7))),
                 "Unknown truncation mode");
}

TEST_F(TextFields, PaintTheirTextInTheSamePlaceEditedOrNot) {
    struct Case {
        const char* text;
        platform::LineAlignment alignment;
        Qt::LayoutDirection direction;
    };
    using platform::LineAlignment;
    for (const Case& c :
         std::initializer_list<Case>{{"Hamburg", LineAlignment::natural, Qt::LeftToRight},
                                     {"Hamburg", LineAlignment::centre, Qt::LeftToRight},
                                     {"Hamburg", LineAlignment::natural, Qt::RightToLeft},
                                     {"שלום", LineAlignment::natural, Qt::LeftToRight}}) {
        StyledTextField& field = add(new StyledTextField);
        other.setFocus();
        field.setLayoutDirection(c.direction);
        field.setAlignment(c.alignment);
        field.setStringValue(QString::fromUtf8(c.text));
        const auto columnsAndRows = [&] {
            // Where there is ink, in device pixels.
            const QImage picture = field.grab().toImage();
            const QColor ground = picture.pixelColor(picture.width() / 4, picture.height() / 2);
            QRect ink;
            const int edge = picture.height() / 5; // not the bezel, which is lit by the focus
            for (int y = edge; y < picture.height() - edge; ++y) {
                for (int x = edge; x < picture.width() - edge; ++x) {
                    if (std::abs(picture.pixelColor(x, y).lightness() - ground.lightness()) > 90) {
                        ink |= QRect(x, y, 1, 1);
                    }
                }
            }
            return ink;
        };
        const QRect shown = columnsAndRows();
        ASSERT_FALSE(shown.isEmpty()) << c.text;
        field.setFocus(Qt::OtherFocusReason);
        ASSERT_NE(field.currentEditor(), nullptr);
        field.currentEditor()->setCursorPosition(3);
        field.currentEditor()->setReadOnly(true); // no caret
        const QRect edited = columnsAndRows();
        EXPECT_LE((shown.topLeft() - edited.topLeft()).manhattanLength(), 1) << c.text;
        EXPECT_LE((shown.bottomRight() - edited.bottomRight()).manhattanLength(), 1) << c.text;
        delete &field;
    }
}

TEST_F(TextFields, TakeTheKeyboardTypingUndoTheClipboardAndDrops) {
    Owner owner;
    StyledTextField& field = add(new StyledTextField);
    int actions = 0;
    field.setAction([&](platform::ActionTarget&, platform::Control&) { ++actions; }, field);
    field.setDelegate(&owner);
    EXPECT_EQ(field.currentEditor(), nullptr);
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(20, 12));
    EXPECT_TRUE(field.hasFocus());
    QTest::keyClicks(&field, QStringLiteral("ab"));
    EXPECT_EQ(owner.heard.join(' '), QStringLiteral("begin a ab"));
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.stringValue(), QString());
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(field.stringValue(), QStringLiteral("ab"));
    // A paste that is far too large, with characters that are no signs.
    QApplication::clipboard()->setText(QStringLiteral("x\n\x01e\u0301😀") +
                                       QString(10'000'000, QLatin1Char('y')));
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.stringValue().size(), 32767);
    EXPECT_FALSE(field.grab().isNull());
    field.setStringValue(QString(40'000, QLatin1Char('z'))); // by a program it stays whole
    EXPECT_EQ(field.currentEditor()->text().size(), 40'000);
    field.currentEditor()->selectAll();
    QTest::keyClick(&field, Qt::Key_Backspace);
    QTest::keyClicks(&field, QStringLiteral("c"));
    EXPECT_EQ(actions, 0);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(actions, 1);
    EXPECT_EQ(owner.heard.last(), QStringLiteral("end"));
    QTest::keyClick(&field, Qt::Key_Tab);
    EXPECT_TRUE(other.hasFocus());
    EXPECT_EQ(actions, 1) << "nothing was changed since";
    QTest::keyClick(&other, Qt::Key_Backtab);
    EXPECT_TRUE(field.hasFocus());
    EXPECT_EQ(field.currentEditor()->selectedText(), QStringLiteral("c"));
    // A text is dropped into a field that nobody has typed in.
    QMimeData dropped;
    dropped.setText(QStringLiteral("dropped"));
    other.setDelegate(&owner);
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&other, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&other, &drop);
    EXPECT_EQ(other.stringValue(), QStringLiteral("dropped"));
    EXPECT_TRUE(
        platform::testing::runUntil([&] { return owner.heard.endsWith(QStringLiteral("end")); }));
}

TEST_F(TextFields, KeepCaretSelectionAndCompositionWhateverHappensAroundTheUser) {
    StyledTextField& field = focused(new StyledTextField);
    QTest::keyClicks(&field, QStringLiteral("0.5000"));
    QLineEdit& editor = *field.currentEditor();
    editor.setSelection(4, -3);
    const auto expectSelection = [&](const char* when) {
        EXPECT_EQ(editor.cursorPosition(), 1) << when;
        EXPECT_EQ(editor.selectionStart(), 1) << when;
        EXPECT_EQ(editor.selectionLength(), 3) << when;
    };
    const Font font = StyledTextFieldCell::style().font();
    StyledTextFieldCell::style().setFont(makeFont(QFont(QStringLiteral("Dosis"), 20)));
    EXPECT_EQ(editor.font().pointSize(), 20) << "the editor follows the style";
    StyledTextFieldCell::style().setTextColor(makeColor(Qt::green));
    EXPECT_EQ(editor.palette().color(QPalette::Text), QColor(Qt::green));
    expectSelection("the style was changed");
    StyledTextFieldCell::style().setFont(font);
    StyledTextFieldCell::style().setTextColor(Styles::TextInput::textColor());
    field.setStringValue(QStringLiteral("0.7512"));
    EXPECT_EQ(editor.text(), QStringLiteral("0.7512"));
    expectSelection("a program set another value");
    // Composition.
    editor.setCursorPosition(6);
    Owner owner;
    field.setDelegate(&owner);
    compose(field, QStringLiteral("にほ"));
    EXPECT_TRUE(field.hasMarkedText());
    field.setStringValue(QStringLiteral("9"));
    EXPECT_EQ(field.stringValue(), QStringLiteral("0.7512")) << "it waits";
    EXPECT_TRUE(owner.heard.isEmpty());
    compose(field, {}, QStringLiteral("日本"));
    EXPECT_EQ(owner.heard.last(), QStringLiteral("0.7512日本"));
    EXPECT_EQ(field.stringValue(), QStringLiteral("9"));
}

TEST_F(TextFields, PublishWhenTheKeyboardComesAndGoesButNotWhenItIsBorrowed) {
    QStringList published;
    bool isFinished = false;
    StyledTextField& field = add(new StyledTextField);
    core::Subscription subscription = field.firstResponderPublisher().subscribe(
        [&](const FirstResponderStatus& status) {
            EXPECT_EQ(status.first, &field);
            published += status.second ? "on" : "off";
        },
        [&] { isFinished = true; });
    EXPECT_FALSE(field.publishedFirstResponderStatus());
    field.setFocus();
    QWidget second;
    showActive(second);
    EXPECT_FALSE(field.hasFocus());
    EXPECT_EQ(published.join(' '), QStringLiteral("on")) << "the window keeps it for the field";
    other.setFocus(); // while the window is not key
    QApplication::setActiveWindow(&window);
    EXPECT_EQ(published.join(' '), QStringLiteral("on off"));
    field.setFocus();
    field.setParent(nullptr);
    EXPECT_EQ(published.join(' '), QStringLiteral("on off on off"));
    delete &field;
    EXPECT_TRUE(isFinished);
}

TEST_F(TextFields, ShowMessagesWhileFocusedAndNeverJudgeAComposition) {
    ValidatingTextField& field = add(new ValidatingTextField);
    field.setMessage(QStringLiteral("A name"));
    EXPECT_TRUE(field.isValid());
    EXPECT_FALSE(field.popoverController().isShown());
    field.setFocus();
    ASSERT_TRUE(field.popoverController().isShown()) << "valid or not";
    SimpleTextViewPopover& popover = field.popoverController().popover();
    EXPECT_EQ(popover.currentPositioningView(), &field);
    EXPECT_TRUE(field.hasFocus());
    EXPECT_TRUE(field.isActiveWindow());
    EXPECT_EQ(field.spokenDescription(), QStringLiteral("A name"));
    other.setFocus();
    EXPECT_FALSE(field.popoverController().isShown());
    EXPECT_EQ(popover.currentPositioningView(), nullptr);

    field.setMessage(std::nullopt);
    field.setFormatter(std::make_shared<ConstantNameFormatter>());
    field.setObjectValue(FieldValue("abc"));
    EXPECT_EQ(field.stringValue(), QStringLiteral("$abc"));
    field.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(field.stringValue(), QStringLiteral("abc"));
    field.currentEditor()->setCursorPosition(3);
    compose(field, QStringLiteral("+ +"));
    EXPECT_TRUE(field.isValid());
    EXPECT_FALSE(field.popoverController().isShown());
    compose(field, {}, {});
    QTest::keyClicks(&field, QStringLiteral("+"));
    EXPECT_FALSE(field.isValid());
    ASSERT_TRUE(field.popoverController().isShown());
    EXPECT_TRUE(field.styledCell().controlState().contains(StyledControlState::invalid));
    const core::Size size = popover.contentSize();
    EXPECT_EQ(size.width, popover.contentTextField().intrinsicContentSize().width + 24);
    field.setObjectValue(FieldValue("automated"));
    EXPECT_EQ(field.stringValue(), QStringLiteral("abc+")) << "not over what is being typed";
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_TRUE(field.isValid());
    EXPECT_FALSE(field.popoverController().isShown());
    other.setFocus();
    EXPECT_EQ(field.objectValue(), FieldValue("abc"));
    EXPECT_EQ(field.stringValue(), QStringLiteral("$abc"));

    // The owner judges.
    Owner owner;
    owner.onChange = [&](platform::TextField& changed) {
        field.setMessage(QStringLiteral("Now: %1").arg(changed.stringValue()));
    };
    const QString owners = QStringLiteral("The owner's");
    field.setMessage(owners);
    field.setStringValue(QStringLiteral("a b"));
    EXPECT_FALSE(field.isValid()) << "a text that a program sets is read, too";
    EXPECT_NE(field.message(), owners);
    field.setStringValue(QStringLiteral("ab"));
    EXPECT_EQ(field.objectValue(), FieldValue("ab"));
    EXPECT_TRUE(field.isValid());
    EXPECT_EQ(field.message(), owners);
    field.setStringValue(QStringLiteral("a b"));
    field.setFormatter(nullptr);
    EXPECT_TRUE(field.isValid()) << "nobody refuses it any more";
    EXPECT_EQ(field.message(), owners);
    field.setMessage(std::nullopt);
    field.setStringValue({});
    field.setDelegate(&owner);
    field.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(field.popoverController().isShown());
    QTest::keyClicks(&field, QStringLiteral("x"));
    ASSERT_TRUE(field.popoverController().isShown()) << "though it is valid";
    EXPECT_EQ(popover.contentTextField().stringValue(), QStringLiteral("Now: x"));
}

TEST_F(TextFields, TakeTheirPopoverAlong) {
    QScrollArea area(&window);
    area.setGeometry(0, 0, 200, 90);
    auto* const content = new QWidget;
    content->resize(180, 400);
    auto* const field = new ValidatingTextField(content);
    field->setGeometry(10, 20, 120, 24);
    field->setMessage(QStringLiteral("Moves along"));
    area.setWidget(content);
    showActive(window);
    field->setFocus();
    SimpleTextViewPopover& popover = field->popoverController().popover();
    ASSERT_TRUE(popover.isVisible());
    const auto offset = [&] { return popover.pos() - field->mapToGlobal(QPoint()); };
    const QPoint before = offset();
    window.move(window.pos() + QPoint(40, 30));
    QCoreApplication::processEvents();
    EXPECT_EQ(offset(), before);
    content->move(0, -10);
    EXPECT_EQ(offset(), before);
    content->move(0, -200);
    EXPECT_FALSE(popover.isVisible()) << "its field is out of sight";
    EXPECT_TRUE(popover.isShown());
    content->move(0, 0);
    EXPECT_TRUE(popover.isVisible());
    QWidget second;
    showActive(second);
    EXPECT_FALSE(popover.isVisible()) << "another window is key";
    QApplication::setActiveWindow(&window);
    EXPECT_TRUE(popover.isVisible());
    const int width = popover.width();
    field->setMessage(QStringLiteral("A message that is a good deal longer than the one before"));
    field->updateMessagePopover();
    EXPECT_GT(popover.width(), width) << "in its place";
    const QPointer<SimpleTextViewPopover> guard(&popover);
    delete field;
    EXPECT_EQ(guard, nullptr);
    SimpleTextViewPopoverController controller;
    auto* const view = new QWidget(&window);
    view->setGeometry(0, 0, 10, 10);
    view->show();
    controller.showMessage(QStringLiteral("Alone"), *view, RectEdge::minX);
    ASSERT_TRUE(controller.isShown());
    delete view;
    EXPECT_FALSE(controller.isShown());
    EXPECT_FALSE(controller.popover().isVisible());
}

TEST(PopoverGeometry, FindsAnEdgeWithRoomAndStaysOnTheScreen) {
    const core::Rect screen{{0, 0}, {800, 600}};
    const core::Size body{200, 40};
    struct Case {
        core::Rect anchor;
        RectEdge preferred;
        RectEdge edge;
        core::Point origin;
        core::Point tip;
    };
    for (const Case& c : std::initializer_list<Case>{
             {{{300, 100}, {100, 24}}, RectEdge::maxY, RectEdge::maxY, {250, 132}, {350, 124}},
             {{{300, 570}, {100, 24}}, RectEdge::maxY, RectEdge::minY, {250, 522}, {350, 570}},
             {{{0, 100}, {100, 24}}, RectEdge::minY, RectEdge::minY, {0, 52}, {50, 100}},
             {{{0, 100}, {10, 24}}, RectEdge::maxY, RectEdge::maxY, {0, 132}, {14, 124}},
             {{{760, 100}, {40, 24}}, RectEdge::maxX, RectEdge::minX, {552, 92}, {760, 112}},
             {{{300, 0}, {100, 600}}, RectEdge::maxY, RectEdge::maxX, {408, 280}, {400, 300}},
             {{{0, 0}, {800, 600}}, RectEdge::maxY, RectEdge::maxY, {300, 560}, {400, 552}}}) {
        const PopoverPlacement placement = placePopover(c.anchor, body, screen, c.preferred);
        EXPECT_EQ(placement.edge, c.edge) << c.anchor.origin.x;
        EXPECT_EQ(placement.body.origin, c.origin) << placement.body.origin.x;
        EXPECT_EQ(placement.tip, c.tip) << placement.tip.x << " " << placement.tip.y;
    }
}

TEST_F(TextFields, LayOutPropertiesInBothDirections) {
    ValidatingPropertiesField& field = add(new ValidatingPropertiesField(
        *resourceBundle().assets().image(QStringLiteral("dwk-customslider-drag"))));
    const QWidget* const icon = field.icon();
    EXPECT_EQ(icon->geometry(), QRect(3, 0, 14, 24));
    EXPECT_EQ(field.textField().geometry(), QRect(25, 0, 92, 24));
    field.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(icon->geometry(), QRect(103, 0, 14, 24));
    EXPECT_EQ(field.textField().geometry(), QRect(3, 0, 92, 24));
    auto formatter = std::make_shared<ExpressionFormatter>();
    formatter->setPositiveSuffix(" dB");
    field.textField().setFormatter(formatter);
    field.textField().setObjectValue(FieldValue(-3.0));
    EXPECT_EQ(field.textField().stringValue(), QStringLiteral("-3 dB"));
    field.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(field.textField().stringValue(), QStringLiteral("-3"));
    QTest::keyClicks(&field.textField(), QStringLiteral("gain*2"));
    QTest::keyClick(&field.textField(), Qt::Key_Return);
    EXPECT_EQ(field.textField().objectValue(), FieldValue("gain*2"));
    field.textField().selectText();
    QTest::keyClicks(&field.textField(), QStringLiteral("1e999"));
    QTest::keyClick(&field.textField(), Qt::Key_Return);
    EXPECT_FALSE(field.isValid());
    EXPECT_TRUE(field.popoverController().isShown());
    EXPECT_EQ(field.textField().objectValue(), FieldValue("gain*2"));
}

TEST_F(TextFields, DragANumberByItsIcon) {
    ValidatingPropertiesField& field = focused(new ValidatingPropertiesField(
        *resourceBundle().assets().image(QStringLiteral("dwk-customslider-drag"))));
    FirstResponderAwareTextField& text = field.textField();
    TrackingSlider& icon = *field.icon();
    EXPECT_FALSE(icon.isEnabled()) << "no number yet";
    text.setObjectValue(FieldValue(-3.0)); // the range comes late
    icon.setRange(-60, 6);
    icon.setIncrementBy(0.5);
    std::vector<FieldValue> sent;
    text.setAction(
        [&](platform::ActionTarget&, platform::Control&) { sent.push_back(text.objectValue()); },
        text);
    QTest::keyClicks(&text, QStringLiteral("1e999"));
    quint64 now = 1000;
    const auto send = [&](QEvent::Type type, double y) {
        const bool isMove = type == QEvent::MouseMove;
        const QPointF at(7, y);
        QMouseEvent event(type, at, icon.mapToGlobal(at), isMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        event.setTimestamp(now += 10);
        QCoreApplication::sendEvent(&icon, &event);
    };
    send(QEvent::MouseButtonPress, 12);
    for (const double y : {4, -4, -12}) { // the first one begins it
        send(QEvent::MouseMove, y);
        EXPECT_TRUE(text.isFirstResponder());
    }
    send(QEvent::MouseButtonRelease, -12);
    EXPECT_EQ(sent, (std::vector<FieldValue>{-2.5, -2.0, -2.0}));
    EXPECT_EQ(text.stringValue(), QStringLiteral("-2")) << "instead of what was typed";
    text.selectText();
    QTest::keyClicks(&text, QStringLiteral("9"));
    QTest::keyClick(&text, Qt::Key_Return);
    send(QEvent::MouseButtonPress, 12);
    send(QEvent::MouseMove, 20);
    send(QEvent::MouseMove, 28);
    EXPECT_EQ(text.objectValue(), FieldValue(5.5)) << "from the upper end, where it is kept";
    send(QEvent::MouseButtonRelease, 28);
    text.setObjectValue(FieldValue("gain * 2"));
    EXPECT_FALSE(icon.isEnabled());
}

TEST_F(TextFields, SearchWithEveryChangeAndClear) {
    StyledSearchFieldCell cell;
    cell.setBezeled(true);
    cell.setVerticallyCenter(false);
    const core::Rect bounds{{0, 0}, {200, 24}};
    EXPECT_EQ(cell.searchTextRect(bounds), (core::Rect{{24, 0}, {152, 24}}));
    cell.setShowsSearchIcon(false);
    EXPECT_EQ(cell.searchTextRect(bounds), (core::Rect{{4, 0}, {172, 24}}));
    cell.setHasCancelButton(false);
    EXPECT_EQ(cell.searchTextRect(bounds), (core::Rect{{4, 0}, {30, 24}}));

    const auto searched = std::make_shared<core::Observable<QString>>();
    auto& wrapper = add(new StyledSearchFieldWrapper(core::Binding(searched), "Presets"));
    StyledSearchField& field = wrapper.searchField();
    field.setFocus();
    QTest::keyClicks(&field, QStringLiteral("pad"));
    EXPECT_EQ(searched->value(), QStringLiteral("pad"));
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(searched->value(), QString());
    searched->set(QStringLiteral("bass"));
    EXPECT_EQ(field.stringValue(), QStringLiteral("bass"));
    auto* const cross = field.findChild<QAbstractButton*>();
    ASSERT_NE(cross, nullptr);
    EXPECT_TRUE(cross->isVisible());
    QTest::mouseClick(cross, Qt::LeftButton);
    EXPECT_EQ(searched->value(), QString());
    EXPECT_FALSE(cross->isVisible());
}

TEST_F(TextFields, BindTextsAndFollowTheTextEnvironment) {
    const auto text = std::make_shared<core::Observable<QString>>(QStringLiteral("Lead"));
    QStringList editing;
    const auto style = std::make_shared<TextFieldCellStyle>();
    style->setPadding({2, 20, 2, 6});
    auto& view = add(new KestrelStyledTextField(
        QStringLiteral("Name"), core::Binding(text), style,
        [&](bool isEditing) { editing += isEditing ? "changed" : "ended"; }));
    StyledTextField& field = view.textField();
    EXPECT_EQ(field.stringValue(), QStringLiteral("Lead"));
    EXPECT_EQ(field.styledCell().textRect({{0, 0}, {100, 24}}).origin.x, 20);
    EXPECT_EQ(field.alignment(), platform::LineAlignment::left);
    auto environment = std::make_shared<TextEnvironment>();
    environment->multilineTextAlignment = TextAlignment::trailing;
    environment->truncationMode = TruncationMode::middle;
    environment->lineLimit = 2;
    platform::setEnvironment(window, environment);
    EXPECT_EQ(field.alignment(), platform::LineAlignment::right);
    EXPECT_EQ(field.lineBreakMode(), platform::LineEliding::middle);
    EXPECT_EQ(field.maximumNumberOfLines(), 2);
    view.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&field, QStringLiteral("P"));
    EXPECT_EQ(text->value(), QStringLiteral("P"));
    other.setFocus();
    EXPECT_EQ(editing.join(' '), QStringLiteral("changed ended"));
    text->set(QStringLiteral("Bass"));
    EXPECT_EQ(field.stringValue(), QStringLiteral("Bass"));
}

TEST_F(TextFields, ResizeWithTheirText) {
    WidthResizingTextField& field = focused(new WidthResizingTextField);
    const int width = field.sizeHint().width();
    QTest::keyClicks(&field, QStringLiteral("wider"));
    const int wider = field.sizeHint().width();
    EXPECT_GT(wider, width + 15);
    field.resize(field.sizeHint());
    QTest::keyClick(&field, Qt::Key_Home);
    QTest::keyClick(&field, Qt::Key_End);
    EXPECT_EQ(field.currentEditor()->cursorPositionAt({0, 12}), 0) << "nothing has scrolled out";
}

} // namespace
} // namespace driftwood
