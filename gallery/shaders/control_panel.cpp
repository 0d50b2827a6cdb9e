#include "gallery/shaders/control_panel.hpp"

#include "driftwood/controls/kestrel_push_button.hpp"
#include "driftwood/controls/styled_check_box.hpp"
#include "gallery/parts.hpp"
#include "platform/assets/system_font.hpp"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QSlider>

namespace gallery {
namespace {

/// A row of the kit's colours.
class Swatches final : public QWidget {
  public:
    Swatches() { setFixedHeight(20); }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        double x = 0;
        for (const char* const name :
             {"Kestrel/Aqua", "Kestrel/Blue", "Kestrel/LightBlue", "Kestrel/Purple", "Kestrel/Red",
              "Kestrel/Orange", "Kestrel/Yellow", "Grey 50%", "Grey 100%"}) {
            painter.setBrush(kitColor(name));
            painter.drawRoundedRect(QRectF(x, 0, 20, 20), 3, 3);
            x += 28;
        }
    }
};

QWidget* makeSlider(const char* name, int value) {
    auto* const slider = new QSlider(Qt::Horizontal);
    slider->setAccessibleName(QString::fromLatin1(name));
    slider->setRange(0, 100);
    slider->setValue(value);
    return slider;
}

} // namespace

QWidget* makeControlPanel() {
    auto* const panel = new QWidget;
    QPalette palette = panel->palette();
    palette.setColor(QPalette::Window, kitColor("Background/Darker"));
    panel->setPalette(palette);
    panel->setAutoFillBackground(true); // the ground is shaded, too
    auto* const column = new QVBoxLayout(panel);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    column->addWidget(makeLabel(QStringLiteral("Night choir"), 16, "Grey 85%", QFont::Medium));
    column->addWidget(new Swatches);
    auto* const name = new QLineEdit(QStringLiteral("Any text"));
    name->setAccessibleName(QStringLiteral("Name"));
    name->setFont(platform::systemFont(13, QFont::Medium, platform::FontDesign::rounded));
    column->addWidget(name);
    auto* const boxes = new QHBoxLayout;
    for (const char* const title : {"Loop", "Sync"}) {
        auto* const box = new driftwood::StyledCheckBox(QString::fromLatin1(title));
        box->setState(platform::StateValue::on);
        boxes->addWidget(box);
    }
    boxes->addStretch(1);
    column->addLayout(boxes);
    column->addWidget(makeSlider("Breath", 35));
    column->addWidget(makeSlider("Width", 70));
    column->addStretch(1);
    auto* const buttons = new QHBoxLayout;
    for (const char* const title : {"Cancel", "Save"}) {
        buttons->addWidget(new driftwood::KestrelPushButton(QString::fromLatin1(title)));
    }
    column->addLayout(buttons);
    return panel;
}

} // namespace gallery
