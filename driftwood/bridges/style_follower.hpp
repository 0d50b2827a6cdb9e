#pragma once

#include "driftwood/style/base_style.hpp"

#include <cstddef>
#include <memory>

class QWidget;

namespace driftwood {

class FollowerList;

/// Repaints a widget once for every change of a style, the viewport of a scroll area too, and lays
/// it out anew when its size may be another. All followers of a style share one subscription, so
/// that thousands of controls cost little more than their painting. A member of the widget; the
/// style may go before it. Main thread.
class StyleFollower {
  public:
    /// Brings what the toolkit keeps of a style into the widget: font, palette, margins. It may
    /// make and destroy widgets, this one too.
    using Apply = void (*)(QWidget& widget, BaseStyle& style);

    /// `apply` may be null. It is called after every change, before the widget is repainted, and
    /// not for the style as it is now: the widget may not be complete yet.
    StyleFollower(QWidget& widget, BaseStyle& style, Apply apply = nullptr);
    ~StyleFollower();
    StyleFollower(const StyleFollower&) = delete;
    StyleFollower& operator=(const StyleFollower&) = delete;

  private:
    friend class FollowerList;

    QWidget& widget_;
    Apply apply_;
    std::shared_ptr<FollowerList> list_; // goes with its last follower
    std::size_t place_ = 0;              // in the list
};

} // namespace driftwood
