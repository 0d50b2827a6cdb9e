#include "platform/ui/locale_services.hpp"

#include "core/bundle_information.hpp"
#include "core/text_service.hpp"
#include "platform/assets/bundle.hpp"

#include <QLocale>

#include <cmath>
#include <optional>
#include <string>

namespace platform {
namespace {

class LocaleTextService final : public core::TextService {
  public:
    LocaleTextService() { locale_.setNumberOptions(QLocale::OmitGroupSeparator); }

    [[nodiscard]] std::string lowercase(std::string_view text) const override {
        return locale_.toLower(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())))
            .toStdString();
    }

    [[nodiscard]] std::string localizedWholeNumber(double value) const override {
        // Rounded first, halves to even as the C library does; the locale only writes.
        return locale_.toString(std::nearbyint(value), 'f', 0).toStdString();
    }

  private:
    QLocale locale_; // the one of the start, so that any thread may use it
};

} // namespace

void installLocaleServices() {
    static const LocaleTextService texts;
    core::TextService::install(&texts);
    Bundle::main(); // found here, where there is an application object
    core::setBundleInformationSource([](std::string_view key) -> std::optional<std::string> {
        const QString value = Bundle::main().information(
            QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())));
        return value.isNull() ? std::nullopt : std::optional(value.toStdString());
    });
}

} // namespace platform
