#include "gallery/driftwood/driftwood_pages.hpp"
#include "gallery/driftwood/state_board.hpp"

#include "driftwood/controls/styled_combo_box.hpp"
#include "driftwood/controls/styled_pop_up_button.hpp"
#include "gallery/parts.hpp"

#include <QLabel>
#include <QLineEdit>

namespace gallery {
namespace {

using driftwood::StyledComboBox;
using driftwood::StyledPopDownButton;
using driftwood::StyledPopUpButton;
using driftwood::ToolPopUpButton;

const QStringList waveNames{QStringLiteral("Sine"), QStringLiteral("Triangle"),
                            QStringLiteral("Square"), QStringLiteral("Noise")};

template<class Button>
Button* withWaves(Button* button) {
    for (const QString& wave : waveNames) {
        button->addItem(wave);
    }
    button->setAccessibleName(QStringLiteral("Waveform"));
    return button;
}

StyledPopDownButton* makePopDown() {
    auto* const button = new StyledPopDownButton(QStringLiteral("Actions"));
    for (const char* const title : {"Duplicate", "Rename…", "Delete"}) {
        button->addItem(QString::fromUtf8(title));
    }
    return button;
}

StyledComboBox* makeCombo(bool isEditable) {
    auto* const combo = withWaves(new StyledComboBox);
    combo->setFieldEditable(isEditable);
    combo->setFixedWidth(136);
    return combo;
}

template<class Make>
Specimen as(const char* caption, Make make) {
    return {QString::fromLatin1(caption), make};
}

template<class Control>
Control* disabled(Control* control) {
    control->setEnabled(false);
    return control;
}
template<class Control>
Control* focused(Control* control) {
    control->setFocusRingPictured(true);
    return control;
}
template<class Control>
Control* lit(Control* control) {
    control->setHighlighted(true);
    return control;
}
StyledPopUpButton* labelled() {
    auto* const button = withWaves(new StyledPopUpButton);
    button->setLabel(QStringLiteral("Wave"));
    return button;
}

} // namespace

Page popUpsPage() {
    return {QStringLiteral("pop-ups"), QStringLiteral("Driftwood controls"),
            QStringLiteral("Pop-up buttons"),
            QStringLiteral("Buttons with menus: press, drag to an item, release; or use the "
                           "arrows."),
            [](QWidget& view) {
                addLiveCard(view,
                            {{withWaves(new StyledPopUpButton), QStringLiteral("One of a list")},
                             {labelled(), QStringLiteral("With a label")},
                             {withWaves(new ToolPopUpButton), QStringLiteral("Among tools")},
                             {makePopDown(), QStringLiteral("Commands; keeps its title")}});
                const auto plain = [] { return withWaves(new StyledPopUpButton); };
                const auto tool = [] { return withWaves(new ToolPopUpButton); };
                addStateBoards(
                    view,
                    {as("Pop-up", plain), as("Pressed", [=] { return lit(plain()); }),
                     as("Focused", [=] { return focused(plain()); }),
                     as("Disabled", [=] { return disabled(plain()); }), as("Labelled", labelled),
                     as("Pressed", [] { return lit(labelled()); }),
                     as("Focused", [] { return focused(labelled()); }),
                     as("Disabled", [] { return disabled(labelled()); }), as("Tool", tool),
                     as("Pressed", [=] { return lit(tool()); }),
                     as("Focused", [=] { return focused(tool()); }),
                     as("Disabled", [=] { return disabled(tool()); }), as("Pull-down", makePopDown),
                     as("Pressed", [] { return lit(makePopDown()); }),
                     as("Focused", [] { return focused(makePopDown()); }),
                     as("Disabled", [] { return disabled(makePopDown()); })},
                    4);
            }};
}

Page comboBoxPage() {
    return {QStringLiteral("combo-box"), QStringLiteral("Driftwood controls"),
            QStringLiteral("StyledComboBox"),
            QStringLiteral("A field with a list of suggestions: type, complete, or choose."),
            [](QWidget& view) {
                addLiveCard(view, {{makeCombo(true), QStringLiteral("Type, or press Down")},
                                   {makeCombo(false), QStringLiteral("Only to choose from")}});
                const auto open = [] {
                    auto* const combo = makeCombo(true);
                    combo->styledCell().setPopupOpen(true);
                    return combo;
                };
                const auto hinting = [] {
                    auto* const combo = makeCombo(true);
                    combo->setCurrentText({});
                    combo->lineEdit()->setPlaceholderText(QStringLiteral("None"));
                    return combo;
                };
                addStateBoards(view,
                               {as("Editable", [] { return makeCombo(true); }), as("Open", open),
                                as("Focused", [] { return focused(makeCombo(true)); }),
                                as("Disabled", [] { return disabled(makeCombo(true)); }),
                                as("To choose from", [] { return makeCombo(false); }),
                                as("Empty", hinting),
                                as("Focused", [] { return focused(makeCombo(false)); }),
                                as("Disabled", [] { return disabled(makeCombo(false)); })},
                               4);
            }};
}

} // namespace gallery
