#include "gallery/driftwood/driftwood_pages.hpp"
#include "gallery/driftwood/text_board.hpp"

#include "driftwood/text/declarative_text_fields.hpp"
#include "gallery/parts.hpp"

namespace gallery {
namespace {

using driftwood::StyledTextField;

QWidget* textFieldSpecimen(const TextLook& look, const TextRow& row) {
    auto* const field = new StyledTextField;
    pictureText(*field, look, row);
    field->setSelected(look.isSelected);
    return field;
}

QWidget* liveFields() {
    auto* const view = new QWidget;
    auto* const row = new QHBoxLayout(view);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(20);
    auto* const plain = new StyledTextField;
    plain->setPlaceholderString(QStringLiteral("Type a name"));
    plain->setAllowsExpansionToolTips(true);
    auto* const growing = new driftwood::WidthResizingTextField;
    growing->setStringValue(QStringLiteral("Grows"));
    auto* const tight = new StyledTextField;
    tight->setAllowsDefaultTighteningForTruncation(true);
    tight->setLineBreakMode(platform::LineEliding::middle);
    tight->setStringValue(QStringLiteral("/presets/leads/Glass Horizon.preset"));
    tight->setFixedWidth(150);
    row->addWidget(captioned("StyledTextField", plain), 2);
    row->addWidget(captioned("WidthResizingTextField", growing));
    row->addWidget(captioned("Left out in the middle", tight));
    row->addStretch(1);
    return view;
}

/// Two views that edit one text.
QWidget* declarativeFields() {
    auto* const view = new QWidget;
    auto* const row = new QHBoxLayout(view);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(20);
    const auto text =
        std::make_shared<core::Observable<QString>>(QStringLiteral("One text, two fields"));
    for (const auto side :
         {driftwood::TextAlignment::leading, driftwood::TextAlignment::trailing}) {
        auto* const field = new driftwood::KestrelStyledTextField(QStringLiteral("Nothing yet"),
                                                                  core::Binding(text));
        const auto environment = std::make_shared<driftwood::TextEnvironment>();
        environment->multilineTextAlignment = side;
        platform::setEnvironment(*field, environment);
        row->addWidget(field);
    }
    return view;
}

} // namespace

Page textFieldPage() {
    return {QStringLiteral("styled-text-field"), QStringLiteral("Driftwood text"),
            QStringLiteral("StyledTextField"),
            QStringLiteral("The kit's text field: the cell paints it, the toolkit's line edit "
                           "takes the typing."),
            [](QWidget& view) {
                auto* const live = new Card(QStringLiteral("Live"));
                live->column().addWidget(liveFields());
                view.layout()->addWidget(live);
                auto* const bound = new Card(QStringLiteral("KestrelStyledTextField, bound"));
                bound->column().addWidget(declarativeFields());
                view.layout()->addWidget(bound);
                addTextBoards(view,
                              {{.name = "At rest"},
                               {.name = "Focused", .isFocused = true},
                               {.name = "Selected", .isSelected = true},
                               {.name = "Disabled", .isEnabled = false}},
                              {{"Text", QStringLiteral("Glass Horizon")},
                               {"Placeholder", {}, QStringLiteral("Name")},
                               {"Too long", QStringLiteral("A name that is far too long for it")},
                               {"Hebrew", QString::fromUtf8("שלום עולם")}},
                              textFieldSpecimen);
            }};
}

Page textLabelPage() {
    return {QStringLiteral("styled-text-label"), QStringLiteral("Driftwood text"),
            QStringLiteral("Labels"),
            QStringLiteral("Texts that are only shown, beside controls and in the rows of tables."),
            [](QWidget& view) {
                const auto label = [](const TextLook& look, const TextRow& row) -> QWidget* {
                    const std::string_view kind = row.name;
                    StyledTextField* made = nullptr;
                    if (kind == "Label") {
                        made = new driftwood::StyledTextLabel;
                    } else if (kind == "Row") {
                        made = new driftwood::StyledTableRowLabel;
                    } else {
                        made = new driftwood::StyledTableGroupRowLabel;
                    }
                    pictureText(*made, look, row);
                    made->setSelected(look.isSelected);
                    // Selected, the ground is the row's; here the label's own shows it.
                    made->setDrawsBackground(look.isSelected);
                    return made;
                };
                addTextBoards(view,
                              {{.name = "At rest"},
                               {.name = "Selected", .isSelected = true},
                               {.name = "Disabled", .isEnabled = false}},
                              {{"Label", QStringLiteral("Attack")},
                               {"Row", QStringLiteral("Formant shift 12")},
                               {"Group row", QStringLiteral("Modulation")}},
                              label);
            }};
}

} // namespace gallery
