#include "fernhorn/controls/text_runs.hpp"

#include <QPainter>

#include <map>

namespace fernhorn {
namespace {

constexpr qsizetype keptRuns = 4096;

} // namespace

TextRuns::TextRuns(const QFont& font)
    : font_(font), lineHeight_(QFontMetricsF(font).height()), runs_(keptRuns) {}

TextRuns& TextRuns::withFont(const QFont& font) {
    static std::map<QFont, TextRuns> byFont;
    return byFont.try_emplace(font, font).first->second;
}

TextRuns::Run& TextRuns::run(const QString& text) {
    if (Run* const found = runs_.object(text)) {
        return *found;
    }
    auto made = std::make_unique<Run>();
    made->text.setText(text);
    made->text.setTextFormat(Qt::PlainText);
    made->text.setPerformanceHint(QStaticText::AggressiveCaching);
    made->text.prepare({}, font_);
    made->width = made->text.size().width();
    Run& kept = *made;
    runs_.insert(text, made.release());
    return kept;
}

double TextRuns::width(const QString& text) {
    return text.isEmpty() ? 0 : run(text).width;
}

void TextRuns::paint(QPainter& painter, QPointF topLeft, const QString& text) {
    if (!text.isEmpty()) {
        painter.drawStaticText(topLeft, run(text).text);
    }
}

} // namespace fernhorn
