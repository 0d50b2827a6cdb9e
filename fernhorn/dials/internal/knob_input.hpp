#pragma once

#include "fernhorn/dials/knob_gestures.hpp"

#include <QBasicTimer>
#include <QCursor>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

class QEvent;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;
class QWidget;

namespace fernhorn {

/// Brings a widget's events to the gestures of a knob; hides and holds the pointer and shows the
/// value beside the knob meanwhile. A part of the widget, destroyed with it: then, as whenever the
/// pointer, the keyboard or the window goes away, an open touch is released. Main thread.
class KnobInput {
  public:
    /// `readOut` gives the text to show during a drag; none when it is empty.
    KnobInput(QWidget& view, std::shared_ptr<AudioParameter> parameter, KnobFeel feel,
              std::function<QString()> readOut);
    ~KnobInput();
    KnobInput(const KnobInput&) = delete;
    KnobInput& operator=(const KnobInput&) = delete;

    /// True when the event is dealt with and goes nowhere else. May destroy the view.
    bool handle(QEvent& event, KnobClick click = KnobClick::resets);
    /// The parameter has another value.
    void valueDidChange();
    /// Releases what is open.
    void cancel();

    [[nodiscard]] const KnobDrag& drag() const { return drag_; }

  private:
    bool press(const QMouseEvent& event, KnobClick click);
    bool move(const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    bool turn(const QWheelEvent& event);
    bool key(const QKeyEvent& event);
    void followBurst();
    void takePointer(const QMouseEvent& event);
    void givePointerBack();
    void showReadOut() const;

    QWidget& view_;
    const std::shared_ptr<AudioParameter> parameter_;
    const std::function<QString()> readOut_;
    KnobDrag drag_;
    KnobWheel wheel_;
    PointerHold hold_;
    QBasicTimer burst_;
    bool hasPointer_ = false;
    std::optional<QCursor> cursorBefore_; // absent: the parent's
};

} // namespace fernhorn
