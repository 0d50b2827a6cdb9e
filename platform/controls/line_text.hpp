#pragma once

#include "core/geometry.hpp"

#include <QColor>
#include <QFont>
#include <QStaticText>
#include <QString>

#include <span>
#include <vector>

class QPainter;

namespace platform {

/// Where a line stands in its room; natural: where reading begins.
enum class LineAlignment { left, centre, right, natural };

/// What of a line that is too long is left out.
enum class LineEliding { head, middle, tail, none };

/// How a line of text is laid into its place.
struct LineLayout {
    LineAlignment alignment = LineAlignment::centre;
    LineEliding eliding = LineEliding::tail;
    bool isRightToLeft = false; ///< the direction in which the runs follow each other
    friend bool operator==(const LineLayout&, const LineLayout&) = default;
};

/// A part of a line with a look of its own.
struct LineRun {
    QString text;
    QFont font;
    QColor color;
};

/// One line of text, in the middle of its height: laid out when it is first measured or painted,
/// and again only when the text, a font, the room or the scale is another. Colours cost nothing.
/// Main thread.
class LineText {
  public:
    /// The size of the whole line in points.
    core::Size size(const QString& text, const QFont& font);
    core::Size size(std::span<const LineRun> runs);

    void paint(QPainter& painter, const core::Rect& rect, const QString& text, const QFont& font,
               const QColor& color, const LineLayout& layout = {});
    /// Runs stand on one baseline. A line of several runs that is too long loses of its last one,
    /// of its first one, or, in the middle, of its widest one; and further runs as a whole.
    void paint(QPainter& painter, const core::Rect& rect, std::span<const LineRun> runs,
               const LineLayout& layout = {});

    /// Paints a line that nobody keeps: the lines painted last are kept for all such callers, for
    /// cells that draw many rows.
    static void paintShared(QPainter& painter, const core::Rect& rect, const QString& text,
                            const QFont& font, const QColor& color, const LineLayout& layout = {});

  private:
    struct Piece {
        QString text;  // the whole
        QString shown; // what is left of it
        QFont font;
        double width = 0; // of the whole
        double ascent = 0;
        QStaticText painted;
    };
    static constexpr double unmeasured = -1;

    void measure(std::span<const LineRun> runs);
    void cut(LineEliding eliding, double room);
    void prepare(const QPainter& painter, LineEliding eliding, double room);

    std::vector<Piece> pieces_; // in reading order
    core::Size size_;
    core::Size paintedSize_;
    double ascent_ = 0;
    double room_ = unmeasured; // that the pieces were prepared for
    double scale_ = 0;
    LineEliding eliding_ = LineEliding::none;
};

} // namespace platform
