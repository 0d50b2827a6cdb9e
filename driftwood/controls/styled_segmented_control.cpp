#include "driftwood/controls/styled_segmented_control.hpp"

#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/focus_ring.hpp"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>
#include <cmath>

namespace driftwood {

using platform::PressStep;

void StyledSegmentedCell::setLabels(const QStringList& labels) {
    segments_ = std::vector<Segment>(static_cast<std::size_t>(labels.size()));
    for (std::size_t i = 0; i < segments_.size(); ++i) {
        segments_[i].label = labels[static_cast<qsizetype>(i)];
    }
    row_.setCount(static_cast<int>(segments_.size()));
}

const StyledSegmentedCell::Segment* StyledSegmentedCell::find(int segment) const {
    return segment >= 0 && segment < row_.count() ? &segments_[static_cast<std::size_t>(segment)]
                                                  : nullptr;
}

QString StyledSegmentedCell::label(int segment) const {
    const Segment* const found = find(segment);
    return found != nullptr ? found->label : QString();
}

void StyledSegmentedCell::setLabel(int segment, const QString& label) {
    if (find(segment) != nullptr) {
        segments_[static_cast<std::size_t>(segment)].label = label;
    }
}

void StyledSegmentedCell::setWidth(double width, int segment) {
    if (find(segment) != nullptr) {
        segments_[static_cast<std::size_t>(segment)].width = width;
    }
}

double StyledSegmentedCell::width(int segment) const {
    const Segment* const found = find(segment);
    if (found == nullptr || found->label.isEmpty()) {
        return found != nullptr ? found->width : 0;
    }
    const core::EdgeInsets& padding = style().segmentPadding();
    return found->text.size(found->label, toQFont(style().font())).width + padding.left +
           padding.right;
}

StyledControlState StyledSegmentedCell::segmentState(int segment) const {
    StyledControlState state = StyledControlState::default_;
    if (!cellState().isEnabled) {
        state.insert(StyledControlState::disabled);
    }
    if (row_.pressed() == segment) {
        state.insert(StyledControlState::highlighted);
    }
    if (row_.selected() == segment && !hideSelection_) {
        state.insert(StyledControlState::selected);
    }
    return state;
}

std::vector<core::Rect> StyledSegmentedCell::segmentFrames(const core::Rect& bounds,
                                                           bool isRightToLeft) const {
    std::vector<double> widths;
    widths.reserve(segments_.size());
    for (int i = 0; i < row_.count(); ++i) {
        widths.push_back(width(i));
    }
    return driftwood::segmentFrames(widths, {bounds, distribution_, isRightToLeft});
}

core::Size StyledSegmentedCell::cellSize() const {
    core::Size size;
    for (int i = 0; i < row_.count(); ++i) {
        size.width += width(i);
        const Segment& segment = *find(i);
        size.height =
            std::max(size.height, segment.text.size(segment.label, toQFont(style().font())).height);
    }
    return {std::ceil(size.width), std::ceil(size.height)};
}

core::Rect StyledSegmentedCell::contentRect(const core::Rect& frame, int segment) const {
    const Image& image = style().bezelImage(segmentState(segment));
    const core::EdgeInsets& margin = style().segmentMargin();
    const double height = (image ? image->size().height : 0) - (margin.top + margin.bottom);
    return core::integral(
        {{frame.origin.x + margin.left, std::trunc(core::midPoint(frame).y - height * 0.5)},
         {frame.size.width - (margin.left + margin.right), height}});
}

core::Rect StyledSegmentedCell::focusRingMaskBounds(const core::Rect& /*frame*/) const {
    const auto key = row_.key();
    const auto cached = key ? cachedSegmentFrames_.find(*key) : cachedSegmentFrames_.end();
    return cached != cachedSegmentFrames_.end() ? contentRect(cached->second, *key) : core::Rect();
}

void StyledSegmentedCell::drawInterior(const core::Rect& frame,
                                       const platform::CellCanvas& canvas) const {
    const auto frames = segmentFrames(frame, canvas.isRightToLeft);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        drawSegment(static_cast<int>(i), frames[i], canvas);
    }
}

void StyledSegmentedCell::drawSegment(int segment, const core::Rect& frame,
                                      const platform::CellCanvas& canvas) const {
    cachedSegmentFrames_[segment] = frame;
    const StyledControlState state = segmentState(segment);
    const core::Rect content = contentRect(frame, segment);
    if (const auto* const image = toImageAsset(style().bezelImage(state))) {
        platform::paintCellImage(canvas, content, *image, 1);
    }
    if (row_.key() == segment && showsFocusRing && showsFocusRing()) {
        platform::paintFocusRing(canvas.painter, platform::toQRectF(focusRingMaskBounds(frame)),
                                 toQColor(styleFocusRingColor()));
    }
    const Segment& shown = *find(segment);
    if (!shown.label.isEmpty()) {
        shown.text.paint(canvas.painter, core::atLeastEmpty(content), shown.label,
                         toQFont(style().font()), toQColor(style().textColor(state)),
                         {.isRightToLeft = canvas.isRightToLeft});
    }
}

StyledSegmentedControl::StyledSegmentedControl(const QStringList& labels, QWidget* parent)
    : KitControl(std::make_unique<StyledSegmentedCell>(), parent) {
    styledCell().showsFocusRing = [this] { return showsFocusRing(); };
    setLabels(labels);
}

void StyledSegmentedControl::setLabels(const QStringList& labels) {
    cancelTracking();
    styledCell().setLabels(labels);
    cellDidChange();
}

