#pragma once

#include "driftwood/style/control_style.hpp"

// All of this is for the main thread.
namespace driftwood {

/// The style of sliders.
class SliderCellStyle : public ControlStyle {
  public:
    SliderCellStyle();

    /// The bar: `highlighted` for its filled part.
    [[nodiscard]] const StateImages& barImages() const { return barImages_; }
    void setBarImages(StateImages images) { setLayout(barImages_, std::move(images)); }

    /// The knob: `mixed` when it stands for several values.
    [[nodiscard]] const StateImages& knobImages() const { return knobImages_; }
    void setKnobImages(StateImages images) { setLayout(knobImages_, std::move(images)); }

    /// The best matches in the two tables, null when nothing matches.
    [[nodiscard]] const Image& barImage(StyledControlState state) const {
        return barImages_.image(state);
    }
    [[nodiscard]] const Image& knobImage(StyledControlState state) const {
        return knobImages_.image(state);
    }

  private:
    StateImages barImages_;
    StateImages knobImages_;
};

} // namespace driftwood
