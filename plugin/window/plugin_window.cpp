#include "plugin/window/plugin_window.hpp"

#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/header/plugin_header_view.hpp"
#include "fernhorn/model/parameter_gesture.hpp"
#include "platform/controls/button.hpp"
#include "platform/controls/menu.hpp"
#include "plugin/window/plugin_parts.hpp"

#include <QPainter>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <utility>

namespace larkvox {

namespace {

using fernhorn::FernFont;

constexpr int pageCount = 3;

void restoreDefaults(const VocoderSettings& settings) {
    for (const auto& parameter : settings.parameters()) {
        if (parameter->address() != addressOf(VocoderParameter::page)) {
            fernhorn::ParameterGesture(parameter).change(parameter->defaultValue());
        }
    }
}

} // namespace

PluginWindow::PluginWindow(std::shared_ptr<VocoderSettings> settings,
                           std::optional<fernhorn::UpdateAvailableDetails> update)
    : settings_(std::move(settings)),
      header_(new fernhorn::PluginHeaderView(
          QUrl(QStringLiteral("https://www.fennick.example/vocoder/")),
          QString::fromStdString(settings_->pluginVersion()),
          settings_->parameter(VocoderParameter::page), std::move(update), FernFont::rocket,
          makeMenu())),
      pages_(new QStackedLayout) {
    setFixedSize(windowWidth, windowHeight);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(header_);
    // The surface keeps its arrangement in every language, as hardware does.
    auto* const surface = new QWidget;
    surface->setLayoutDirection(Qt::LeftToRight);
    surface->setLayout(pages_);
    column->addWidget(surface, 1);
    for (int i = 0; i < pageCount; ++i) {
        pages_->addWidget(new QWidget);
    }
    const auto& page = settings_->parameter(VocoderParameter::page);
    pageObserver_ = page->observeValue([this](float value) { showPage(static_cast<int>(value)); });
    showPage(static_cast<int>(page->value()));
}

void PluginWindow::showPage(int index) {
    QWidget* const place = pages_->widget(index);
    if (place->layout() == nullptr) {
        auto* const layout = new QVBoxLayout(place);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(index == 0   ? makeVoicePage(settings_)
                          : index == 1 ? makeCarrierPage(*settings_)
                                       : makeMotionPage(*settings_));
    }
    pages_->setCurrentIndex(index);
}

QWidget* PluginWindow::makeMenu() {
    auto* const button = new platform::Button(
        QStringLiteral("Menu"), std::make_shared<fernhorn::SettingsButtonStyle>(FernFont::rocket));
    auto* const menu = new platform::Menu({}, button);
    connect(&menu->addItem(QStringLiteral("Restore all values")), &QAction::triggered, this,
            [this] { restoreDefaults(*settings_); });
    connect(
        &menu->addItem(QStringLiteral("Look for an update")), &QAction::triggered, this, [this] {
            header_->setUpdateDetails(fernhorn::UpdateAvailableDetails{QStringLiteral("1.2.0")});
        });
    connect(button, &platform::Button::clicked, menu, [button, menu] {
        menu->popUpBelow(*button, Qt::AlignTrailing, 4,
                         button->hasFocus() ? platform::MenuOpenedBy::key
                                            : platform::MenuOpenedBy::pointer);
    });
    return button;
}

void PluginWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), fernhorn::kitColor("background"));
    // The seam below the header: a dark groove that catches light on its far edge.
    const int y = header_->geometry().bottom() + 1;
    painter.fillRect(0, y, width(), 1, QColor(0, 0, 0, 120));
    painter.fillRect(0, y + 1, width(), 1, QColor(255, 255, 255, 10));
}

} // namespace larkvox