void StyledSegmentedControl::setLabel(int segment, const QString& label) {
    if (label != styledCell().label(segment)) {
        styledCell().setLabel(segment, label);
        cellDidChange();
    }
}

void StyledSegmentedControl::setWidth(double width, int segment) {
    styledCell().setWidth(width, segment);
    cellDidChange();
}

void StyledSegmentedControl::setDistribution(SegmentDistribution distribution) {
    styledCell().setDistribution(distribution);
    update();
}

/// Tells of a segment as it is now.
void StyledSegmentedControl::tellSelection(std::optional<int> segment) {
    if (segment && QAccessible::isActive()) {
        QAccessibleEvent event(this, QAccessible::Selection);
        event.setChild(*segment);
        QAccessible::updateAccessibility(&event);
    }
}

void StyledSegmentedControl::setSelectedSegment(std::optional<int> segment) {
    const auto before = selectedSegment();
    if (styledCell().row().select(segment)) {
        update();
        tellSelection(before);
        tellSelection(selectedSegment());
    }
}

void StyledSegmentedControl::setHideSelection(bool hides) {
    if (hides != hideSelection()) {
        styledCell().setHideSelection(hides);
        update();
        tellSelection(selectedSegment());
    }
}

core::Size StyledSegmentedControl::intrinsicContentSize() const {
    core::Size size = styledCell().cellSize();
    size.width = fixedWidth().value_or(size.width);
    const core::Size image = bezelImageSize();
    return image.width > 0 ? core::Size{std::max(size.width, image.width), image.height} : size;
}

std::vector<core::Rect> StyledSegmentedControl::frames() const {
    return styledCell().segmentFrames(bounds(), layoutDirection() == Qt::RightToLeft);
}

void StyledSegmentedControl::choose(int segment) {
    setSelectedSegment(segment);
    sendAction(); // may destroy the control
}

void StyledSegmentedControl::follow(PressStep step) {
    if (step == PressStep::none) {
        return;
    }
    const std::optional<int> tracked = tracked_;
    const bool isInside = input_.press().isInside();
    styledCell().row().setPressed(isInside ? tracked : std::nullopt);
    if (!input_.press().isTracking()) {
        tracked_.reset();
    }
    update();
    if (step == PressStep::clicked && tracked) {
        choose(*tracked);
    }
}

void StyledSegmentedControl::cancelTracking() {
    follow(input_.press().cancel());
}

bool StyledSegmentedControl::moveKey(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        return false;
    }
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    SegmentMove move{};
    switch (event.key()) {
    case Qt::Key_Left:
        move = isMirrored ? SegmentMove::next : SegmentMove::previous;
        break;
    case Qt::Key_Right:
        move = isMirrored ? SegmentMove::previous : SegmentMove::next;
        break;
    case Qt::Key_Home:
        move = SegmentMove::first;
        break;
    case Qt::Key_End:
        move = SegmentMove::last;
        break;
    default:
        return false;
    }
    if (!input_.press().isTracking() && styledCell().row().moveKey(move)) {
        update();
        tellFocus();
    }
    return true;
}

void StyledSegmentedControl::tellFocus() {
    if (QAccessible::isActive() && hasFocus() && styledCell().row().key()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(*styledCell().row().key());
        QAccessible::updateAccessibility(&event);
    }
}

bool StyledSegmentedControl::press(const QEvent& event) {
    const auto all = frames();
    const bool begins = !input_.press().isTracking();
    if (begins) {
        tracked_ = styledCell().row().key();
        if (event.type() == QEvent::MouseButtonPress ||
            event.type() == QEvent::MouseButtonDblClick) {
            const QPointF at = static_cast<const QMouseEvent&>(event).position();
            tracked_ = segmentAt(all, {at.x(), at.y()});
        }
    }
    if (!tracked_ || *tracked_ >= static_cast<int>(all.size())) {
        return false;
    }
    const auto answer = input_.take(event, all[static_cast<std::size_t>(*tracked_)]);
    const bool isTaken = answer.isTaken;
    follow(answer.step); // may destroy the control
    return isTaken;
}

bool StyledSegmentedControl::handleEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (isEnabled() && moveKey(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        [[fallthrough]];
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        if (isEnabled() && press(*event)) {
            event->accept();
            return true;
        }
        break;
    case QEvent::FocusIn: {
        const QPointer<StyledSegmentedControl> self(this);
        const bool isDealtWith = CellControl::handleEvent(event);
        if (self != nullptr) {
            tellFocus();
        }
        return isDealtWith;
    }
    default:
        break;
    }
    return CellControl::handleEvent(event);
}

QAccessible::Role StyledSegmentedControl::accessibleRole() const {
    return QAccessible::PageTabList;
}

std::vector<platform::AccessiblePart> StyledSegmentedControl::accessibleParts() const {
    std::vector<platform::AccessiblePart> parts;
    const SegmentRow& row = styledCell().row();
    const auto places = frames();
    for (int i = 0; i < row.count(); ++i) {
        platform::AccessiblePart part{QAccessible::PageTab, label(i)};
        part.place = platform::toQRectF(places[static_cast<std::size_t>(i)]).toRect();
        part.action = QAccessibleActionInterface::pressAction();
        part.state.selectable = true;
        part.state.selected = row.selected() == i && !hideSelection();
        part.state.focusable = true;
        part.state.focused = hasFocus() && row.key() == i;
        part.state.pressed = row.pressed() == i;
        parts.push_back(part);
    }
    return parts;
}

void StyledSegmentedControl::performAccessiblePart(int index) {
    if (isEnabled() && index >= 0 && index < segmentCount()) {
        choose(index);
    }
}

} // namespace driftwood
