#include "gallery/driftwood/driftwood_pages.hpp"
#include "gallery/driftwood/text_board.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/text/validating_properties_field.hpp"
#include "gallery/parts.hpp"

namespace gallery {
namespace {

using driftwood::ValidatingPropertiesField;
using driftwood::ValidatingTextField;

const platform::ImageAsset* dragSign() {
    return driftwood::resourceBundle().assets().image(QStringLiteral("dwk-customslider-drag"));
}

/// The popover as it stands below a field.
QWidget* popoverPicture() {
    auto* const view = new QWidget;
    auto* const column = new QVBoxLayout(view);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* const field = new ValidatingTextField;
    pictureText(*field, {.name = "", .isFocused = true}, {"", QStringLiteral("my name+")});
    field->setValid(false);
    field->setFixedWidth(220);
    column->addWidget(field);
    auto* const popover = new driftwood::SimpleTextViewPopover;
    popover->contentTextField().setStringValue(QStringLiteral(
        "Constant names must only contain A-Z, a-z, 0-9 and the characters _ and $"));
    popover->picture(*view);
    popover->setFixedSize(popover->size());
    column->addWidget(popover);
    return view;
}

QWidget* liveValidating() {
    auto* const view = new QWidget;
    auto* const row = new QHBoxLayout(view);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(20);
    auto* const name = new ValidatingTextField;
    name->setFormatter(std::make_shared<driftwood::ConstantNameFormatter>());
    name->setObjectValue(driftwood::FieldValue("width"));
    name->setAccessibleName(QStringLiteral("Name of a constant"));
    auto* const hinted = new ValidatingTextField;
    hinted->setPlaceholderString(QStringLiteral("Click here"));
    hinted->setMessage(QStringLiteral("A message shows while the field is focused, valid or not."));
    row->addWidget(captioned("Type a space or a plus sign", name));
    row->addWidget(captioned("With a message", hinted));
    return view;
}

QWidget* validatingSpecimen(const TextLook& look, const TextRow& row) {
    auto* const field = new ValidatingTextField;
    pictureText(*field, look, row);
    field->setValid(look.isValid);
    field->setSelected(look.isSelected);
    return field;
}

QWidget* propertiesSpecimen(const TextLook& look, const TextRow& row) {
    auto* const field = new ValidatingPropertiesField(*dragSign());
    field->textField().setFormatter(nullptr); // what is shown is a text
    field->icon()->setEnabled(look.isEnabled && std::string_view(row.name) == "Value");
    pictureText(field->textField(), look, row);
    field->setAttribute(Qt::WA_TransparentForMouseEvents);
    field->setEnabled(look.isEnabled);
    field->setValid(look.isValid);
    field->setSelected(look.isSelected);
    return field;
}

ValidatingPropertiesField* property(const char* name, driftwood::FieldValue value,
                                    const char* unit) {
    auto* const field = new ValidatingPropertiesField(*dragSign());
    field->setAccessibleName(QString::fromUtf8(name));
    field->icon()->setRange(-60, 60);
    field->icon()->setIncrementBy(0.25);
    auto formatter = std::make_shared<driftwood::ExpressionFormatter>();
    formatter->setPositiveSuffix(unit);
    field->textField().setFormatter(std::move(formatter));
    field->textField().setObjectValue(std::move(value));
    return field;
}

/// Names and values; Tab leads down the column.
QWidget* propertyPane() {
    auto* const pane = new QWidget;
    auto* const grid = new QGridLayout(pane);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    int line = 0;
    const auto add = [&](const char* name, QWidget* field) {
        auto* const label = new driftwood::StyledTextLabel(QString::fromLatin1(name));
        label->setAlignment(platform::LineAlignment::right);
        grid->addWidget(label, line, 0);
        grid->addWidget(field, line++, 1);
    };
    auto* const constant = new ValidatingPropertiesField;
    constant->setAccessibleName(QStringLiteral("Constant"));
    constant->textField().setFormatter(std::make_shared<driftwood::ConstantNameFormatter>());
    constant->textField().setObjectValue(driftwood::FieldValue("depth"));
    add("Constant", constant);
    add("Gain", property("Gain", -3.5, " dB"));
    add("Rate", property("Rate", 0.25, " Hz"));
    add("Width", property("Width", "$depth * 2", " %"));
    return pane;
}

void addTextCard(QWidget& view, const char* heading, QWidget* content) {
    auto* const card = new Card(QString::fromLatin1(heading));
    card->column().addWidget(content);
    view.layout()->addWidget(card);
}

const std::vector<TextLook> validatingLooks{
    {.name = "Valid"},
    {.name = "Focused", .isFocused = true},
    {.name = "Invalid", .isValid = false},
    {.name = "Invalid, focused", .isFocused = true, .isValid = false},
    {.name = "Disabled", .isEnabled = false}};

} // namespace

Page validatingFieldPage() {
    return {QStringLiteral("validating-text-field"), QStringLiteral("Driftwood text"),
            QStringLiteral("ValidatingTextField"),
            QStringLiteral("A field that shows whether its text is valid, and says why in a "
                           "popover."),
            [](QWidget& view) {
                addTextCard(view, "Live", liveValidating());
                addTextCard(view, "The popover", popoverPicture());
                addTextBoards(view, validatingLooks, {{"Text", QStringLiteral("$depth")}},
                              validatingSpecimen);
            }};
}

Page propertiesPage() {
    auto states = validatingLooks;
    states.insert(states.end() - 1, {.name = "Selected", .isSelected = true});
    return {QStringLiteral("validating-properties-field"), QStringLiteral("Driftwood text"),
            QStringLiteral("ValidatingPropertiesField"),
            QStringLiteral("Names, values with units and expressions in a list of properties."),
            [states](QWidget& view) {
                addTextCard(view, "A pane of properties", propertyPane());
                addTextBoards(view, states,
                              {{"Value", QStringLiteral("-3.5 dB")},
                               {"Expression", QStringLiteral("$depth * 2")}},
                              propertiesSpecimen);
            }};
}

} // namespace gallery
