#include "driftwood/controls/styled_pop_up_button.hpp"

#include "driftwood/style/styles.hpp"
#include "platform/assets/asset_catalog.hpp"
#include "platform/assets/system_font.hpp"

#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace driftwood {
namespace {

constexpr double titleX = 10; // from the leading edge
constexpr double arrowRoom = 14;
constexpr double beforeArrow = 6; // where there is room
constexpr double titleHeight = 14;
constexpr double menuFontSize = 11;

const QFont& plainFont() {
    static const QFont font = platform::systemFont(10, QFont::Normal);
    return font;
}

const QFont& mediumFont() {
    static const QFont font = platform::systemFont(10, QFont::Medium);
    return font;
}

/// Wide enough for every item that is not in a submenu.
core::Size widestItem(const MenuButtonCell& cell, const platform::Menu& menu) {
    core::Size size = cell.cellSize();
    for (const platform::MenuItem* const item : menu.items()) {
        if (!item->isSeparator()) {
            size = core::componentwiseMax(size, cell.sizeFor(item->title()));
        }
    }
    return size;
}

} // namespace

core::Rect MenuButtonCell::titleRect(const core::Rect& bounds, bool isRightToLeft) const {
    if (imagePosition() == platform::ImagePosition::imageOnly || title().isEmpty()) {
        return {};
    }
    const double width = bounds.size.width - titleX - arrowRoom;
    const double x = isRightToLeft ? bounds.maxX() - titleX - width : titleX;
    return core::atLeastEmpty(core::integral(
        {{x, std::trunc(core::midPoint(bounds).y - titleHeight / 2)}, {width, titleHeight}}));
}

QFont MenuButtonCell::titleFont() const {
    return label_.isEmpty() ? plainFont() : mediumFont();
}

core::Size MenuButtonCell::sizeFor(const QString& title) const {
    const auto advance = [](const QFont& font, const QString& text) {
        return QFontMetricsF(font).horizontalAdvance(text);
    };
    double width = advance(titleFont(), title);
    if (!label_.isEmpty()) {
        width += advance(plainFont(), label_) + advance(mediumFont(), QStringLiteral(" "));
    }
    return {std::ceil(width) + titleX + beforeArrow + arrowRoom, titleHeight};
}

std::vector<platform::LineRun> MenuButtonCell::runs(const QString& title) const {
    const QColor color = toQColor(styleTextColor());
    if (label_.isEmpty()) {
        return {{title, plainFont(), color}};
    }
    const QColor quiet = toQColor(cellState().isEnabled ? Styles::Label::nsTextColor()
                                                        : Styles::Label::disabledTextColor());
    return {
        {label_, plainFont(), quiet},
        {QStringLiteral(" "), mediumFont(), color}, // apart: it stays between in both directions
        {title, mediumFont(), color}};
}

void MenuButtonCell::drawBezel(const core::Rect& frame, const platform::CellCanvas& canvas) const {
    platform::CellCanvas mirrored = canvas;
    mirrored.mirrorsImages = canvas.isRightToLeft; // the arrow stands at the end of the line
    BezelButtonCell::drawBezel(frame, mirrored);
}

void MenuButtonCell::drawInterior(const core::Rect& frame,
                                  const platform::CellCanvas& canvas) const {
    if (image() != nullptr && imagePosition() == platform::ImagePosition::imageOnly) {
        drawImage(*image(), imageRect(drawingRect(frame), canvas.isRightToLeft), canvas);
        return;
    }
    if (!title().isEmpty()) {
        drawTitle(title(), titleRect(frame, canvas.isRightToLeft), canvas);
    }
}

void MenuButtonCell::drawTitle(const QString& title, const core::Rect& frame,
                               const platform::CellCanvas& canvas) const {
    text_.paint(
        canvas.painter, frame, runs(title),
        {platform::LineAlignment::natural, platform::LineEliding::tail, canvas.isRightToLeft});
}

StyledPopUpButton::StyledPopUpButton(std::unique_ptr<StyledPopUpButtonCell> cell, QWidget* parent)
    : KitControl(std::move(cell), Kind::popUp, parent) {
    setFont(platform::systemFont(menuFontSize, QFont::Normal));
}

void StyledPopUpButton::setLabel(const QString& label) {
    if (label != styledCell().label()) {
        styledCell().setLabel(label);
        cellDidChange();
    }
}

core::EdgeInsets StyledPopUpButton::alignmentRectInsets() const {
    return StyledPopUpButtonCell::style().alignmentRectInsets(); // of that class, also for tools
}

core::Size StyledPopUpButton::intrinsicContentSize() const {
    const core::Size bezel = styledCell().isBordered() ? bezelImageSize() : core::Size();
    return platform::bezelSize(
        fixedWidth() ? styledCell().cellSize() : widestItem(styledCell(), menu()), bezel,
        alignmentRectInsets(), fixedWidth(), platform::BezelRule::tallAsImage);
}

QString StyledPopUpButton::spokenName() const {
    return label().isEmpty() ? PopUpButton::spokenName()
                             : QStringLiteral("%1 %2").arg(label(), title());
}

double StyledPopUpButton::titleStart() const {
    return titleX;
}

StyledPopDownButton::StyledPopDownButton(const QString& title, QWidget* parent)
    : KitControl(std::make_unique<StyledPopDownButtonCell>(title), Kind::pullDown, parent) {
    setFont(platform::systemFont(menuFontSize, QFont::Normal));
    menu().installEventFilter(this);
}

void StyledPopDownButton::setLabel(const QString& label) {
    if (label != styledCell().label()) {
        styledCell().setLabel(label);
        cellDidChange();
    }
}

core::EdgeInsets StyledPopDownButton::alignmentRectInsets() const {
    return StyledPopDownButtonCell::style().alignmentRectInsets();
}

core::Size StyledPopDownButton::intrinsicContentSize() const {
    const core::Size bezel = styledCell().isBordered() ? bezelImageSize() : core::Size();
    return platform::bezelSize(styledCell().cellSize(), bezel, alignmentRectInsets(), fixedWidth(),
                               platform::BezelRule::tallAsImage);
}

bool StyledPopDownButton::mouseDown(int clickCount) {
    // Without a menu it is a push button.
    return !menu().isEmpty() && PopUpButton::mouseDown(clickCount);
}

bool StyledPopDownButton::eventFilter(QObject* object, QEvent* event) {
    // The menu hears the mouse once it is open.
    if (object == &menu() && event->type() == QEvent::MouseButtonRelease) {
        const auto& mouse = *static_cast<const QMouseEvent*>(event);
        if (mouse.button() == Qt::LeftButton &&
            rect().contains(mapFromGlobal(mouse.globalPosition().toPoint()))) {
            const QPointer<QObject> self(this);
            sendAction();
            return self == nullptr;
        }
    }
    return KitControl::eventFilter(object, event);
}

} // namespace driftwood
