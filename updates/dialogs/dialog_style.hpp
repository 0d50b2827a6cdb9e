#pragma once

#include "platform/controls/button.hpp"

#include <memory>

namespace updates {

/// How the dialogs' buttons look: in the program's own style, so that all its windows are of one
/// family. All are set. Main thread.
struct DialogStyle {
    std::shared_ptr<const platform::ButtonStyle> button;
    std::shared_ptr<const platform::ButtonStyle> prominentButton; ///< what the dialog is about
    std::shared_ptr<const platform::ButtonStyle> checkBox;
    std::shared_ptr<const platform::ButtonStyle> checkedBox;
};

} // namespace updates
