#pragma once

#include "fernhorn/fonts/fern_font.hpp"
#include "fernhorn/model/audio_parameter.hpp"
#include "platform/ui/workspace.hpp"

#include <QString>
#include <QUrl>
#include <QWidget>

#include <memory>
#include <optional>

class QHBoxLayout;
class QLabel;

namespace platform {
class Button;
}

namespace fernhorn {

namespace addresses {
/// The maker's website, unless a plug-in says otherwise.
inline constexpr const char* makerWebsite = "https://www.fennick.example/";
} // namespace addresses

/// What is known of a newer release. A value.
struct UpdateAvailableDetails {
    QString newVersion; ///< its number, as it is shown

    friend bool operator==(const UpdateAvailableDetails&, const UpdateAvailableDetails&) = default;
};

/// The strip above a plug-in's pages: the maker's logo, the tabs of the pages, the version or an
/// update, and the plug-in's menu. 46 points high. Right-to-left languages see it mirrored. Main
/// thread.
class PluginHeaderView final : public QWidget {
    Q_OBJECT

  public:
    /// `appUpdateURL` is where the update button leads; `tabParameter` (not null) is indexed, its
    /// value strings name the tabs, and without them there are none; `menu` becomes a child and may
    /// be null. The workspace outlives the view.
    PluginHeaderView(QUrl appUpdateURL, const QString& pluginVersion,
                     std::shared_ptr<AudioParameter> tabParameter,
                     std::optional<UpdateAvailableDetails> updateDetails, FernFont font,
                     QWidget* menu, QWidget* parent = nullptr,
                     platform::Workspace& workspace = platform::Workspace::shared(),
                     QUrl makerWebsite = QUrl(QString::fromLatin1(addresses::makerWebsite)));

    [[nodiscard]] const QUrl& appUpdateURL() const { return appUpdateURL_; }
    [[nodiscard]] QString pluginVersion() const;
    [[nodiscard]] const std::shared_ptr<AudioParameter>& tabParameter() const {
        return tabParameter_;
    }
    [[nodiscard]] const std::optional<UpdateAvailableDetails>& updateDetails() const {
        return updateDetails_;
    }
    /// Shows the update button, or without details the version again.
    void setUpdateDetails(std::optional<UpdateAvailableDetails> details);
    [[nodiscard]] FernFont fernFont() const { return font_; }
    [[nodiscard]] QWidget* menu() const { return menu_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void open(const QUrl& url);
    void mirrorMargins();
    void showVersionOrUpdate();

    QUrl appUpdateURL_;
    std::shared_ptr<AudioParameter> tabParameter_;
    std::optional<UpdateAvailableDetails> updateDetails_;
    FernFont font_;
    platform::Workspace& workspace_;
    QUrl makerWebsite_;
    QHBoxLayout* row_;
    QLabel* version_;
    platform::Button* update_;
    QWidget* menu_;
};

} // namespace fernhorn
