#include "driftwood/bridges/style_follower.hpp"

#include <QAbstractScrollArea>
#include <QWidget>

#include <map>
#include <vector>

namespace driftwood {
namespace {

/// From that many in a window on, one rectangle is repainted in place of as many small ones.
constexpr int manyInOneWindow = 64;

/// A scroll area is painted in its viewport, and `update` does not get there.
void repaint(QWidget& widget) {
    widget.update();
    if (const auto* const area = qobject_cast<const QAbstractScrollArea*>(&widget)) {
        area->viewport()->update();
    }
}

} // namespace

/// The followers of one style. The style finds it, the followers keep it.
class FollowerList : public std::enable_shared_from_this<FollowerList> {
  public:
    explicit FollowerList(BaseStyle& style)
        : subscription_(
              style.observe([this, &style](StyleChange change) { tell(style, change); })) {}

    static std::shared_ptr<FollowerList> of(BaseStyle& style) {
        std::shared_ptr<FollowerList> list = style.followers_.lock();
        if (list == nullptr) {
            list = std::make_shared<FollowerList>(style);
            style.followers_ = list;
        }
        return list;
    }

    std::size_t add(StyleFollower& follower) {
        followers_.push_back(&follower);
        return followers_.size() - 1;
    }

    void remove(const StyleFollower& follower) {
        if (depth_ > 0) {
            followers_[follower.place_] = nullptr; // `tell` counts on the places
        } else {
            place(followers_.back(), follower.place_);
            followers_.pop_back();
        }
    }

  private:
    struct Window {
        int followers = 0;
        QRect place; // around all of them
    };

    void place(StyleFollower* follower, std::size_t at) {
        followers_[at] = follower;
        follower->place_ = at;
    }

    void tell(BaseStyle& style, StyleChange change) {
        const auto self = shared_from_this(); // the last follower may go
        if (depth_++ == 0 || change == StyleChange::layout) {
            told_ = change;
        }
        const std::size_t count = followers_.size(); // who comes now knows the style as it is
        for (std::size_t i = 0; i < count; ++i) {
            if (StyleFollower* const follower = followers_[i]; follower && follower->apply_) {
                follower->apply_(follower->widget_, style);
            }
        }
        if (--depth_ == 0) {
            closeGaps();
            show(told_);
        }
    }

    void closeGaps() {
        std::size_t kept = 0;
        for (StyleFollower* const follower : followers_) {
            if (follower != nullptr) {
                place(follower, kept++);
            }
        }
        followers_.resize(kept);
    }

    void show(StyleChange change) const {
        std::map<QWidget*, Window> windows;
        for (const StyleFollower* const follower : followers_) {
            QWidget& widget = follower->widget_;
            if (change == StyleChange::layout) {
                widget.updateGeometry();
            }
            if (widget.isVisible()) {
                QWidget* const top = widget.window();
                Window& window = windows[top];
                ++window.followers;
                window.place |= QRect(widget.mapTo(top, QPoint()), widget.size());
            }
        }
        for (const StyleFollower* const follower : followers_) {
            if (follower->widget_.isVisible() &&
                windows[follower->widget_.window()].followers < manyInOneWindow) {
                repaint(follower->widget_);
            }
        }
        for (const auto& [top, window] : windows) {
            if (window.followers >= manyInOneWindow) {
                top->update(window.place);
            }
        }
    }

    std::vector<StyleFollower*> followers_;
    int depth_ = 0;                        // of changes being told
    StyleChange told_ = StyleChange::look; // how far they go
    core::Subscription subscription_;
};

StyleFollower::StyleFollower(QWidget& widget, BaseStyle& style, Apply apply)
    : widget_(widget), apply_(apply), list_(FollowerList::of(style)), place_(list_->add(*this)) {}

StyleFollower::~StyleFollower() {
    list_->remove(*this);
}

} // namespace driftwood
