#include "platform/controls/line_text.hpp"

#include <QCache>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>
#include <ranges>

namespace platform {
namespace {

constexpr double everything = std::numeric_limits<double>::infinity();
constexpr double tolerance = 0.5; // a line that is that much too long is not cut

Qt::TextElideMode toElideMode(LineEliding eliding) {
    switch (eliding) {
    case LineEliding::head:
        return Qt::ElideLeft;
    case LineEliding::middle:
        return Qt::ElideMiddle;
    case LineEliding::tail:
        return Qt::ElideRight;
    case LineEliding::none:
        break;
    }
    return Qt::ElideNone;
}

LineAlignment side(const LineLayout& layout) {
    if (layout.alignment != LineAlignment::natural) {
        return layout.alignment;
    }
    return layout.isRightToLeft ? LineAlignment::right : LineAlignment::left;
}

} // namespace

void LineText::measure(std::span<const LineRun> runs) {
    const auto isSame = [](const LineRun& run, const Piece& piece) {
        return run.text == piece.text && run.font == piece.font;
    };
    if (room_ != unmeasured && std::ranges::equal(runs, pieces_, isSame)) {
        return;
    }
    pieces_.clear();
    size_ = {};
    for (const LineRun& run : runs) {
        const QFontMetricsF metrics(run.font);
        Piece& piece = pieces_.emplace_back();
        piece.text = run.text;
        piece.font = run.font;
        piece.width = metrics.horizontalAdvance(run.text);
        piece.ascent = metrics.ascent();
        size_.width += piece.width;
        size_.height = std::max(size_.height, metrics.height());
    }
    room_ = 0;
    scale_ = 0;
}

core::Size LineText::size(std::span<const LineRun> runs) {
    measure(runs);
    return size_;
}

core::Size LineText::size(const QString& text, const QFont& font) {
    const LineRun run{text, font, {}};
    return size(std::span(&run, 1));
}

void LineText::cut(LineEliding eliding, double room) {
    for (Piece& piece : pieces_) {
        piece.shown = piece.text;
    }
    if (room == everything) {
        return;
    }
    const auto elided = [&](const Piece& piece, const QString& text, double width) {
        return QFontMetricsF(piece.font).elidedText(text, toElideMode(eliding), width);
    };
    if (eliding == LineEliding::middle) {
        Piece& widest = *std::ranges::max_element(pieces_, {}, &Piece::width);
        const double rest = room - (size_.width - widest.width);
        if (rest >= QFontMetricsF(widest.font).horizontalAdvance(QChar(0x2026))) {
            widest.shown = elided(widest, widest.text, rest);
            return;
        }
        eliding = LineEliding::tail; // what stands beside it takes all the room
    }
    // The pieces from the end that stays to the one that is cut; nothing of the others.
    const bool isHead = eliding == LineEliding::head;
    bool isCut = false;
    const auto take = [&](Piece& piece, const Piece* next) {
        if (isCut) {
            piece.shown.clear();
            return;
        }
        const double mark =
            next != nullptr ? QFontMetricsF(piece.font).horizontalAdvance(QChar(0x2026)) : 0;
        if (piece.width + mark <= room) {
            room -= piece.width;
            return;
        }
        // What follows counts, so that a piece that just fits ends with the mark, too.
        const QString more = next != nullptr ? next->text : QString();
        piece.shown = elided(piece, isHead ? more + piece.text : piece.text + more, room);
        isCut = true;
    };
    const std::size_t count = pieces_.size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = isHead ? count - 1 - i : i;
        const bool isLast = i + 1 == count;
        take(pieces_[at], isLast ? nullptr : &pieces_[isHead ? at - 1 : at + 1]);
    }
}

