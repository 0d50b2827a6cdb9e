#include "driftwood/style/slider_cell_style.hpp"

namespace driftwood {

using State = StyledControlState;

SliderCellStyle::SliderCellStyle()
    : barImages_{{State::default_, "dwk-slider-alley"}, {State::highlighted, "dwk-slider"}},
      knobImages_{{State::default_, "dwk-slider-handle"},
                  {State::highlighted, "dwk-slider-handle-down"},
                  {State::mixed, "dwk-slider-handle-multi"}} {}

} // namespace driftwood
