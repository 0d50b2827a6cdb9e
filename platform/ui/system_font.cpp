#include "platform/ui/system_font.hpp"

#include <QFontDatabase>
#include <QStringList>

namespace platform {

QFont systemFont(double size, QFont::Weight weight, FontDesign design) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    if (design == FontDesign::rounded) {
        font.setFamilies({QStringLiteral("Fennick Rounded"), font.family()});
    }
    font.setPixelSize(qRound(size)); // a point is a device-independent pixel
    font.setWeight(weight);
    return font;
}

} // namespace platform