void LineText::prepare(const QPainter& painter, LineEliding eliding, double room) {
    const double scale = painter.deviceTransform().m11();
    if (room == room_ && scale == scale_ && (eliding == eliding_ || room == everything)) {
        return;
    }
    cut(eliding, room);
    paintedSize_ = {};
    ascent_ = 0;
    for (Piece& piece : pieces_) {
        piece.painted = QStaticText(piece.shown);
        piece.painted.setTextFormat(Qt::PlainText);
        piece.painted.setPerformanceHint(QStaticText::AggressiveCaching);
        piece.painted.prepare(painter.transform(), piece.font);
        paintedSize_.width += piece.painted.size().width();
        paintedSize_.height = std::max(paintedSize_.height, piece.painted.size().height());
        ascent_ = std::max(ascent_, piece.ascent);
    }
    room_ = room;
    scale_ = scale;
    eliding_ = eliding;
}

void LineText::paint(QPainter& painter, const core::Rect& rect, std::span<const LineRun> runs,
                     const LineLayout& layout) {
    measure(runs);
    if (pieces_.empty()) {
        return;
    }
    const bool isWhole =
        layout.eliding == LineEliding::none || size_.width <= rect.size.width + tolerance;
    prepare(painter, layout.eliding,
            isWhole ? everything : std::max(0.0, std::floor(rect.size.width)));

    const double free = rect.size.width - paintedSize_.width;
    const LineAlignment at = side(layout);
    const double before = at == LineAlignment::left     ? 0
                          : at == LineAlignment::centre ? free * 0.5
                                                        : free;
    double x = std::round(rect.origin.x + before);
    const double y = std::round(rect.origin.y + (rect.size.height - paintedSize_.height) * 0.5);
    if (layout.isRightToLeft) {
        x += paintedSize_.width;
    }
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
        const Piece& piece = pieces_[i];
        const double width =
            pieces_.size() == 1 ? paintedSize_.width : piece.painted.size().width();
        x -= layout.isRightToLeft ? width : 0;
        painter.setFont(piece.font);
        painter.setPen(runs[i].color);
        painter.drawStaticText(QPointF(x, y + std::round(ascent_ - piece.ascent)), piece.painted);
        x += layout.isRightToLeft ? 0 : width;
    }
}

void LineText::paint(QPainter& painter, const core::Rect& rect, const QString& text,
                     const QFont& font, const QColor& color, const LineLayout& layout) {
    const LineRun run{text, font, color};
    paint(painter, rect, std::span(&run, 1), layout);
}

// The lines that nobody keeps.

namespace {

/// A font by a number: comparing fonts, and making keys of them, costs more than painting.
class FontNumbers {
  public:
    /// Fonts that are one and the same are found at once.
    int of(const QFont& font) {
        const auto isCopy = [&](const QFont& known) { return known.isCopyOf(font); };
        auto found = std::ranges::find_if(fonts_, isCopy);
        if (found == fonts_.end()) {
            found = std::ranges::find(fonts_, font);
        }
        if (found == fonts_.end()) {
            fonts_.push_back(font);
            return static_cast<int>(fonts_.size()) - 1;
        }
        return static_cast<int>(found - fonts_.begin());
    }
    [[nodiscard]] std::size_t count() const { return fonts_.size(); }
    void clear() { fonts_.clear(); }

  private:
    std::vector<QFont> fonts_;
};

struct LineKey {
    QString text;
    int font;
    int room;
    friend bool operator==(const LineKey&, const LineKey&) = default;
};

size_t qHash(const LineKey& key, size_t seed = 0) {
    return qHashMulti(seed, key.text, key.font, key.room);
}

constexpr qsizetype keptLines = 2048;
constexpr std::size_t keptFonts = 64;

} // namespace

void LineText::paintShared(QPainter& painter, const core::Rect& rect, const QString& text,
                           const QFont& font, const QColor& color, const LineLayout& layout) {
    static QCache<LineKey, LineText> lines(keptLines);
    static FontNumbers fonts;
    if (fonts.count() > keptFonts) {
        fonts.clear();
        lines.clear();
    }
    const LineKey key{text, fonts.of(font), static_cast<int>(rect.size.width)};
    LineText* line = lines.object(key);
    if (line == nullptr) {
        line = new LineText;
        lines.insert(key, line);
    }
    line->paint(painter, rect, text, font, color, layout);
}

} // namespace platform
