// A line of text laid out anew, painted from what is kept, and out of the cache that table rows
// share, beside the toolkit's static text in the same run.

#include "bench/figure.hpp"
#include "platform/assets/system_font.hpp"
#include "platform/controls/line_text.hpp"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QStaticText>

#include <chrono>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int lineCount = 200; // of a page of a table
constexpr int rounds = 60;
const core::Rect place{{10, 4}, {160, 16}};

/// Microseconds for each of the lines of a page.
template<class Paint>
double timeOf(QPainter& painter, Paint paint) {
    const auto start = Clock::now();
    for (std::size_t i = 0; i < lineCount; ++i) {
        paint(painter, i);
    }
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count() / lineCount;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QFont font = platform::systemFont(12, QFont::Normal);
    QImage image(400, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);

    std::vector<QString> texts;
    std::vector<QStaticText> stock;
    for (int i = 0; i < lineCount; ++i) {
        texts.push_back(QStringLiteral("Preset number %1").arg(i));
        QStaticText& text = stock.emplace_back(texts.back());
        text.setTextFormat(Qt::PlainText);
        text.setPerformanceHint(QStaticText::AggressiveCaching);
        text.prepare(painter.transform(), font);
    }
    std::vector<platform::LineText> kept(lineCount);
    const platform::LineLayout layout{platform::LineAlignment::left, platform::LineEliding::tail};

    std::vector<double> uncached;
    std::vector<double> cached;
    std::vector<double> shared;
    std::vector<double> theirs;
    for (int round = 0; round < rounds; ++round) { // in turn: the machine may be busy
        uncached.push_back(timeOf(painter, [&](QPainter& to, std::size_t i) {
            platform::LineText().paint(to, place, texts[i], font, Qt::white, layout);
        }));
        cached.push_back(timeOf(painter, [&](QPainter& to, std::size_t i) {
            kept[i].paint(to, place, texts[i], font, Qt::white, layout);
        }));
        shared.push_back(timeOf(painter, [&](QPainter& to, std::size_t i) {
            platform::LineText::paintShared(to, place, texts[i], font, Qt::white, layout);
        }));
        theirs.push_back(timeOf(painter, [&](QPainter& to, std::size_t i) {
            to.setFont(font);
            to.setPen(Qt::white);
            to.drawStaticText(QPointF(place.origin.x, place.origin.y), stock[i]);
        }));
    }
    bench::figure("line_text_us", bench::median(uncached), "us, laid out anew");
    bench::figure("line_text_cached_us", bench::median(cached), "us, kept");
    bench::figure("line_text_shared_us", bench::median(shared), "us, by the shared cache");
    bench::figure("line_text_cached_ratio", bench::median(cached) / bench::median(theirs),
                  "of the toolkit's static text (≤ 1.2)");
    return 0;
}
