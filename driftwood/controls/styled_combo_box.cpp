#include "driftwood/controls/styled_combo_box.hpp"

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/style/styles.hpp"
#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/button_geometry.hpp"
#include "platform/controls/focus_ring.hpp"
#include "platform/controls/kit_style.hpp"
#include "platform/controls/main_thread.hpp"

#include <QAbstractItemView>
#include <QEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cmath>

namespace driftwood {
namespace {

constexpr double textMargin = 8; // from the frame's leading edge
constexpr double textGap = 2;    // before the arrow
constexpr int editorMargin = 2;  // that the toolkit's editor keeps at both sides by itself
constexpr int rowHeight = 22;
constexpr int rowMargin = 4;
constexpr int visibleRows = 12;

/// A row of the list, as a menu's: the current one on a rounded ground.
class ListRow final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width() + 2 * rowMargin, rowHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const bool isCurrent = row.state.testFlag(QStyle::State_Selected);
        const bool isEnabled = row.state.testFlag(QStyle::State_Enabled);
        if (isCurrent) {
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(row.palette.color(QPalette::Active, QPalette::Highlight));
            painter->drawRoundedRect(QRectF(row.rect).adjusted(rowMargin, 1, -rowMargin, -1), 4, 4);
            painter->restore();
        }
        const QColor color =
            row.palette.color(isEnabled ? QPalette::Active : QPalette::Disabled,
                              isCurrent ? QPalette::HighlightedText : QPalette::Text);
        const QRectF place = QRectF(row.rect).adjusted(textMargin, 0, -textMargin, 0);
        platform::LineText::paintShared(
            *painter, platform::toRect(place), row.text, row.font, color,
            {platform::LineAlignment::natural, platform::LineEliding::tail,
             row.direction == Qt::RightToLeft});
    }
};

const platform::ImageAsset* kitImage(const char* name) {
    return resourceBundle().assets().image(QString::fromLatin1(name));
}

double widthOf(const platform::ImageAsset* image) {
    return image != nullptr ? image->size().width() : 0;
}

void setColors(QPalette& palette, QPalette::ColorRole role, const QColor& color,
               const QColor& disabled) {
    palette.setColor(role, color);
    palette.setColor(QPalette::Disabled, role, disabled);
}

} // namespace

const platform::ImageAsset* StyledComboBoxCell::fieldImage() {
    static const auto* const image = kitImage("dwk-combobox");
    return image;
}

const platform::ImageAsset* StyledComboBoxCell::arrowImage() const {
    static const auto* const closed = kitImage("dwk-combobox-up");
    return isPopupOpen_ ? fieldImage() : closed;
}

core::Rect StyledComboBoxCell::titleRect(const core::Rect& bounds, bool isRightToLeft) const {
    const double end = widthOf(arrowImage()) + textGap;
    const double height = std::ceil(QFontMetricsF(toQFont(style().font())).height());
    const core::Rect whole{{bounds.origin.x + (isRightToLeft ? end : textMargin), bounds.origin.y},
                           {bounds.size.width - textMargin - end, height}};
    core::Rect rect = core::atLeastEmpty(core::inset(whole, style().titleEdgeInsets(), false));
    rect.origin.y = std::trunc(core::midPoint(bounds).y - rect.size.height * 0.5);
    return rect;
}

core::Size StyledComboBoxCell::cellSize() const {
    const core::Size text = line_.size(text_, toQFont(style().font()));
    return {std::ceil(text.width) + textMargin + textGap + widthOf(arrowImage()), text.height};
}

