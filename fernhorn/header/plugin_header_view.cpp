#include "fernhorn/header/plugin_header_view.hpp"

#include "core/fatal.hpp"
#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/header/header_parts.hpp"
#include "platform/controls/button.hpp"
#include "platform/controls/padded_item.hpp"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QThread>

#include <utility>

namespace fernhorn {
namespace {

// Points.
constexpr int headerHeight = 46;
constexpr int leadingPadding = 8;
constexpr int trailingPadding = 16;
constexpr int itemSpacing = 16;
constexpr double tabSize = 16;
constexpr double versionSize = 13;

/// The update button of a header speaks in the header's typeface.
class HeaderUpdateStyle final : public UpdateButtonStyle {
  public:
    explicit HeaderUpdateStyle(FernFont font) : font_(font) {}
    [[nodiscard]] QFont font() const override {
        return CustomFontModifier{font_, labelSize}.resolved();
    }

  private:
    FernFont font_;
};

QLabel* makeVersionLabel(const QString& version, FernFont font) {
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(version);
    CustomFontModifier{font, versionSize}.apply(*label);
    QPalette palette = label->palette();
    QColor ink = kitColor("versionInfo");
    palette.setColor(QPalette::WindowText, ink);
    ink.setAlphaF(0.5F);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, ink);
    label->setPalette(palette);
    return label;
}

} // namespace

PluginHeaderView::PluginHeaderView(QUrl appUpdateURL, const QString& pluginVersion,
                                   std::shared_ptr<AudioParameter> tabParameter,
                                   std::optional<UpdateAvailableDetails> updateDetails,
                                   FernFont font, QWidget* menu, QWidget* parent,
                                   platform::Workspace& workspace, QUrl makerWebsite)
    : QWidget(parent),
      appUpdateURL_(std::move(appUpdateURL)),
      tabParameter_(std::move(tabParameter)),
      updateDetails_(std::move(updateDetails)),
      font_(font),
      workspace_(workspace),
      makerWebsite_(std::move(makerWebsite)),
      row_(new QHBoxLayout(this)),
      version_(makeVersionLabel(pluginVersion, font)),
      update_(new platform::Button({}, std::make_shared<HeaderUpdateStyle>(font))),
      menu_(menu) {
    setFixedHeight(headerHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    row_->setSpacing(itemSpacing);
    mirrorMargins();
    const auto add = [this](QWidget* item) { row_->addWidget(item, 0, Qt::AlignVCenter); };
    // In this order Tab goes through them.
    add(new LogoButton(resourceBundle().assets().image(QStringLiteral("fennick-logo")),
                       [this] { open(makerWebsite_); }));
    if (tabParameter_->valueStrings()) {
        auto* const tabs =
            new HeaderTabs(tabParameter_, CustomFontModifier{font, tabSize}.resolved(), this);
        constexpr double reach = HeaderTab::reach; // where tabs begin is where their names do
        row_->addItem(new platform::PaddedItem(tabs, {-reach, 0, -reach, 0}));
    }
    row_->addStretch(1);
    add(version_);
    add(update_);
    QObject::connect(update_, &platform::Button::clicked, this, [this] { open(appUpdateURL_); });
    if (menu_ != nullptr) {
        add(menu_);
    }
    showVersionOrUpdate();
}

QString PluginHeaderView::pluginVersion() const {
    return version_->text();
}

void PluginHeaderView::setUpdateDetails(std::optional<UpdateAvailableDetails> details) {
    if (details != updateDetails_) {
        updateDetails_ = std::move(details);
        showVersionOrUpdate();
    }
}

void PluginHeaderView::showVersionOrUpdate() {
    if (updateDetails_) {
        //: A button that leads to an update; %1 is the version, such as 1.2.0
        const QString label = tr("%1 Available").arg(updateDetails_->newVersion);
        update_->setText(label.toUpper());
        update_->setAccessibleName(label);
        update_->updateGeometry();
    }
    version_->setVisible(!updateDetails_);
    update_->setVisible(updateDetails_.has_value());
}

void PluginHeaderView::open(const QUrl& url) {
    if (QThread::currentThread() != thread()) {
        core::fatal("A button of the header is pressed on another thread than the main thread");
    }
    workspace_.open(url);
}

void PluginHeaderView::mirrorMargins() {
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    row_->setContentsMargins(isMirrored ? trailingPadding : leadingPadding, 0,
                             isMirrored ? leadingPadding : trailingPadding, 0);
}

void PluginHeaderView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange) {
        mirrorMargins();
    }
    QWidget::changeEvent(event);
}

void PluginHeaderView::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), kitColor("background"));
}

} // namespace fernhorn
