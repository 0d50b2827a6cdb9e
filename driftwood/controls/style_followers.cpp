#include "driftwood/controls/style_followers.hpp"

#include <QWidget>

#include <map>
#include <memory>
#include <vector>

namespace driftwood {
namespace {

/// From that many in a window on, one rectangle is repainted in place of as many small ones.
constexpr int manyInOneWindow = 64;

} // namespace

/// The followers of one style.
class FollowerList {
  public:
    explicit FollowerList(BaseStyle& style)
        : subscription_(style.observe([this](StyleChange change) { tell(change); })) {}

    /// Styles are shared by a class and live as long as the program, and so do these lists.
    static FollowerList& of(BaseStyle& style) {
        static std::map<BaseStyle*, std::unique_ptr<FollowerList>> lists;
        auto& list = lists[&style];
        if (list == nullptr) {
            list = std::make_unique<FollowerList>(style);
        }
        return *list;
    }

    std::size_t add(StyleFollower& follower) {
        followers_.push_back(&follower);
        return followers_.size() - 1;
    }

    void remove(const StyleFollower& follower) {
        followers_.back()->place_ = follower.place_;
        followers_[follower.place_] = followers_.back();
        followers_.pop_back();
    }

  private:
    struct Window {
        int followers = 0;
        QRect place; // around all of them
    };

    void tell(StyleChange change) {
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
                follower->widget_.update();
            }
        }
        for (const auto& [top, window] : windows) {
            if (window.followers >= manyInOneWindow) {
                top->update(window.place);
            }
        }
    }

    std::vector<StyleFollower*> followers_;
    core::Subscription subscription_;
};

StyleFollower::StyleFollower(QWidget& widget, BaseStyle& style)
    : widget_(widget), list_(FollowerList::of(style)), place_(list_.add(*this)) {}

StyleFollower::~StyleFollower() {
    list_.remove(*this);
}

} // namespace driftwood
