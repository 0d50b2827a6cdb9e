#pragma once

#include <QCache>
#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QStaticText>
#include <QString>

class QPainter;

namespace fernhorn {

/// Lines of text in one font. What was laid out once is kept for a while, for all labels with that
/// font: the same values come again and again. Main thread.
class TextRuns {
  public:
    explicit TextRuns(const QFont& font);
    /// The one for this font; lives until the program ends.
    static TextRuns& withFont(const QFont& font);

    [[nodiscard]] const QFont& font() const { return font_; }
    [[nodiscard]] double lineHeight() const { return lineHeight_; }
    [[nodiscard]] double width(const QString& text);
    /// Paints a line in the painter's pen and font, which has to be this one; `topLeft` is that of
    /// the line.
    void paint(QPainter& painter, QPointF topLeft, const QString& text);

  private:
    struct Run {
        QStaticText text;
        double width;
    };

    Run& run(const QString& text);

    QFont font_;
    double lineHeight_;
    QCache<QString, Run> runs_;
};

} // namespace fernhorn
