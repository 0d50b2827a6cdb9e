#pragma once

#include "platform/ui/cells/control.hpp"

#include <QPoint>

#include <functional>

class QWidget;

namespace driftwood {

/// What buttons need of a menu.
class PopUpMenu {
  public:
    virtual ~PopUpMenu() = default;
    /// Opens the menu with its upper left corner (upper right where one reads from the right) at a
    /// point of the view, no item under the pointer; calls `closed` when it has closed again, with
    /// or without a choice.
    virtual void popUp(QWidget& view, QPoint position, std::function<void()> closed) = 0;
};

/// What buttons need of a pop-up button: another one of its items is chosen, in turn. Beside being
/// a control it derives from this.
class ItemCycling {
  public:
    virtual ~ItemCycling() = default;
    virtual void selectNextItem(platform::Control& sender) = 0;
    virtual void selectPreviousItem(platform::Control& sender) = 0;
};

} // namespace driftwood
