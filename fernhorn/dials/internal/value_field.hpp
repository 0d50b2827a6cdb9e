#pragma once

#include <QLineEdit>

namespace fernhorn {

/// The field a value is typed into. Return, Escape and leaving it are told; keys that it does not
/// need go on to whoever is around it. Main thread.
class ValueField final : public QLineEdit {
    Q_OBJECT

  public:
    explicit ValueField(QWidget& label);

  signals:
    void submitted();
    void escaped();
    void left();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace fernhorn