void StyledComboBoxCell::drawBezel(const core::Rect& frame,
                                   const platform::CellCanvas& canvas) const {
    const double opacity = cellState().isEnabled ? 1.0 : 0.5;
    const auto* const arrow = arrowImage();
    const double width = std::min(widthOf(arrow), frame.size.width);
    platform::CellCanvas mirrored = canvas;
    mirrored.mirrorsImages = canvas.isRightToLeft;
    core::Rect end = frame;
    core::Rect field = frame;
    end.size.width = width;
    field.size.width -= width;
    (canvas.isRightToLeft ? field : end).origin.x +=
        canvas.isRightToLeft ? width : field.size.width;
    if (arrow != nullptr) {
        platform::paintCellImage(mirrored, end, *arrow, opacity);
    }
    if (fieldImage() != nullptr && field.size.width > 0) {
        platform::paintCellImage(mirrored, field, *fieldImage(), opacity);
    }
}

void StyledComboBoxCell::drawInterior(const core::Rect& frame,
                                      const platform::CellCanvas& canvas) const {
    if (!text_.isEmpty()) {
        line_.paint(
            canvas.painter, titleRect(frame, canvas.isRightToLeft), text_, toQFont(style().font()),
            toQColor(styleTextColor()),
            {platform::LineAlignment::natural, platform::LineEliding::tail, canvas.isRightToLeft});
    }
}

StyledComboBox::StyledComboBox(QWidget* parent)
    : QComboBox(parent),
      follower_(*this, StyledComboBoxCell::style(), [](QWidget& widget, BaseStyle&) {
          static_cast<StyledComboBox&>(widget).applyStyle();
      }) {
    platform::checkMainThread();
    setInsertPolicy(QComboBox::NoInsert);
    setMaxVisibleItems(visibleRows);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setFieldEditable(true);
    platform::adoptKitStyle(*this);
    applyStyle();
    connect(this, &QComboBox::activated, this, [this] { selectionDidChange(); });
}

StyledComboBox::~StyledComboBox() {
    retire();
}

void StyledComboBox::setFieldEditable(bool isEditable) {
    setEditable(isEditable);
    if (QLineEdit* const editor = lineEdit()) {
        editor->setFrame(false);
        editor->setTextMargins(-editorMargin, 0, -editorMargin, 0);
        editor->setAutoFillBackground(false);
        editor->installEventFilter(this);
        connect(editor, &QLineEdit::textEdited, this, [this] { isEdited_ = true; });
        connect(editor, &QLineEdit::editingFinished, this, &StyledComboBox::finishEditing);
        applyStyle();
        placeEditor();
    }
    update();
}

void StyledComboBox::applyStyle() {
    const ComboBoxStyle& style = StyledComboBoxCell::style();
    const QColor text = toQColor(style.textColor());
    const QColor disabled = toQColor(style.disabledTextColor());
    setFont(toQFont(style.font()));
    QPalette colors = palette();
    setColors(colors, QPalette::Text, text, disabled);
    setColors(colors, QPalette::ButtonText, text, disabled);
    colors.setColor(QPalette::PlaceholderText, toQColor(Styles::TextInput::placeholderTextColor()));
    colors.setColor(QPalette::Highlight, toQColor(style.selectedBackgroundColor()));
    colors.setColor(QPalette::HighlightedText, toQColor(Styles::Control::selectedTextColor()));
    colors.setColor(QPalette::Base, toQColor(DWColorsAK::Background::darker()));
    colors.setColor(QPalette::Window, toQColor(DWColorsAK::Background::darker()));
    setPalette(colors);
    if (QLineEdit* const editor = lineEdit()) {
        QPalette clear = colors;
        clear.setColor(QPalette::Base, Qt::transparent); // the cell has drawn the field
        editor->setPalette(clear);
        editor->setFont(font());
    }
}

void StyledComboBox::placeEditor() {
    if (QLineEdit* const editor = lineEdit()) {
        const core::Rect place = cell_.titleRect(platform::toRect(QRectF(rect())), isRightToLeft());
        const QRect wanted = platform::toQRectF(place).toRect();
        // As the list's rows, whatever the language of the text.
        editor->setAlignment(Qt::AlignAbsolute | Qt::AlignVCenter |
                             (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft));
        if (editor->geometry() != wanted) {
            editor->setGeometry(wanted);
        }
    }
}

