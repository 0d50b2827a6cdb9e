#include "gallery/gallery_window.hpp"

#include "gallery/parts.hpp"
#include "platform/assets/system_font.hpp"
#include "platform/gpu/gpu_view.hpp"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPainter>
#include <QScrollArea>
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
        row.adjust(24, heading ? 8 : 0, -16, 0);
        painter->setFont(
            platform::systemFont(heading ? 11 : 13, heading ? QFont::Medium : QFont::Normal));
        painter->setPen(kitColor(heading ? "Grey 50%" : selected ? "Grey 100%" : "Grey 70%"));
        painter->drawText(row, Qt::AlignVCenter, index.data().toString());
        painter->restore();
    }

  private:
    static bool isHeading(const QModelIndex& index) {
        return !index.flags().testFlag(Qt::ItemIsSelectable);
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

GalleryWindow::GalleryWindow() : list_(new QListWidget), area_(new QScrollArea) {
    setWindowTitle(QStringLiteral("Gallery"));
    platform::GpuHost::install(*this);
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
            area_->setWidget(makePage(*page));
        }
    });

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
