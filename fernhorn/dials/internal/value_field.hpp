#pragma once

#include "platform/controls/held_key.hpp"

#include <QLineEdit>

namespace fernhorn {

/// The field a value is typed into, over a label. Return, Escape and leaving it are told; another
/// window only borrows the keyboard. Keys that it does not need go on to the views around it. Tab
/// leads to the label's neighbours. Main thread.
class ValueField final : public QLineEdit {
    Q_OBJECT

  public:
    explicit ValueField(QWidget& label);

    /// Shows a value that has changed meanwhile. What was selected as a whole stays so, and screen
    /// readers are not told: under automation they would hear of nothing else.
    void follow(const QString& text);

  signals:
    void submitted();
    void escaped();
    void left();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool isNext) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    platform::HeldKey heldKey_;
};

} // namespace fernhorn