void StyledComboBox::setFixedWidth(std::optional<double> width) {
    if (width != fixedWidth_) {
        fixedWidth_ = width;
        updateGeometry();
    }
}

core::EdgeInsets StyledComboBox::alignmentRectInsets() const {
    return StyledComboBoxCell::style().alignmentRectInsets();
}

core::Size StyledComboBox::intrinsicContentSize() const {
    const auto* const image = cell_.isBordered() ? StyledComboBoxCell::fieldImage() : nullptr;
    const core::Size bezel =
        image != nullptr ? core::Size{image->size().width(), image->size().height()} : core::Size();
    const QSize natural = QComboBox::sizeHint(); // the widest item, as the toolkit knows it
    return platform::bezelSize(
        {static_cast<double>(natural.width()), static_cast<double>(natural.height())}, bezel,
        alignmentRectInsets(), fixedWidth_, platform::BezelRule::tallAsImage);
}

QSize StyledComboBox::sizeHint() const {
    const core::Size size = intrinsicContentSize();
    const core::EdgeInsets insets = alignmentRectInsets();
    return {static_cast<int>(std::ceil(size.width + insets.left + insets.right)),
            static_cast<int>(std::ceil(size.height + insets.top + insets.bottom))};
}

QSize StyledComboBox::minimumSizeHint() const {
    return {std::min(sizeHint().width(), 60), sizeHint().height()};
}

void StyledComboBox::selectionDidChange() {
    isEdited_ = false;
    sendAction(); // may destroy the combo box
}

void StyledComboBox::finishEditing() {
    if (isEdited_) {
        selectionDidChange();
    }
}

void StyledComboBox::setPopupOpen(bool isOpen) {
    if (isOpen != cell_.isPopupOpen()) {
        cell_.setPopupOpen(isOpen);
        update();
    }
}

void StyledComboBox::showPopup() {
    // The list and its container are made when they are first needed. When another window comes,
    // the container is hidden without `hidePopup`: so it is asked itself.
    QAbstractItemView* const list = view();
    QWidget* const container = list->parentWidget();
    if (container->property("_isFollowed").isNull()) {
        container->setProperty("_isFollowed", true);
        container->installEventFilter(this);
        list->setItemDelegate(new ListRow(list));
        list->setFrameShape(QFrame::NoFrame);
        list->setMouseTracking(true);
    }
    container->setPalette(palette());
    list->setPalette(palette());
    list->setFont(font());
    QComboBox::showPopup();
}

bool StyledComboBox::eventFilter(QObject* object, QEvent* event) {
    if (object == lineEdit()) {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize) {
            placeEditor(); // the toolkit has its own idea of where
        } else if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
            update();
        }
    } else if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        setPopupOpen(event->type() == QEvent::Show);
    }
    return QComboBox::eventFilter(object, event);
}

void StyledComboBox::setFocusRingPictured(bool isPictured) {
    isRingPictured_ = isPictured;
    update();
}

void StyledComboBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    platform::CellState state = cell_.cellState();
    state.isEnabled = isEnabled();
    cell_.setCellState(state);
    cell_.setText(isEditable() ? QString() : currentText());
    const core::Rect frame = platform::toRect(QRectF(rect()));
    cell_.draw(frame,
               {painter, palette().color(QPalette::Active, QPalette::ButtonText), isRightToLeft()});
    if (isRingPictured_ || (hasFocus() && isActiveWindow())) {
        platform::paintFocusRing(painter, QRectF(rect()).adjusted(1, 2, -1, -2),
                                 toQColor(cell_.styleFocusRingColor()), 3,
                                 platform::FocusRingFill::none);
    }
}

void StyledComboBox::resizeEvent(QResizeEvent* event) {
    QComboBox::resizeEvent(event);
    placeEditor();
}

void StyledComboBox::changeEvent(QEvent* event) {
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::StyleChange) {
        placeEditor();
    }
}

} // namespace driftwood
