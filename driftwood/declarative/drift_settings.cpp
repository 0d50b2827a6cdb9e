#include "driftwood/declarative/drift_settings.hpp"

#include "driftwood/controls/styled_combo_box.hpp"
#include "driftwood/declarative/drift_slider.hpp"
#include "platform/controls/accessible_role.hpp"
#include "platform/controls/cell_control.hpp"
#include "platform/controls/padded_item.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include <cmath>

namespace driftwood {
namespace {

constexpr int childSpacing = 4;
constexpr int formMargin = 20;
constexpr int rowSpacing = 8;
constexpr int labelGap = 12;
constexpr int dividerMargin = 16;
constexpr int dividerPadding = 8;

QMarginsF insetsOf(const QWidget& child) {
    core::EdgeInsets insets;
    if (const auto* const control = qobject_cast<const platform::CellControl*>(&child)) {
        insets = control->alignmentRectInsets();
    } else if (const auto* const combo = qobject_cast<const StyledComboBox*>(&child)) {
        insets = combo->alignmentRectInsets();
    } else if (qobject_cast<const DriftSlider*>(&child) != nullptr) {
        return DriftSlider::padding();
    }
    return {-insets.left, -insets.top, -insets.right, -insets.bottom};
}

} // namespace

FillEachChildLeading::FillEachChildLeading(QWidget* parent) : QVBoxLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
    setSpacing(childSpacing);
}

void FillEachChildLeading::addChild(QWidget* child) {
    QSizePolicy policy = child->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Expanding);
    child->setSizePolicy(policy);
    addChildWidget(child);
    addItem(new platform::PaddedItem(child, insetsOf(*child)));
}

DriftSettings::DriftSettings(double settingsWidth, const std::vector<QWidget*>& content,
                             QWidget* parent)
    : QWidget(parent), form_(new QWidget(this)) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch(1);
    row->addWidget(form_, 0, Qt::AlignTop);
    row->addStretch(1);
    auto* const column = new QVBoxLayout(form_);
    column->setContentsMargins(formMargin, formMargin, formMargin, formMargin);
    column->setSpacing(rowSpacing);
    for (QWidget* const view : content) {
        column->addWidget(view);
    }
    setSettingsWidth(settingsWidth);
}

double DriftSettings::settingsWidth() const {
    return form_->minimumWidth();
}

void DriftSettings::setSettingsWidth(double width) {
    form_->setFixedWidth(static_cast<int>(std::lround(width)));
}

DriftSettingsSection::DriftSettingsSection(const QString& label,
                                           const std::vector<QWidget*>& content, QWidget* parent)
    : QWidget(parent),
      config_(*this, [this] { followConfig(); }),
      label_(new QLabel(label)),
      column_(new QWidget) {
    label_->setTextFormat(Qt::PlainText);
    label_->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    label_->setWordWrap(true);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(labelGap);
    row->addWidget(label_, 0, Qt::AlignVCenter);
    row->addWidget(column_, 1, Qt::AlignVCenter);
    auto* const children = new FillEachChildLeading(column_);
    for (QWidget* const child : content) {
        children->addChild(child);
    }
    if (!content.empty()) {
        label_->setBuddy(content.front());
        QWidget* named = content.front();
        while (named->focusProxy() != nullptr) {
            named = named->focusProxy(); // what the keyboard and screen readers meet
        }
        if (named->accessibleName().isEmpty()) {
            named->setAccessibleName(label);
        }
    }
    followConfig();
}

void DriftSettingsSection::followConfig() {
    const auto config = config_.object();
    width_ = config != nullptr ? config->labelWidth.observe([this](double) { applyWidth(); })
                               : core::Subscription();
    applyWidth();
}

void DriftSettingsSection::applyWidth() {
    if (const auto config = config_.object()) {
        label_->setFixedWidth(static_cast<int>(std::lround(config->labelWidth.value())));
    } else {
        label_->setMinimumWidth(0);
        label_->setMaximumWidth(QWIDGETSIZE_MAX);
    }
}

DriftSettingsDivider::DriftSettingsDivider(QWidget* parent) : QWidget(parent) {
    platform::setAccessibleRole(*this, QAccessible::Separator);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize DriftSettingsDivider::sizeHint() const {
    return {2 * dividerMargin + 1, 2 * dividerPadding + 1};
}

void DriftSettingsDivider::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QColor line = palette().color(QPalette::Active, QPalette::WindowText);
    line.setAlphaF(0.15F);
    painter.fillRect(dividerMargin, dividerPadding, width() - 2 * dividerMargin, 1, line);
}

} // namespace driftwood
