#include "driftwood/text/styled_search_field.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/controls/abstract_button.hpp"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>

#include <cmath>

namespace driftwood {
namespace {

// The places of the parts, in points.
constexpr double buttonInset = 4;
constexpr double buttonWidth = 30;
constexpr double cancelWidth = 22;
constexpr double glyphSize = 12;
constexpr double glyphInset = 4; // from the edge of its button
constexpr double textInset = 4;  // without an icon

core::Rect mirrored(const core::Rect& rect, const core::Rect& bounds) {
    return {{bounds.origin.x + bounds.maxX() - rect.maxX(), rect.origin.y}, rect.size};
}

} // namespace

void StyledSearchFieldCell::setPlaceholderString(const QString& text) {
    internalPlaceholder_ = text.isNull() ? std::nullopt : std::optional(text);
    StyledCell::setPlaceholderString(text);
}

core::Rect StyledSearchFieldCell::searchButtonRect(const core::Rect& bounds) const {
    return {{bounds.origin.x + buttonInset, bounds.origin.y}, {buttonWidth, bounds.size.height}};
}

core::Rect StyledSearchFieldCell::cancelButtonRect(const core::Rect& bounds) const {
    return hasCancelButton_
               ? core::Rect{{bounds.maxX() - buttonInset - cancelWidth, bounds.origin.y},
                            {cancelWidth, bounds.size.height}}
               : core::Rect();
}

core::Rect StyledSearchFieldCell::searchTextRect(const core::Rect& bounds) const {
    const core::Rect button = searchButtonRect(bounds);
    const core::Rect cancel = cancelButtonRect(bounds);
    const double x = showsSearchIcon_ ? button.maxX() - 10 : textInset;
    const double width = cancel == core::Rect() ? button.size.width : cancel.origin.x + 2 - x;
    double y = bounds.origin.y;
    if (verticallyCenter()) {
        y = std::abs(core::midPoint(bounds).y - 0.5 * textSize().height);
    }
    return core::integral(core::Rect{{x, y}, {width, bounds.size.height}});
}

core::Rect StyledSearchFieldCell::textRect(const core::Rect& bounds) const {
    core::Rect rect = searchTextRect(bounds);
    rect.size.width = std::max(0.0, rect.size.width);
    rect.size.height = textSize().height;
    return isRightToLeft_ ? mirrored(rect, bounds) : rect;
}

void StyledSearchFieldCell::drawContent(const core::Rect& frame,
                                        const platform::CellCanvas& canvas) const {
    if (showsSearchIcon_) {
        if (const auto* const glass =
                resourceBundle().assets().image(QStringLiteral("dwk-searchfield-icon"))) {
            const core::Rect button = searchButtonRect(frame);
            const core::Rect place{{button.origin.x + glyphInset,
                                    std::round(core::midPoint(button).y - glyphSize * 0.5)},
                                   {glyphSize, glyphSize}};
            platform::paintCellImage(canvas, isRightToLeft_ ? mirrored(place, frame) : place,
                                     *glass, cellState().isEnabled ? 1 : 0.5);
        }
    }
    if (!stringValue().isEmpty()) {
        drawText(frame, canvas);
    } else if (!showsFirstResponder() && !isBeingEdited() && !isBeingSelected() &&
               internalPlaceholder_) {
        const double across = hasFrame() ? 2 : 0;
        const double down = hasFrame() ? 1 : 0;
        const core::Rect text = textRect(frame);
        const core::Rect place{{text.origin.x + across, text.origin.y + down},
                               {text.size.width - 2 * across, text.size.height}};
        drawPlaceholder(core::atLeastEmpty(place), canvas);
    }
}

/// The cross behind the text.
class StyledSearchField::CancelButton final : public platform::AbstractButton {
  public:
    explicit CancelButton(StyledSearchField& field) : AbstractButton(&field) {
        setFocusPolicy(Qt::NoFocus);
        setCursor(Qt::ArrowCursor);
        //: The button in a search field that takes the text away
        setAccessibleName(
            QCoreApplication::translate("driftwood::StyledSearchField", "Clear the search"));
        connect(this, &QAbstractButton::clicked, &field, [&field] { field.clear(); });
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const auto* const image =
            resourceBundle().assets().image(isDown() ? QStringLiteral("dwk-searchfield-cancel-down")
                                                     : QStringLiteral("dwk-searchfield-cancel"));
        if (image != nullptr) {
            painter.setOpacity(isEnabled() ? 1 : 0.5);
            platform::paintImage(painter, QRectF(rect()), *image);
        }
    }
};

StyledSearchField::StyledSearchField(QWidget* parent) : TextFieldWithCell(parent) {
    setVerticallyCenter(true);
    focusRingClearingWorkaround(*this);
}

QString StyledSearchField::spokenName() const {
    const QString name = TextFieldWithCell::spokenName();
    //: What a search field is called that has no other name
    return name.isEmpty() ? QCoreApplication::translate("driftwood::StyledSearchField", "Search")
                          : name;
}

void StyledSearchField::textDidChange() {
    layOutButton();
    TextFieldWithCell::textDidChange();
    sendAction();
}

void StyledSearchField::textWasReplaced() {
    TextFieldWithCell::textWasReplaced();
    layOutButton();
}

void StyledSearchField::textDidEndEditing() {
    TextFieldWithCell::textDidEndEditing();
    update();
}

void StyledSearchField::clear() {
    fieldEditor().selectAll();
    fieldEditor().insert(QString()); // can be undone
}

void StyledSearchField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !stringValue().isEmpty() && isEditable() &&
        !hasMarkedText()) {
        event->accept();
        clear();
    } else {
        TextFieldWithCell::keyPressEvent(event);
    }
}

bool StyledSearchField::handleEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange) {
        styledCell().setRightToLeft(isRightToLeft());
        layOutButton();
    } else if (event->type() == QEvent::ShortcutOverride &&
               static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape &&
               !stringValue().isEmpty()) {
        event->accept(); // ours before any dialog's
        return true;
    }
    return TextFieldWithCell::handleEvent(event);
}

void StyledSearchField::resizeEvent(QResizeEvent* event) {
    styledCell().setRightToLeft(isRightToLeft());
    TextFieldWithCell::resizeEvent(event);
    layOutButton();
}

void StyledSearchField::layOutButton() {
    const bool isNeeded =
        !stringValue().isEmpty() && isEditable() && styledCell().hasCancelButton();
    if (isNeeded && button_ == nullptr) {
        button_ = new CancelButton(*this);
    }
    if (button_ != nullptr) {
        const core::Rect place = styledCell().cancelButtonRect(bounds());
        button_->setGeometry(
            platform::toQRectF(isRightToLeft() ? mirrored(place, bounds()) : place).toRect());
        button_->setVisible(isNeeded);
        button_->raise(); // over the editor
    }
}

} // namespace driftwood
