#include "app/program_windows.hpp"

#include "app/dialog_style.hpp"
#include "fernhorn/fonts/fern_font.hpp"
#include "platform/assets/system_font.hpp"
#include "platform/controls/padded_item.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "shaders/about_visual.hpp"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>

namespace larkvox {
namespace {

using platform::FontDesign;

constexpr int visualHeight = 216;
constexpr double labelMargin = 16; // of a button, to its edge

QWidget* makeAboutVisual(QDialog& panel) {
    if (platform::GpuDevice::systemDefault() == nullptr) {
        return nullptr;
    }
    platform::GpuHost::install(panel);
    auto* const container = new QWidget(&panel);
    container->setFixedHeight(visualHeight);
    new kestrel::AboutShaderViewController(container); // owned by the container
    return container;
}

/// A text to be copied, on the ground of a field.
class AddressField final : public QWidget {
  public:
    explicit AddressField(const QString& address) : edit_(new QLineEdit(address)) {
        edit_->setReadOnly(true);
        edit_->setFrame(false);
        edit_->setFont(platform::systemFont(13, QFont::Medium, FontDesign::rounded));
        edit_->setCursorPosition(0);
        QPalette palette = edit_->palette();
        palette.setColor(QPalette::Base, Qt::transparent);
        edit_->setPalette(palette);
        auto* const row = new QHBoxLayout(this);
        row->setContentsMargins(8, 5, 8, 5);
        row->addWidget(edit_);
        setFocusProxy(edit_);
    }
    [[nodiscard]] QLineEdit& edit() const { return *edit_; }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Button), 1));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    }

  private:
    QLineEdit* edit_;
};

class UnopenedPage final : public QDialog {
    Q_DECLARE_TR_FUNCTIONS(larkvox::UnopenedPage)

  public:
    UnopenedPage(const QString& address, QWidget* parent) : QDialog(parent) {
        setAttribute(Qt::WA_DeleteOnClose);
        setWindowTitle(QStringLiteral("Larkvox"));
        const QString title = tr("This page couldn’t be opened");
        const QString text = tr("No program on this computer opens it. This is its address:");
        setAccessibleName(title);
        setAccessibleDescription(text);
        auto* const column = new QVBoxLayout(this);
        column->setContentsMargins(24, 24, 24, 20);
        column->setSpacing(8);
        column->setSizeConstraint(QLayout::SetFixedSize);
        column->addWidget(makeLine(title, 15, QFont::Bold));
        column->addWidget(makeLine(text, 13, QFont::Medium));
        auto* const field = new AddressField(address);
        field->setMinimumWidth(400);
        field->edit().setAccessibleName(tr("Address"));
        column->addWidget(field);
        column->addSpacing(8);
        auto* const row = new QHBoxLayout;
        row->setSpacing(8);
        row->addStretch(1);
        const updates::DialogStyle style = dialogStyle();
        connect(addButton(*row, tr("Close"), style.button), &QAbstractButton::clicked, this,
                &QDialog::reject);
        auto* const copy = addButton(*row, tr("Copy Address"), style.prominentButton);
        connect(copy, &QAbstractButton::clicked, this, [this, address] {
            QApplication::clipboard()->setText(address);
            accept();
        });
        copy->setFocus();
        column->addLayout(row);
    }

  private:
    QLabel* makeLine(const QString& text, double size, QFont::Weight weight) {
        auto* const label = new QLabel(text, this);
        label->setTextFormat(Qt::PlainText);
        label->setFont(platform::systemFont(size, weight, FontDesign::rounded));
        return label;
    }

    platform::Button* addButton(QBoxLayout& row, const QString& label,
                                const std::shared_ptr<const platform::ButtonStyle>& style) {
        auto* const button = new platform::Button(label, style, this);
        button->setLabelWidth(QFontMetricsF(style->font()).horizontalAdvance(label) +
                              2 * labelMargin);
        row.addItem(new platform::PaddedItem(button, style->padding()));
        return button;
    }
};

} // namespace

platform::AboutPanelLook aboutPanelLook() {
    // What the bundle's information says of it; translated where the panel shows it.
    [[maybe_unused]] static constexpr auto credits = QT_TRANSLATE_NOOP(
        "Information",
        "Made by Fennick with Qt. Typefaces derived from Jura by Daniel Johnson and Quicksand by "
        "Andrew Paglinawan, under the SIL Open Font License.");
    return {.button = dialogStyle().button,
            .nameFont = fernhorn::CustomFontModifier{fernhorn::FernFont::rocket, 28}.resolved(),
            .picture = makeAboutVisual};
}

void showUnopenedPage(const QUrl& page) {
    static QPointer<UnopenedPage> shown;
    delete shown;
    shown = new UnopenedPage(page.toString(), QApplication::activeWindow());
    shown->show();
}

} // namespace larkvox
