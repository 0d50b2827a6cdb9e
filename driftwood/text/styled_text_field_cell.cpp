#include "driftwood/text/styled_text_field_cell.hpp"

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/focus_ring.hpp"

#include <QLineEdit>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace driftwood {
namespace {

using platform::CellCanvas;

/// Beside a text without a frame.
constexpr double sideBearing = 2;

} // namespace

StyledTextFieldCell::StyledTextFieldCell(const QString& text)
    : TextFieldCell(text), backgroundStyle_(style().backgroundStyle()) {}

StyledControlState StyledTextFieldCell::controlState() const {
    StyledControlState state = styledControlState(cellState(), this, validating());
    if (showsFirstResponder()) {
        state |= StyledControlState::focused; // the bezel shows it; no colour depends on it
    }
    return state;
}

AttributedLine StyledTextFieldCell::placeholderLine(const QString& text,
                                                    const std::optional<Color>& color) const {
    return {{text, font(), toQColor(color ? *color : styleTextColor())},
            alignment(),
            lineBreakMode(),
            false};
}

core::Rect StyledTextFieldCell::drawingRect(const core::Rect& bounds) const {
    if (isBeingEdited_ || isBeingSelected_ || !hasFrame()) {
        return bounds;
    }
    return core::atLeastEmpty(core::inset(bounds, controlStyle().padding(), false));
}

core::Rect StyledTextFieldCell::titleRect(const core::Rect& bounds) const {
    core::Rect rect = TextFieldCell::titleRect(bounds);
    if (verticallyCenter_) {
        const double height = textSize().height;
        rect.origin.y += (rect.size.height - height) * 0.5;
        rect.size.height = height;
    }
    return rect;
}

core::Size StyledTextFieldCell::cellSize() const {
    core::Size size = TextFieldCell::cellSize();
    if (const Image& bezel = styleBezelImage(); hasFrame() && bezel) {
        size.height = std::max(size.height, bezel->size().height);
    }
    return size;
}

QFont StyledTextFieldCell::font() const {
    return toQFont(controlStyle().font());
}

void StyledTextFieldCell::edit(const core::Rect& frame, QLineEdit& editor) {
    isBeingEdited_ = true;
    TextFieldCell::edit(titleRect(frame), editor);
    isBeingEdited_ = false;
}

void StyledTextFieldCell::select(const core::Rect& frame, QLineEdit& editor, int start,
                                 int length) {
    isBeingSelected_ = true;
    TextFieldCell::select(titleRect(frame), editor, start, length);
    isBeingSelected_ = false;
}

void StyledTextFieldCell::setUpFieldEditorAttributes(QLineEdit& editor) const {
    const TextFieldCellStyle& look = controlStyle();
    const StyledControlState state = controlState();
    const bool isPlain =
        !state.containsAny(StyledControlState::invalid | StyledControlState::disabled);
    const QColor text = toQColor(isPlain ? look.textColor() : look.textColor(state));
    QPalette palette = editor.palette();
    palette.setColor(QPalette::Base, Qt::transparent); // the cell draws the ground
    palette.setColor(QPalette::Text, text);            // and so the caret
    palette.setColor(QPalette::Highlight, toQColor(look.selectedBackgroundColor()));
    palette.setColor(QPalette::HighlightedText, toQColor(look.selectedTextColor()));
    editor.setPalette(palette);
    editor.setFont(font());
}

core::EdgeInsets StyledTextFieldCell::textInsets() const {
    return hasFrame() || isBeingEdited_ || isBeingSelected_
               ? core::EdgeInsets{}
               : core::EdgeInsets{0, sideBearing, 0, sideBearing};
}

QColor StyledTextFieldCell::textColor(const CellCanvas& /*canvas*/) const {
    return toQColor(styleTextColor());
}

QColor StyledTextFieldCell::placeholderColor(const CellCanvas& /*canvas*/) const {
    return cellState().isEnabled ? toQColor(controlStyle().placeholderTextColor())
                                 : toQColor(styleTextColor());
}

void StyledTextFieldCell::drawGround(const core::Rect& frame, const CellCanvas& canvas) const {
    if (!drawsBackground()) {
        return;
    }
    // The artwork lies upright here, so nothing is turned; and clear colour laid over a ground
    // leaves it as it is, so the frame is not cleared first.
    if (const auto* const bezel = hasFrame() ? toImageAsset(styleBezelImage()) : nullptr) {
        platform::paintCellImage(canvas, frame, *bezel, 1);
    } else if (const QColor ground = toQColor(styleTextBackgroundColor()); ground.alpha() > 0) {
        canvas.painter.fillRect(platform::toQRectF(frame), ground);
    }
}

void StyledTextFieldCell::drawInterior(const core::Rect& frame, const CellCanvas& canvas) const {
    if (!canvas.painter.isActive()) {
        return;
    }
    drawGround(frame, canvas);
    if (const QColor ring = toQColor(styleFocusRingColor()); ring.alpha() > 0) {
        // Its line runs two points within the bounds, and the ring's own is one within its own.
        platform::paintFocusRing(
            canvas.painter, platform::toQRectF(focusRingMaskBounds(frame)).adjusted(1, 1, -1, -1),
            ring);
    }
    drawContent(frame, canvas);
}

} // namespace driftwood
