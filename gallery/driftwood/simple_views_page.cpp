#include "gallery/driftwood/driftwood_pages.hpp"
#include "gallery/driftwood/state_board.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/clickable_image_view.hpp"
#include "driftwood/controls/simple_views.hpp"
#include "gallery/parts.hpp"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

namespace gallery {
namespace {

using driftwood::ClickableImageView;

const platform::ImageAsset* kitPicture(const char* name) {
    return driftwood::resourceBundle().assets().image(QString::fromLatin1(name));
}

Specimen imageAs(const char* caption, std::function<void(ClickableImageView&)> change) {
    return {QString::fromLatin1(caption), [change] {
                auto* const view = new ClickableImageView(kitPicture("organiser-icon-star"));
                view->setFixedSize(32, 24);
                change(*view);
                return view;
            }};
}

/// A click on the icon leads to the field.
class IconAndField final : public QWidget {
  public:
    IconAndField() {
        auto* const row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        auto* const icon = new ClickableImageView(kitPicture("dwk-searchfield-icon"));
        icon->setFixedSize(24, 24);
        icon->setFocusPolicy(Qt::NoFocus);
        auto* const field = new QLineEdit;
        field->setAccessibleName(QStringLiteral("Search"));
        row->addWidget(icon);
        row->addWidget(field);
        setFixedWidth(240);
        const driftwood::ClickableControlPair pairs[] = {{*icon, *field}};
        driftwood::makeFirstResponderOnClick(pairs, kept_);
    }

  private:
    std::vector<core::Subscription> kept_;
};

/// A pane of the split view, with its name.
QWidget* makePane(const char* name) {
    auto* const pane = new driftwood::StyledFlippedView;
    auto* const column = new QVBoxLayout(pane);
    column->addWidget(makeLabel(QString::fromLatin1(name), 11, "Grey 60%"), 0, Qt::AlignCenter);
    pane->setMinimumSize(60, 40);
    return pane;
}

/// Panes of two colours would be needed to see where they meet: a frame in one of them does.
class Framed final : public QWidget {
  public:
    explicit Framed(QWidget* content) {
        auto* const column = new QVBoxLayout(this);
        column->setContentsMargins(6, 6, 6, 6);
        column->addWidget(content);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), kitColor("Background/Darkest"));
    }
};

} // namespace

Page simpleViewsPage() {
    return {
        QStringLiteral("simple-views"), QStringLiteral("Driftwood controls"),
        QStringLiteral("Simple views"),
        QStringLiteral("Images that can be clicked, a split view without a divider, and the "
                       "kit's ground."),
        [](QWidget& view) {
            auto* const star = new ClickableImageView(kitPicture("organiser-icon-star"));
            star->setAccessibleName(QStringLiteral("Favourite"));
            star->setFixedSize(32, 24);
            addLiveCard(view, {{star, QStringLiteral("Dims while it is pressed")},
                               {new IconAndField,
                                QStringLiteral("A click on the icon leads to the field")}});
            auto* const card = new Card(QStringLiteral("A split view without a divider"));
            auto* const split = new driftwood::NoDividerSplitView;
            split->addWidget(makePane("Drag where they meet"));
            split->addWidget(new Framed(makePane("or Tab there, and use the arrows")));
            split->setFixedHeight(96);
            card->column().addWidget(split);
            view.layout()->addWidget(card);
            addStateBoards(
                view,
                {imageAs("At rest", [](ClickableImageView&) {}),
                 imageAs("Pressed", [](ClickableImageView& v) { v.setAlphaValue(0.5); }),
                 imageAs("Focused", [](ClickableImageView& v) { v.setFocusRingPictured(true); }),
                 imageAs("Disabled", [](ClickableImageView& v) { v.setEnabled(false); })},
                4);
        }};
}

} // namespace gallery
