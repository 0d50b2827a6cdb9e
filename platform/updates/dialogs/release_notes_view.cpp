#include "platform/updates/dialogs/release_notes_view.hpp"

#include "platform/ui/focus_ring.hpp"
#include "platform/ui/system_font.hpp"

#include <QFocusEvent>
#include <QPainter>
#include <QScrollBar>
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
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(14);
    document()->setIndentWidth(20);
    document()->setDefaultStyleSheet(
        QStringLiteral("h1, h2 { font-size: 15px; font-weight: 600; }"
                       "h3, h4, h5, h6 { font-size: 13px; font-weight: 600; }"
                       "pre, code { font-family: monospace; }"));
    connect(this, &QTextBrowser::anchorClicked, this,
            [&workspace](const QUrl& url) { workspace.open(url); });
}

void ReleaseNotesView::showNotes(const QString& html) {
    setHtml(html);
    verticalScrollBar()->setValue(0);
}

bool ReleaseNotesView::event(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        viewport()->update();
    }
    return QTextBrowser::event(event);
}

void ReleaseNotesView::focusInEvent(QFocusEvent* event) {
    showsFocus_ = showsFocusAfter(event->reason(), showsFocus_);
    QTextBrowser::focusInEvent(event);
    viewport()->update();
}

void ReleaseNotesView::focusOutEvent(QFocusEvent* event) {
    showsFocus_ = showsFocusAfter(event->reason(), showsFocus_);
    QTextBrowser::focusOutEvent(event);
    viewport()->update();
}

void ReleaseNotesView::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF panel = QRectF(viewport()->rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.setPen(QPen(QColor(255, 255, 255, 22), 1));
        painter.setBrush(palette().color(QPalette::Base).darker(115));
        painter.drawRoundedRect(panel, radius, radius);
    }
    QTextBrowser::paintEvent(event);
    if (showsFocus_ && hasFocus()) {
        QPainter painter(viewport());
        paintFocusRing(painter, QRectF(viewport()->rect()), radius, palette());
    }
}

} // namespace platform
