#include "updates/dialogs/release_notes_view.hpp"

#include "platform/assets/system_font.hpp"
#include "platform/controls/focus_ring.hpp"

#include <QFocusEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace updates {
namespace {

constexpr double fieldRadius = 5;

/// A thin one without arrows, on the panel.
class ThinScrollBar final : public QScrollBar {
  public:
    ThinScrollBar() : QScrollBar(Qt::Vertical) {}
    [[nodiscard]] QSize sizeHint() const override { return {12, 40}; }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        if (maximum() <= minimum()) {
            return;
        }
        const double room = height() - 8;
        const double length =
            std::max(24.0, room * pageStep() / (maximum() - minimum() + pageStep()));
        const double top = 4 + (room - length) * (value() - minimum()) / (maximum() - minimum());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, isSliderDown() ? 110 : 62));
        painter.drawRoundedRect(QRectF((width() - 5) / 2.0, top, 5, length), 2.5, 2.5);
    }
};

} // namespace

ReleaseNotesView::ReleaseNotesView(platform::Workspace& workspace, QWidget* parent)
    : QTextBrowser(parent) {
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    setFont(platform::systemFont(13, QFont::Medium, platform::FontDesign::rounded));
    setAccessibleName(tr("Release notes"));
    setVerticalScrollBar(new ThinScrollBar);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(14);
    document()->setIndentWidth(20);
    connect(this, &QTextBrowser::anchorClicked, this,
            [&workspace](const QUrl& url) { workspace.open(url); });
}

void ReleaseNotesView::showNotes(const QString& html) {
    setHtml(html);
    QTextCursor all(document());
    all.beginEditBlock(); // laid out once
    // Headings are told apart by weight, not by the sizes of a newspaper.
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (const int level = block.blockFormat().headingLevel(); level > 0) {
            QTextCursor cursor(block);
            cursor.select(QTextCursor::BlockUnderCursor);
            QTextCharFormat format;
            format.setProperty(QTextFormat::FontSizeAdjustment, 0);
            format.setProperty(QTextFormat::FontPixelSize, level <= 2 ? 15 : 13);
            format.setFontWeight(QFont::Bold);
            cursor.mergeCharFormat(format);
        }
    }
    all.endEditBlock();
    verticalScrollBar()->setValue(0);
}

/// The panel below text and scroll bar.
bool ReleaseNotesView::event(QEvent* event) {
    if (event->type() != QEvent::Paint) {
        return QTextBrowser::event(event);
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(255, 255, 255, 22), 1));
    painter.setBrush(palette().color(QPalette::Base).darker(115));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), fieldRadius,
                            fieldRadius);
    if (showsFocus_ && hasFocus()) {
        platform::paintFocusRing(painter, QRectF(rect()), fieldRadius, palette());
    }
    return true;
}

void ReleaseNotesView::focusInEvent(QFocusEvent* event) {
    showsFocus_ = platform::showsFocusAfter(event->reason(), showsFocus_);
    QTextBrowser::focusInEvent(event);
    update();
}

void ReleaseNotesView::focusOutEvent(QFocusEvent* event) {
    showsFocus_ = platform::showsFocusAfter(event->reason(), showsFocus_);
    QTextBrowser::focusOutEvent(event);
    update();
}

} // namespace updates
