#include "driftwood/declarative/drift_segmented_control.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "platform/assets/system_font.hpp"
#include "platform/controls/accessible_role.hpp"
#include "platform/controls/cell_painting.hpp"

#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace driftwood {
namespace {

const platform::ImageAsset* tabImage(bool isPressed, bool isSelected) {
    return resourceBundle().assets().image(isPressed    ? QStringLiteral("dwk-window-tab-down")
                                           : isSelected ? QStringLiteral("dwk-window-tab-selected")
                                                        : QStringLiteral("dwk-window-tab"));
}

const std::shared_ptr<const SegmentedButtonStyle>& sharedStyleOf(bool isSelected) {
    static const auto selected = std::make_shared<const SegmentedButtonStyle>(true);
    static const auto other = std::make_shared<const SegmentedButtonStyle>(false);
    return isSelected ? selected : other;
}

} // namespace

QFont SegmentedButtonStyle::font() const {
    static const QFont font = platform::systemFont(12, QFont::Medium);
    return font;
}

double SegmentedButtonStyle::height() const {
    const auto* const image = tabImage(false, false);
    return std::max(std::ceil(QFontMetricsF(font()).height()) + 12,
                    image != nullptr ? image->size().height() : 0);
}

void SegmentedButtonStyle::paint(QPainter& painter, const QRectF& body,
                                 const platform::ButtonConfiguration& configuration) const {
    const bool isPressed = configuration.isPressed;
    const double opacity = configuration.isEnabled ? 1 : 0.5;
    if (const auto* const image = tabImage(isPressed, isSelected_)) {
        platform::paintCellImage({painter, Qt::white}, platform::toRect(body), *image, opacity);
    }
    QColor ink = resourceBundle().assets().color(isPressed     ? QStringLiteral("Grey 50%")
                                                 : isSelected_ ? QStringLiteral("Grey 85%")
                                                               : QStringLiteral("Grey 70%"));
    ink.setAlphaF(ink.alphaF() * static_cast<float>(opacity));
    painter.setPen(ink);
    painter.setFont(font());
    painter.drawText(body, Qt::AlignCenter | Qt::TextSingleLine, configuration.label);
}

DriftSegmentedControl::DriftSegmentedControl(std::shared_ptr<DriftSegmentedControlModel> model,
                                             QWidget* parent)
    : QWidget(parent), model_(std::move(model)) {
    platform::setAccessibleRole(*this, QAccessible::PageTabList);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    makeButtons();
    changes_.push_back(model_->items.observe([this](const auto&) { makeButtons(); }));
    changes_.push_back(model_->selectedItem.observe([this](const auto&) { showSelection(); }));
    changes_.push_back(model_->hideSelection.observe([this](bool) { showSelection(); }));
}

void DriftSegmentedControl::makeButtons() {
    for (platform::Button* const button : buttons_) {
        button->removeEventFilter(this);
        button->hide();
        button->deleteLater(); // it may be the one whose click has changed the items
    }
    buttons_.clear();
    for (const auto& item : model_->items.value()) {
        auto* const button =
            new platform::Button(QString::fromStdString(item->title), sharedStyleOf(false), this);
        button->setCheckable(true);
        button->installEventFilter(this);
        connect(button, &QAbstractButton::clicked, this, [this, item] {
            const QPointer<QWidget> self(this);
            const auto model = model_;
            const auto chosen = item;
            model->userSelect(chosen); // may destroy the control
            if (self != nullptr) {
                showSelection(); // the toolkit has checked the button by itself
            }
        });
        layout()->addWidget(button);
        buttons_.push_back(button);
    }
    setTabStop(0);
    showSelection(); // the selected one takes it
}

void DriftSegmentedControl::showSelection() {
    const auto& items = model_->items.value();
    for (std::size_t i = 0; i < buttons_.size() && i < items.size(); ++i) {
        const bool isSelected = model_->showsAsSelected(*items[i]);
        buttons_[i]->setButtonStyle(sharedStyleOf(isSelected));
        buttons_[i]->setChecked(isSelected);
        if (isSelected) {
            setTabStop(i);
        }
    }
}

void DriftSegmentedControl::setTabStop(std::size_t index) {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        buttons_[i]->setFocusPolicy(i == index ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

bool DriftSegmentedControl::eventFilter(QObject* object, QEvent* event) {
    const auto found = std::ranges::find(buttons_, object);
    if (event->type() != QEvent::KeyPress || found == buttons_.end()) {
        return QWidget::eventFilter(object, event);
    }
    const auto& key = *static_cast<const QKeyEvent*>(event);
    const auto index = static_cast<int>(found - buttons_.begin());
    const int last = static_cast<int>(buttons_.size()) - 1;
    const int right = isRightToLeft() ? -1 : 1;
    int to = index;
    switch (key.key()) {
    case Qt::Key_Left:
        to = index - right;
        break;
    case Qt::Key_Right:
        to = index + right;
        break;
    case Qt::Key_Home:
        to = 0;
        break;
    case Qt::Key_End:
        to = last;
        break;
    default:
        return QWidget::eventFilter(object, event);
    }
    const auto wanted = static_cast<std::size_t>(std::clamp(to, 0, last));
    setTabStop(wanted);
    buttons_[wanted]->setFocus(Qt::TabFocusReason);
    return true;
}

} // namespace driftwood
