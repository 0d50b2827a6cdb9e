#include "updates/dialogs/update_dialog.hpp"

#include "platform/assets/system_font.hpp"
#include "platform/controls/padded_item.hpp"
#include "updates/dialogs/message_dialog.hpp"
#include "updates/dialogs/offer_dialog.hpp"
#include "updates/dialogs/permission_dialog.hpp"
#include "updates/dialogs/progress_dialog.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace updates {
namespace {

constexpr int iconSize = 64;
constexpr int iconInset = 3; // from its picture's edge to what is drawn
constexpr int textWidth = 388;
constexpr int longestTextWidth = 560;
constexpr double labelMargin = 16; // of a button, to its edge
constexpr double leastLabelWidth = 96;

/// The program's icon as it is by now: it may come after its windows.
class ProgramIcon final : public QWidget {
  public:
    explicit ProgramIcon(QWidget* parent) : QWidget(parent) { setFixedSize(iconSize, iconSize); }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        QApplication::windowIcon().paint(&painter, rect());
    }
};

QLabel* makeLabel(const QFont& font) {
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setFont(font);
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    label->setMaximumSize(longestTextWidth, label->screen()->availableGeometry().height() / 4);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    return label;
}

} // namespace

UpdateDialog::UpdateDialog(const DialogContext& context, QWidget* parent)
    : QDialog(parent),
      context_(context),
      title_(makeLabel(platform::systemFont(15, QFont::Bold, platform::FontDesign::rounded))),
      text_(makeLabel(platform::systemFont(13, QFont::Medium, platform::FontDesign::rounded))),
      content_(new QVBoxLayout),
      apart_(new QHBoxLayout),
      row_(new QHBoxLayout) {
    //: the title of a window; %1 is the name of the program
    setWindowTitle(tr("%1 Update").arg(context.product));
    auto* const icon = new ProgramIcon(this);

    content_->setSpacing(8);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(0);
    apart_->setSpacing(8);
    row_->setSpacing(8);
    buttons->addLayout(apart_);
    buttons->addSpacing(24);
    buttons->addStretch(1);
    buttons->addLayout(row_);

    auto* const texts = new QVBoxLayout;
    texts->setSpacing(6);
    texts->addWidget(title_);
    texts->addWidget(text_);
    texts->addSpacing(10);
    texts->addLayout(content_);
    texts->addStretch(1);
    auto* const upper = new QHBoxLayout;
    upper->setSpacing(20);
    auto* const place = new platform::PaddedItem(icon, {-iconInset, 0, -iconInset, 0});
    place->setAlignment(Qt::AlignTop);
    upper->addItem(place);
    upper->addLayout(texts, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(24, 24, 24, 20);
    column->setSpacing(16);
    column->addLayout(upper, 1);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void UpdateDialog::say(const QString& title, const QString& text) {
    if (title_->text() == title && text_->text() == text) {
        return;
    }
    title_->setText(title);
    text_->setText(text);
    text_->setVisible(!text.isEmpty());
    setAccessibleName(title);
    setAccessibleDescription(text);
}

platform::Button* UpdateDialog::addButton(const QString& label, Prominence prominence,
                                          const std::function<void()>& action, Place place) {
    const auto& style = prominence == Prominence::prominent ? context_.style.prominentButton
                                                            : context_.style.button;
    auto* const button = new platform::Button(label, style, this);
    button->setLabelWidth(std::max(
        leastLabelWidth, QFontMetricsF(style->font()).horizontalAdvance(label) + 2 * labelMargin));
    connect(button, &QAbstractButton::clicked, this, action);
    (place == Place::apart ? apart_ : row_)
        ->addItem(new platform::PaddedItem(button, style->padding()));
    button->show();
    return button;
}

void UpdateDialog::clearButtons() {
    for (QBoxLayout* const layout : {apart_, row_}) {
        while (QLayoutItem* const item = layout->takeAt(0)) {
            item->widget()->hide();
            item->widget()->deleteLater(); // it may be telling of its click
            delete item;
        }
    }
}

void UpdateDialog::reject() {
    context_.dismiss();
}

void UpdateDialog::end() {
    isOver_ = true;
    if (!isClosing_) {
        close();
    }
}

/// Closing dismisses, and whoever hears of that ends the dialog; unless it has to stay.
void UpdateDialog::closeEvent(QCloseEvent* event) {
    if (!isOver_) {
        isClosing_ = true;
        reject();
        isClosing_ = false;
    }
    event->setAccepted(isOver_);
}

UpdateDialog* makeUpdateDialog(const UpdateScene& scene, const DialogContext& context,
                               QWidget* parent) {
    UpdateDialog* dialog = nullptr;
    if (std::holds_alternative<scene::Nothing>(scene)) {
        return nullptr;
    }
    if (std::holds_alternative<scene::Permission>(scene)) {
        dialog = new PermissionDialog(context, parent);
    } else if (std::holds_alternative<scene::Offer>(scene)) {
        dialog = new OfferDialog(context, parent);
    } else if (ProgressDialog::isFor(scene)) {
        dialog = new ProgressDialog(context, parent);
    } else {
        dialog = new MessageDialog(context, parent);
    }
    dialog->show(scene);
    return dialog;
}

} // namespace updates
