#pragma once

#include <QColor>
#include <QFont>
#include <QLabel>
#include <QWidget>

class QBoxLayout;

namespace gallery {

/// A named colour of the kit.
[[nodiscard]] QColor kitColor(const char* name);

/// A line of text in one of the kit's greys.
QLabel* makeLabel(const QString& text, double size, const char* color,
                  QFont::Weight weight = QFont::Normal);

/// A quiet panel that holds what belongs together, with its heading above the content.
class Card : public QWidget {
  public:
    explicit Card(const QString& heading);

    /// Where the content goes.
    [[nodiscard]] QBoxLayout& column() const { return *column_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QBoxLayout* column_;
};

} // namespace gallery
