#include "gallery/fernhorn/host_panel.hpp"

#include "driftwood/controls/styled_check_box.hpp"
#include "fernhorn/dials/value_label.hpp"
#include "gallery/parts.hpp"
#include "plugin/settings/value_formatter.hpp"

#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace gallery {

namespace {

constexpr int rows = 22;
constexpr std::size_t keptLines = 64;

} // namespace

HostPanel::HostPanel(std::shared_ptr<larkvox::VocoderSettings> settings)
    : settings_(std::move(settings)),
      player_(settings_->unit().parameterTree()),
      events_(new EventStrip(
          std::make_unique<EventLog>(settings_->unit().parameterTree(), keptLines), rows,
          [this](const platform::AUParameterAutomationEvent& event) { return textOf(event); })) {
    setFixedWidth(panelWidth);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 14);
    column->setSpacing(8);
    column->addWidget(makeLabel(QStringLiteral("Host"), 13, "Grey 85%", QFont::Medium));
    auto* const play = new driftwood::StyledCheckBox(QStringLiteral("Play automation"));
    play->setAction(
        [this, play](ActionTarget&, platform::Control&) {
            if (play->state() == platform::StateValue::on) {
                player_.start();
            } else {
                player_.stop();
            }
        },
        *this);
    column->addWidget(play);
    column->addSpacing(4);
    column->addWidget(events_, 1);
}

QString HostPanel::textOf(const platform::AUParameterAutomationEvent& event) const {
    const auto& all = settings_->parameters();
    const auto found = std::ranges::find(all, event.address, &fernhorn::AudioParameter::address);
    if (found == all.end()) {
        return {};
    }
    return fernhorn::textWithUnit(**found, *larkvox::makeFormatter(**found), event.value);
}

HostPanel::~HostPanel() {
    retire();
}

void HostPanel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kitColor("Grey 20%"), 1));
    painter.setBrush(kitColor("Background/Darkest"));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
}

} // namespace gallery
