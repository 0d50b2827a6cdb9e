#include "gallery/driftwood/preset_pane.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "gallery/parts.hpp"
#include "platform/controls/padded_item.hpp"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>

#include <array>

namespace gallery {
namespace {

using namespace driftwood;

constexpr double paneWidth = 520;
constexpr double labelWidth = 96;
constexpr int readOutWidth = 64;
constexpr int mixedWave = -1;
constexpr double mostCents = 1200;

constexpr std::array waveTitles{"Sine", "Triangle", "Saw", "Square"};
constexpr std::array voiceTitles{"Mono", "Poly", "Unison"};
constexpr std::array categories{"Bass", "Keys", "Lead", "Pad", "Pluck", "Strings"};

const platform::ImageAsset* sign(const char* name) {
    return resourceBundle().assets().image(QString::fromLatin1(name));
}

std::shared_ptr<DriftSegmentedControlModel> makeVoices() {
    DriftSegmentedControlModel::Items items;
    for (int i = 0; i < static_cast<int>(voiceTitles.size()); ++i) {
        items.push_back(
            std::make_shared<const DriftSegmentItem>(i, voiceTitles[static_cast<std::size_t>(i)]));
    }
    return std::make_shared<DriftSegmentedControlModel>(items);
}

/// In a wide column at its own width.
QWidget* leading(QWidget* control) {
    auto* const row = new QWidget;
    auto* const line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(control);
    line->addStretch(1);
    return row;
}

} // namespace

PresetPane::PresetPane(std::shared_ptr<PresetEdits> edits, QWidget* parent)
    : QWidget(parent),
      edits_(std::move(edits)),
      wave_(std::make_shared<core::Observable<int>>(mixedWave)),
      voices_(makeVoices()) {
    QWidget* const level =
        makeNumber(QStringLiteral("Level"), QStringLiteral("%"), &Preset::level, 100, 1);
    QWidget* const cutoff =
        makeNumber(QStringLiteral("Cutoff"), QStringLiteral("%"), &Preset::cutoff, 100, 1);
    QWidget* const attack =
        makeNumber(QStringLiteral("Attack"), QStringLiteral("ms"), &Preset::attack, 500, 5);

    waveButton_ = new StyledPopUpButtonWrapper<int>({}, core::Binding<int>(wave_));
    waveButton_->button().setAccessibleName(QStringLiteral("Waveform"));
    readings_.push_back(wave_->observe([this](int wave) {
        if (!isRefreshing_ && wave != mixedWave) {
            edits_->change(&Preset::wave, wave);
            tell();
        }
    }));

    voices_->onSelectionChanged = [this](const auto& selected) {
        if (selected == nullptr) { // a preset always has voices
            refresh();
            return;
        }
        edits_->change(&Preset::voices, selected->id);
        tell();
    };

    category_ = new StyledComboBox;
    for (const char* const name : categories) {
        category_->addItem(QString::fromLatin1(name));
    }
    category_->setAction(
        [this](ActionTarget&, platform::Control&) {
            edits_->change(&Preset::category, category_->currentText().toStdString());
            tell();
        },
        *this);
    makeFields();
    favourite_ = makeBox(QStringLiteral("Favourite"));
    followsKey_ = makeBox(QStringLiteral("Filter follows the keyboard"));

    auto* const settings = new DriftSettings(
        paneWidth,
        {new DriftSettingsSection(QStringLiteral("Constant"), {constant_}),
         new DriftSettingsDivider, new DriftSettingsSection(QStringLiteral("Level"), {level}),
         new DriftSettingsSection(QStringLiteral("Cutoff"), {cutoff}),
         new DriftSettingsSection(QStringLiteral("Attack"), {attack}),
         new DriftSettingsSection(QStringLiteral("Tune"), {tune_}), new DriftSettingsDivider,
         new DriftSettingsSection(QStringLiteral("Waveform"), {waveButton_}),
         new DriftSettingsSection(QStringLiteral("Voices"),
                                  {leading(new DriftSegmentedControl(voices_))}),
         new DriftSettingsSection(QStringLiteral("Category"), {category_}),
         new DriftSettingsDivider,
         new DriftSettingsSection(QStringLiteral("Options"), {favourite_, followsKey_})});
    favourite_->setAccessibleName({}); // it has its own title
    platform::setEnvironment(*settings, std::make_shared<DriftSettingsConfig>(labelWidth));
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(settings);
    refresh();
}

PresetPane::~PresetPane() {
    retire();
}

void PresetPane::makeFields() {
    constant_ = new ValidatingTextField; // its message appears while one types
    constant_->setFormatter(std::make_shared<ConstantNameFormatter>());
    constant_->setAction(&PresetPane::applyConstant, *this);

    tune_ = new ValidatingPropertiesField(*sign("dwk-customslider-drag"));
    auto cents = std::make_shared<ExpressionFormatter>();
    cents->setPositiveSuffix(" ct");
    tune_->textField().setFormatter(std::move(cents));
    tune_->textField().setAction(&PresetPane::applyTune, *this);
    TrackingSlider& icon = *tune_->icon();
    icon.setRange(-mostCents, mostCents);
    icon.setIncrementBy(1);
    icon.setUnit(QStringLiteral("ct"));
    // A drag is one step, however many values it goes through.
    icon.onSlideStarted = [this](double) {
        isDraggingTune_ = true;
        edits_->beginStep();
    };
    icon.onSlideComplete = [this](double) { isDraggingTune_ = false; };
    // One that is taken away is a click.
    tuneClicks_ = icon.clicked().subscribe([this](const Click&) { isDraggingTune_ = false; });
}

/// What is refused stays in its field, with its reason.
void PresetPane::applyConstant(platform::Control& /*sender*/) {
    const FieldValue value = constant_->objectValue();
    const auto* const name = std::get_if<std::string>(&value);
    if (!constant_->isValid()) {
        return;
    }
    if (name != nullptr && !name->empty() && edits_->common(&Preset::constant) != *name) {
        edits_->change(&Preset::constant, *name);
        tell();
    }
    refreshFields();
}

void PresetPane::applyTune(platform::Control& /*sender*/) {
    const FieldValue value = tune_->textField().objectValue();
    const auto* const expression = std::get_if<std::string>(&value);
    const bool isEmpty = value == FieldValue() || (expression != nullptr && expression->empty());
    if (!tune_->isValid()) {
        return;
    }
    if (!isEmpty && edits_->common(&Preset::tune) != value) {
        if (isDraggingTune_) {
            edits_->set(&Preset::tune, value);
        } else {
            edits_->change(&Preset::tune, value);
        }
        tell();
    }
    if (!isDraggingTune_) {
        refreshFields();
    }
}

void PresetPane::refreshFields() {
    const auto show = [](FirstResponderAwareTextField& field, std::optional<FieldValue> common) {
        field.setPlaceholderString(common ? QString() : QStringLiteral("Mixed"));
        field.setObjectValue(common.value_or(FieldValue()));
    };
    show(*constant_, edits_->common(&Preset::constant));
    show(tune_->textField(), edits_->common(&Preset::tune));
}

StyledCheckBox* PresetPane::makeBox(const QString& title) {
    auto* const box = new StyledCheckBox(title);
    box->setAction(&PresetPane::boxClicked, *this);
    return box;
}

void PresetPane::boxClicked(platform::Control& sender) {
    const auto& box = static_cast<const StyledCheckBox&>(sender);
    edits_->change(&box == favourite_ ? &Preset::isFavourite : &Preset::followsKey,
                   box.state() == platform::StateValue::on);
    tell();
}

void PresetPane::tell() {
    if (changed) {
        changed();
    }
}

QWidget* PresetPane::makeNumber(const QString& name, const QString& unit, double Preset::*property,
                                double maximum, double step) {
    auto* const row = new QWidget;
    auto* const line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(10);
    QLabel* const readOut = makeLabel({}, 11, "Grey 70%");
    readOut->setFixedWidth(readOutWidth);
    const auto empty = std::make_shared<DriftSliderModel>(
        std::vector<double>{}, 0, 0, maximum, step, SliderIconClickBehaviour::increment);
    auto* const slider =
        new DriftSlider(empty, sign("dwk-customslider-less"), sign("dwk-customslider-more"), row);
    slider->setValueName(name, unit);
    line->addItem(new platform::PaddedItem(slider, DriftSlider::padding()));
    line->addWidget(readOut);
    numbers_.push_back({property, slider, readOut});
    ranges_.emplace_back(maximum, step);
    return row;
}

/// A model for what is selected now. Its callbacks own what they use.
void PresetPane::giveModel(const NumberRow& row, double maximum, double step) {
    const auto model =
        std::make_shared<DriftSliderModel>(edits_->values(row.property), maximum / 2, 0, maximum,
                                           step, SliderIconClickBehaviour::increment);
    const QPointer<PresetPane> pane(this);
    const auto isDragging = std::make_shared<bool>(false);
    const auto apply = [edits = edits_, property = row.property, pane](double value) {
        edits->set(property, value);
        if (pane != nullptr) {
            pane->tell();
        }
    };
    model->onSlideStarted = [edits = edits_, isDragging, apply](double value) {
        *isDragging = true;
        edits->beginStep();
        apply(value);
    };
    model->onSlideOngoing = apply;
    model->onSlideComplete = [edits = edits_, isDragging, apply](double value) {
        if (!std::exchange(*isDragging, false)) { // by an icon or a key
            edits->beginStep();
        }
        apply(value);
    };
    readings_.push_back(model->value.observe([this, row](const auto&) { showNumber(row); }));
    row.slider->setModel(model);
    showNumber(row);
}

void PresetPane::showNumber(const NumberRow& row) {
    row.readOut->setText(row.slider->track().valueText());
}

void PresetPane::refreshWave() {
    const std::optional<int> common = edits_->common(&Preset::wave);
    StyledPopUpButtonWrapper<int>::Items items;
    if (!common) {
        items.push_back(
            {.object = mixedWave, .title = QStringLiteral("Mixed"), .isEnabled = false});
        items.push_back({.isDivider = true});
    }
    for (std::size_t i = 0; i < waveTitles.size(); ++i) {
        items.push_back({static_cast<int>(i), QString::fromLatin1(waveTitles[i])});
    }
    wave_->set(common.value_or(mixedWave));
    waveButton_->setItems(std::move(items));
}

void PresetPane::refresh() {
    isRefreshing_ = true;
    readings_.resize(1); // those of the numbers' former models go
    for (std::size_t i = 0; i < numbers_.size(); ++i) {
        giveModel(numbers_[i], ranges_[i].first, ranges_[i].second);
    }
    refreshFields();
    refreshWave();
    voices_->selectedItem.set(nullptr);
    if (const auto voices = edits_->common(&Preset::voices)) {
        voices_->select(*voices);
    }
    const auto category = edits_->common(&Preset::category);
    category_->setCurrentText(QString::fromStdString(category.value_or(std::string())));
    category_->lineEdit()->setPlaceholderText(category ? QString() : QStringLiteral("Mixed"));
    const auto show = [this](StyledCheckBox& box, bool Preset::*property) {
        const auto state = edits_->common(property);
        box.setState(!state   ? platform::StateValue::mixed
                     : *state ? platform::StateValue::on
                              : platform::StateValue::off);
    };
    show(*favourite_, &Preset::isFavourite);
    show(*followsKey_, &Preset::followsKey);
    isRefreshing_ = false;
}

} // namespace gallery
