#pragma once

#include "driftwood/controls/styled_check_box.hpp"
#include "driftwood/controls/styled_combo_box.hpp"
#include "driftwood/declarative/drift_segmented_control.hpp"
#include "driftwood/declarative/drift_settings.hpp"
#include "driftwood/declarative/drift_slider.hpp"
#include "driftwood/declarative/styled_pop_up_button_wrapper.hpp"
#include "driftwood/text/validating_properties_field.hpp"
#include "gallery/driftwood/preset_edits.hpp"

#include <functional>

class QLabel;

namespace gallery {

/// The properties of the selected presets, to edit them all at once. Main thread.
class PresetPane : public QWidget, public platform::ActionTarget {
    Q_OBJECT

  public:
    explicit PresetPane(std::shared_ptr<PresetEdits> edits, QWidget* parent = nullptr);
    ~PresetPane() override;

    /// After the presets or the selection have changed from outside.
    void refresh();
    /// Called after each change that the pane has made.
    std::function<void()> changed;

    struct NumberRow {
        double Preset::*property;
        driftwood::DriftSlider* slider;
        QLabel* readOut;
    };
    [[nodiscard]] const std::vector<NumberRow>& numbers() const { return numbers_; }
    [[nodiscard]] driftwood::ValidatingTextField& constant() const { return *constant_; }
    [[nodiscard]] driftwood::ValidatingPropertiesField& tune() const { return *tune_; }

  private:
    QWidget* makeNumber(const QString& name, const QString& unit, double Preset::*property,
                        double maximum, double step);
    void giveModel(const NumberRow& row, double maximum, double step);
    void showNumber(const NumberRow& row);
    void tell();
    void boxClicked(platform::Control& sender);
    driftwood::StyledCheckBox* makeBox(const QString& title);
    void makeFields();
    void refreshFields();
    void applyConstant(platform::Control& sender);
    void applyTune(platform::Control& sender);
    void refreshWave();

    std::shared_ptr<PresetEdits> edits_;
    std::vector<NumberRow> numbers_;
    std::vector<std::pair<double, double>> ranges_; // of the numbers: maximum and step
    std::vector<core::Subscription> readings_;
    std::shared_ptr<core::Observable<int>> wave_;
    driftwood::StyledPopUpButtonWrapper<int>* waveButton_ = nullptr;
    std::shared_ptr<driftwood::DriftSegmentedControlModel> voices_;
    driftwood::ValidatingTextField* constant_ = nullptr;
    driftwood::ValidatingPropertiesField* tune_ = nullptr;
    driftwood::StyledComboBox* category_ = nullptr;
    driftwood::StyledCheckBox* favourite_ = nullptr;
    driftwood::StyledCheckBox* followsKey_ = nullptr;
    bool isRefreshing_ = false;
    core::Subscription tuneClicks_;
    bool isDraggingTune_ = false;
};

} // namespace gallery
