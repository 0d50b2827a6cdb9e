#include "platform/ui/locale_services.hpp"

#include "core/bundle_information.hpp"
#include "core/text_service.hpp"
#include "platform/assets/bundle.hpp"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace platform {
namespace {

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text by which others are found: letters without case and marks, and where in the whole text
/// each of its units came from.
struct SearchText {
    QString folded;
    std::vector<qsizetype> from; // in the whole text; at the end its length

    explicit SearchText(const QString& text) {
        qsizetype at = 0;
        for (const char32_t character : text.toUcs4()) {
            const QString whole = QString::fromUcs4(&character, 1);
            for (const char32_t part :
                 whole.normalized(QString::NormalizationForm_KD).toCaseFolded().toUcs4()) {
                if (!QChar::isMark(part)) {
                    const QString unit = QString::fromUcs4(&part, 1);
                    folded += unit;
                    from.insert(from.end(), static_cast<std::size_t>(unit.size()), at);
                }
            }
            at += whole.size();
        }
        from.push_back(at);
    }
};

class LocaleTextService final : public core::TextService {
  public:
    LocaleTextService() { locale_.setNumberOptions(QLocale::OmitGroupSeparator); }

    [[nodiscard]] std::string lowercase(std::string_view text) const override {
        return locale_.toLower(fromUtf8(text)).toStdString();
    }

    [[nodiscard]] std::string localizedWholeNumber(double value) const override {
        // Rounded first, halves to even as the C library does; the locale only writes.
        return locale_.toString(std::nearbyint(value), 'f', 0).toStdString();
    }

    [[nodiscard]] bool isAlphanumeric(char32_t character) const override {
        return QChar::isLetterOrNumber(character) || QChar::isMark(character);
    }

    [[nodiscard]] std::optional<core::TextRange>
    localizedStandardFind(std::string_view text, std::string_view wanted) const override {
        const QString whole = fromUtf8(text);
        const SearchText in(whole);
        const SearchText what(fromUtf8(wanted));
        const qsizetype found = what.folded.isEmpty() ? -1 : in.folded.indexOf(what.folded);
        if (found < 0) {
            return std::nullopt;
        }
        // What a last letter is only a part of, and the marks that follow it, belong to it.
        auto last = static_cast<std::size_t>(found + what.folded.size());
        while (last + 1 < in.from.size() && in.from[last] == in.from[last - 1]) {
            ++last;
        }
        const auto bytes = [&](qsizetype units) { // bytes that are no text stand for more of them
            return std::min(
                static_cast<std::size_t>(QStringView(whole).first(units).toUtf8().size()),
                text.size());
        };
        return core::TextRange{bytes(in.from[static_cast<std::size_t>(found)]),
                               bytes(in.from[last])};
    }

    [[nodiscard]] std::string translate(const char* context, const char* text) const override {
        return QCoreApplication::translate(context, text).toStdString();
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
