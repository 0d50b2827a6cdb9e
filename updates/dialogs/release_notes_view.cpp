#include "platform/updates/dialogs/release_notes_view.hpp"

#include "platform/ui/focus_ring.hpp"
#include "platform/ui/system_font.hpp"
#include "platform/updates/dialogs/dialog_controls.hpp"

#include <QFocusEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

namespace platform {
namespace {

constexpr double radius = 5;

} // namespace

ReleaseNotesView::ReleaseNotesView(Workspace& workspace, QWidget* parent) : QTextBrowser(parent) {
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    setFont(systemFont(13, QFont::Normal));
    setAccessibleName(tr("Release notes"));
    setMinimumHeight(120);
    setVerticalScrollBar(new DialogScrollBar);
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
    // Headings are told apart by weight, not by the sizes of a newspaper.
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (const int level = block.blockFormat().headingLevel(); level > 0) {
            QTextCursor cursor(block);
            cursor.select(QTextCursor::BlockUnderCursor);
            QTextCharFormat format;
            format.setProperty(QTextFormat::FontSizeAdjustment, 0);
            format.setProperty(QTextFormat::FontPixelSize, level <= 2 ? 15 : 13);
            format.setFontWeight(QFont::DemiBold);
            cursor.mergeCharFormat(format);
        }
    }
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
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    if (showsFocus_ && hasFocus()) {
        paintFocusRing(painter, QRectF(rect()), radius, palette());
    }
    return true;
}

void ReleaseNotesView::focusInEvent(QFocusEvent* event) {
    showsFocus_ = showsFocusAfter(event->reason(), showsFocus_);
    QTextBrowser::focusInEvent(event);
    update();
}

void ReleaseNotesView::focusOutEvent(QFocusEvent* event) {
    showsFocus_ = showsFocusAfter(event->reason(), showsFocus_);
    QTextBrowser::focusOutEvent(event);
    update();
}

} // namespace platform
