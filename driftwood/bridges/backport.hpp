#pragma once

#include <QColor>

#include <functional>

class QWidget;

namespace driftwood {

/// Modifiers of a view that not every release of every toolkit has; each does what it can here.
/// They can be chained. The view outlives the wrapper. Main thread.
class Backport {
  public:
    explicit Backport(QWidget& content) : content_(content) {}

    [[nodiscard]] QWidget& content() const { return content_; }

    /// Calls the function when Escape is pressed in the view or in a view inside of it that does
    /// not use the key itself.
    Backport& onEscapePressed(std::function<void()> action);
    /// A fixed width in points.
    Backport& setWidthPreTahoe(double width);
    Backport& popoverBackground(const QColor& color);
    /// For tables, lists and outlines; nothing elsewhere.
    Backport& alternatingRowBackgrounds(bool isAlternating = true);
    /// For scroll views: no frame at the edge and no bouncing beyond it; nothing elsewhere.
    Backport& removeScrollViewEdgeEffect();

  private:
    QWidget& content_;
};

[[nodiscard]] inline Backport backport(QWidget& view) {
    return Backport(view);
}

} // namespace driftwood
