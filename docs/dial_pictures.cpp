// dial_pictures FOLDER: writes the pictures of the dials in plugin_controls.md. They are made by
//   QT_SCALE_FACTOR=2 QT_QPA_PLATFORM=offscreen build/dev/bin/dial_pictures docs/images

#include "fernhorn/dials/dial.hpp"
#include "fernhorn/dials/value_label.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/format/default_label_formatter.hpp"
#include "platform/ui/appearance.hpp"

#include <QApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QPixmap>

namespace {

using namespace fernhorn;
using Unit = platform::AudioUnitParameterUnit;

std::shared_ptr<AudioParameter> makeParameter(const char* name, Unit unit, float value) {
    const ValueRange range{0, unit == Unit::hertz ? 20000.0F : 100.0F};
    return std::make_shared<AudioParameter>(0, name, name, unit, range, value,
                                            ValueIncrement::linear());
}

LabelDisplayOptions look(double size, bool showSuffix, bool showName = false) {
    return {.valueColor = {0.85F, 0.84F, 0.86F, 1},
            .labelFontSize = 11,
            .valueFontSize = size,
            .editingFontSize = size,
            .showSuffix = showSuffix,
            .showName = showName,
            .labelWidth = size * 4};
}

/// Controls in a row on the ground of the kit.
class Picture {
  public:
    Picture() : row_(new QHBoxLayout(&ground_)) {
        QPalette palette = ground_.palette();
        palette.setColor(QPalette::Window,
                         resourceBundle().assets().color(QStringLiteral("background")));
        ground_.setPalette(palette);
        row_->setContentsMargins(12, 12, 12, 12);
        row_->setSpacing(18);
    }

    template<class Control>
    Control& add(Control* control) {
        row_->addWidget(control);
        return *control;
    }

    /// `spare`: points at the lower edge that are left away.
    bool write(const QString& folder, const char* name, int spare = 0) {
        ground_.setAttribute(Qt::WA_DontShowOnScreen);
        ground_.show();
        for (const auto& open : afterShowing) {
            open();
        }
        QApplication::setActiveWindow(&ground_);
        QCoreApplication::processEvents();
        return ground_.grab(ground_.rect().adjusted(0, 0, 0, -spare))
            .save(folder + u'/' + QLatin1String(name) + QStringLiteral(".png"));
    }

    std::vector<std::function<void()>> afterShowing;

  private:
    QWidget ground_;
    QHBoxLayout* row_;
};

bool writeChaosDial(const QString& folder) {
    Picture picture;
    for (const float value : {0.0F, 50.0F, 87.5F, 30.0F, 62.5F}) {
        auto& dial = picture.add(new ChaosDial(makeParameter("Attack", Unit::milliseconds, value),
                                               ModernDialColor::grey, look(13, true)));
        dial.setEnabled(value != 30);
        if (value == 62.5F) {
            picture.afterShowing.emplace_back([&dial] { dial.openField(); });
        }
    }
    return picture.write(folder, "chaos_dial", 16);
}

bool writeMediumDial(const QString& folder) {
    Picture picture;
    float value = 20;
    for (const auto color : {SmallDialColor::blue, SmallDialColor::yellow, SmallDialColor::red,
                             SmallDialColor::purple}) {
        picture.add(
            new MediumDial(makeParameter("Blend", Unit::percent, value), color, look(13, true)));
        value += 22.5F;
    }
    return picture.write(folder, "medium_dial", 26);
}

bool writeTinyDial(const QString& folder) {
    Picture picture;
    for (const float value : {0.0F, 50.0F, 75.0F, 100.0F}) {
        const auto parameter = makeParameter("Band", Unit::percent, value);
        picture.add(new TinyDial(parameter, look(10, false),
                                 std::make_shared<DefaultLabelFormatter>(*parameter, 0)));
    }
    return picture.write(folder, "tiny_dial");
}

bool writeDialLabel(const QString& folder) {
    Picture picture;
    for (const bool isOpen : {false, true}) {
        const auto parameter = makeParameter("Cutoff", Unit::hertz, 440);
        auto& label = picture.add(new DialLabel(
            parameter, look(14, true, true), std::make_shared<DefaultLabelFormatter>(*parameter, 1),
            {}, resourceBundle().assets().color(QStringLiteral("pluginGrey")),
            FernFont::dosisMedium));
        if (isOpen) {
            picture.afterShowing.emplace_back([&label] { label.openField(); });
        }
    }
    return picture.write(folder, "dial_label");
}

bool writeKnobControl(const QString& folder) {
    Picture picture;
    for (const float value : {10.0F, 50.0F, 90.0F}) {
        auto& knob = picture.add(
            new KnobControl(makeParameter("Attack", Unit::percent, value), 6, 0.005F, 51,
                            [](QPainter& painter, const QRectF& rect, int imageIndex) {
                                painter.setRenderHint(QPainter::Antialiasing);
                                painter.setPen(Qt::NoPen);
                                painter.setBrush(QColor(0x7f, 0xb6, 0xff));
                                painter.drawPie(rect, 225 * 16, -imageIndex * 270 * 16 / 51);
                            }));
        knob.setFixedSize(40, 40);
    }
    return picture.write(folder, "knob_control");
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    platform::setAppearance(application, platform::Appearance::darkAqua);
    resourceBundle().assets().registerFonts();
    const QString folder = QApplication::arguments().value(1, QStringLiteral("."));
    const bool isWritten = writeChaosDial(folder) && writeMediumDial(folder) &&
                           writeTinyDial(folder) && writeDialLabel(folder) &&
                           writeKnobControl(folder);
    return isWritten ? 0 : 1;
}
