// A window of text fields for the test over the accessibility bus.

#include "driftwood/text/declarative_text_fields.hpp"
#include "driftwood/text/validating_properties_field.hpp"

#include <QApplication>
#include <QVBoxLayout>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("text_at_spi_sample"));
    QWidget window;
    auto* const column = new QVBoxLayout(&window);
    auto* const plain = new driftwood::StyledTextField;
    plain->setAccessibleName(QStringLiteral("Preset"));
    plain->setStringValue(QStringLiteral("Glass Horizon"));
    auto* const label = new driftwood::StyledTextLabel(QStringLiteral("Shown only"));
    auto* const name = new driftwood::ValidatingTextField;
    name->setAccessibleName(QStringLiteral("Constant"));
    name->setFormatter(std::make_shared<driftwood::ConstantNameFormatter>());
    auto* const gain = new driftwood::ValidatingPropertiesField;
    gain->setAccessibleName(QStringLiteral("Gain"));
    auto decibels = std::make_shared<driftwood::ExpressionFormatter>();
    decibels->setPositiveSuffix(" dB");
    gain->textField().setFormatter(decibels);
    gain->textField().setObjectValue(driftwood::FieldValue(-3.0));
    auto* const search = new driftwood::StyledSearchField;
    search->setPlaceholderString(QStringLiteral("Search presets"));
    search->setStringValue(QStringLiteral("pad"));
    auto* const disabled = new driftwood::StyledTextField;
    disabled->setAccessibleName(QStringLiteral("Out of reach"));
    disabled->setEnabled(false);
    for (QWidget* const field :
         std::initializer_list<QWidget*>{plain, label, name, gain, search, disabled}) {
        column->addWidget(field);
    }
    window.show();
    QApplication::setActiveWindow(&window);
    name->setFocus();
    return QApplication::exec();
}
