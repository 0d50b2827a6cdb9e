#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/declarative/button_styles.hpp"
#include "gallery/parts.hpp"
#include "platform/controls/button.hpp"

#include <QHBoxLayout>
#include <QPainter>

namespace gallery {
namespace {

using platform::Button;
using Style = std::shared_ptr<const platform::ButtonStyle>;

/// A button that stays in one state.
class Specimen final : public QWidget {
  public:
    Specimen(Style style, platform::ButtonConfiguration configuration)
        : style_(std::move(style)), configuration_(std::move(configuration)) {
        setFixedSize(104, static_cast<int>(style_->height()));
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        style_->paint(painter, rect(), configuration_);
    }

  private:
    Style style_;
    platform::ButtonConfiguration configuration_;
};

QWidget* labelled(const char* caption, QWidget* content) {
    auto* const cell = new QWidget;
    auto* const column = new QVBoxLayout(cell);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(makeLabel(QString::fromLatin1(caption), 11, "Grey 50%"));
    column->addWidget(content);
    return cell;
}

void addCard(QWidget& view, const char* name, const Style& style) {
    auto* const card = new Card(QString::fromLatin1(name));
    auto* const row = new QHBoxLayout;
    row->setSpacing(24);
    const QString text = QStringLiteral("Get help");
    auto* const live = new Button(text, style);
    live->setLabelWidth(104);
    auto* const disabled = new Button(text, style);
    disabled->setLabelWidth(104);
    disabled->setEnabled(false);
    row->addWidget(labelled("Live", live));
    row->addWidget(labelled("Live, disabled", disabled));
    row->addWidget(labelled("At rest", new Specimen(style, {text, false, true})));
    row->addWidget(labelled("Pressed", new Specimen(style, {text, true, true})));
    row->addWidget(labelled("Disabled, pressed", new Specimen(style, {text, true, false})));
    row->addStretch(1);
    card->column().addLayout(row);
    view.layout()->addWidget(card);
}

} // namespace

Page buttonStylesPage() {
    return {QStringLiteral("button-styles"), QStringLiteral("Driftwood buttons"),
            QStringLiteral("Button styles"),
            QStringLiteral("The looks of declarative buttons: the kit's general one and the "
                           "maker's own."),
            [](QWidget& view) {
                addCard(view, "DefaultKestrelButtonStyle",
                        std::make_shared<driftwood::DefaultKestrelButtonStyle>());
                addCard(view, "FennickButtonStyle",
                        std::make_shared<driftwood::FennickButtonStyle>());
            }};
}

} // namespace gallery
