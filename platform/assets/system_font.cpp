#include "platform/assets/system_font.hpp"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>

#include <cmath>

namespace platform {

namespace {

bool hasDigitsOfOneWidth(const QFont& font) {
    QFont large = font; // where rounding to pixels counts little
    large.setPixelSize(200);
    const QFontMetricsF metrics(large);
    const double width = metrics.horizontalAdvance(QLatin1Char('0'));
    for (char digit = '1'; digit <= '9'; ++digit) {
        if (std::abs(metrics.horizontalAdvance(QLatin1Char(digit)) - width) > 0.5) {
            return false;
        }
    }
    return true;
}

/// The face that digits of one width are taken from, beside `font`.
QString familyWithDigits(const QFont& font) {
    const QStringList all = QFontDatabase::families(QFontDatabase::Latin);
    QStringList candidates{QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans"),
                           QStringLiteral("Liberation Sans"), QStringLiteral("Open Sans")};
    candidates.removeIf([&](const QString& family) { return !all.contains(family); });
    for (const QString& family : candidates + all) {
        QFont candidate = font;
        candidate.setFamilies({family});
        if (QFontDatabase::isSmoothlyScalable(family) && !QFontDatabase::isFixedPitch(family) &&
            !QFontDatabase::isPrivateFamily(family) && hasDigitsOfOneWidth(candidate)) {
            return family;
        }
    }
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

void takeDigitsOfOneWidth(QFont& font) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
    font.setFeature(QFont::Tag("tnum"), 1);
#endif
    if (!hasDigitsOfOneWidth(font)) {
        static const QString family = familyWithDigits(font);
        font.setFamilies({family});
    }
}

} // namespace

QFont systemFont(double size, QFont::Weight weight, FontDesign design, FontDigits digits) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    if (design == FontDesign::rounded) {
        font.setFamilies({QStringLiteral("Fennick Rounded"), font.family()});
    }
    font.setPixelSize(qRound(size)); // a point is a device-independent pixel
    font.setWeight(weight);
    if (digits == FontDigits::monospaced) {
        takeDigitsOfOneWidth(font);
    }
    return font;
}

} // namespace platform
