#include "gallery/gallery_window.hpp"

#include "gallery/parts.hpp"
#include "platform/assets/system_font.hpp"
#include "platform/controls/accessible_role.hpp"
#include "platform/controls/focus_ring.hpp"
#include "platform/gpu/gpu_view.hpp"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace gallery {
namespace {

constexpr int listWidth = 216;
constexpr int rowHeight = 28;

/// Draws names of pages, and the headings of their groups, which cannot be chosen.
class RowDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& index) const override {
        return {listWidth, isHeading(index) ? rowHeight + 8 : rowHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const bool heading = isHeading(index);
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        QRectF row(option.rect);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (selected) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(kitColor("Grey 20%"));
            painter->drawRoundedRect(row.adjusted(12, 1, -12, -1), 4, 4);
            painter->setBrush(kitColor("Highlight/System"));
            painter->drawRoundedRect(QRectF(row.left() + 12, row.top() + 7, 3, row.height() - 14),
                                     1.5, 1.5);
        }
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            platform::paintFocusRing(*painter, row.adjusted(12, 1, -12, -1), 4, option.palette);
        }
        row.adjust(24, heading ? 8 : 0, -16, 0);
        painter->setFont(
            platform::systemFont(heading ? 11 : 13, QFont::Medium, platform::FontDesign::rounded));
        painter->setPen(kitColor(heading ? "Grey 50%" : selected ? "Grey 100%" : "Grey 70%"));
        painter->drawText(row, Qt::AlignVCenter, index.data().toString());
        painter->restore();
    }

  private:
    static bool isHeading(const QModelIndex& index) {
        return !index.flags().testFlag(Qt::ItemIsSelectable);
    }
};

/// The names of the pages; the first and the last one by Home and End, past the headings.
class PageList final : public QListWidget {
  protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override {
        if (action != MoveHome && action != MoveEnd) {
            return QListWidget::moveCursor(action, modifiers);
        }
        const int step = action == MoveHome ? 1 : -1;
        for (int i = action == MoveHome ? 0 : count() - 1; i >= 0 && i < count(); i += step) {
            if (item(i)->flags().testFlag(Qt::ItemIsSelectable)) {
                return indexFromItem(item(i));
            }
        }
        return {};
    }
};

QWidget* makePage(const Page& page) {
    auto* const view = new QWidget;
    view->setFixedWidth(page.width);
    auto* const column = new QVBoxLayout(view);
    column->setContentsMargins(32, 28, 32, 32);
    column->setSpacing(16);
    column->addWidget(makeLabel(page.title, 22, "Grey 85%", QFont::Medium));
    auto* const summary = makeLabel(page.summary, 13, "Grey 60%");
    summary->setWordWrap(true);
    column->addWidget(summary);
    column->addSpacing(4);
    page.build(*view);
    column->addStretch(1);
    return view;
}

} // namespace

GalleryWindow::GalleryWindow() : list_(new PageList), area_(new QScrollArea) {
    platform::setAccessibleRole(*this, QAccessible::Window);
    setWindowTitle(QStringLiteral("Gallery"));
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, kitColor("Background/Darker"));
    palette.setColor(QPalette::Base, kitColor("Background/Darkest"));
    setPalette(palette);

    list_->setFixedWidth(listWidth);
    list_->setFrameShape(QFrame::NoFrame);
    list_->setItemDelegate(new RowDelegate(list_));
    list_->setAccessibleName(tr("Pages"));
    QString group;
    for (const Page& page : pages()) {
        if (page.group != group) {
            group = page.group;
            (new QListWidgetItem(group, list_))->setFlags(Qt::NoItemFlags);
        }
        auto* const item = new QListWidgetItem(page.title, list_);
        item->setData(Qt::UserRole, QVariant::fromValue(static_cast<const void*>(&page)));
    }
    QObject::connect(list_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item != nullptr) {
            const auto* const page =
                static_cast<const Page*>(item->data(Qt::UserRole).value<const void*>());
            open(*page);
        }
    });

    // Nothing is done in it by keys but what this window does.
    area_->setFocusPolicy(Qt::NoFocus);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(list_);
    row->addWidget(area_, 1);
    show(pages().front());
    resize(wholePageSize().width() + 16, 780);
}

void GalleryWindow::open(const Page& page) {
    delete area_->takeWidget(); // and its visuals, before the window changes
    composeByGpu(page.hasVisual);
    area_->setWidget(makePage(page));
}

/// Every frame of a window with a host is one of the GPU, whatever moves in it. The toolkit decides
/// that when it makes the window.
void GalleryWindow::composeByGpu(bool byGpu) {
    if (byGpu == (host_ != nullptr)) {
        return;
    }
    const bool isShown = isVisible();
    const QRect place = geometry();
    hide();
    if (testAttribute(Qt::WA_WState_Created)) {
        destroy();
    }
    delete host_;
    if (byGpu) {
        platform::GpuHost::install(*this);
        host_ = findChild<platform::GpuHost*>(QString(), Qt::FindDirectChildrenOnly);
    }
    if (isShown) {
        setGeometry(place);
        QWidget::show();
        activateWindow();
    }
}

void GalleryWindow::keyPressEvent(QKeyEvent* event) {
    QScrollBar* const bar = area_->verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_PageUp:
        return bar->triggerAction(QScrollBar::SliderPageStepSub);
    case Qt::Key_PageDown:
        return bar->triggerAction(QScrollBar::SliderPageStepAdd);
    case Qt::Key_Home:
        return bar->triggerAction(QScrollBar::SliderToMinimum);
    case Qt::Key_End:
        return bar->triggerAction(QScrollBar::SliderToMaximum);
    default:
        QWidget::keyPressEvent(event);
    }
}

void GalleryWindow::show(const Page& page) {
    for (int i = 0; i < list_->count(); ++i) {
        if (list_->item(i)->data(Qt::UserRole).value<const void*>() == &page) {
            list_->setCurrentRow(i);
        }
    }
}

QSize GalleryWindow::wholePageSize() const {
    return {listWidth + area_->widget()->width(),
            std::max(area_->widget()->sizeHint().height(), list_->count() * rowHeight + 60)};
}

} // namespace gallery
