#pragma once

#include <QCache>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>

class QPainter;

namespace fernhorn {

/// Lines of text in one font and colour, as pictures. What was painted once is kept for a while,
/// for all labels that look alike: the same values come again and again. Main thread.
class TextPictures {
  public:
    TextPictures(const QFont& font, const QColor& color);
    /// The one for this look; lives until the program ends.
    static TextPictures& of(const QFont& font, const QColor& color);

    [[nodiscard]] double lineHeight() const { return lineHeight_; } ///< points
    [[nodiscard]] double width(const QString& text) const;          ///< points
    /// Paints a line from its upper left corner on.
    void paint(QPainter& painter, const QPointF& topLeft, const QString& text);

  private:
    struct Key {
        QString text;
        qreal scale;
        friend bool operator==(const Key&, const Key&) = default;
        friend size_t qHash(const Key& key, size_t seed = 0) noexcept {
            return qHashMulti(seed, key.text, key.scale);
        }
    };

    [[nodiscard]] QImage draw(const QString& text, qreal scale) const;

    QFont font_;
    QColor color_;
    double lineHeight_;
    QCache<Key, QImage> pictures_;
    mutable QCache<QString, double> widths_;
};

} // namespace fernhorn
