#pragma once

#include "driftwood/style/base_style.hpp"

#include <cstddef>

class QWidget;

namespace driftwood {

class FollowerList;

/// Repaints a widget once for every change of a style, and lays it out anew when its size may be
/// another. All followers of a style share one subscription, so that thousands of controls cost
/// little more than their painting. Keep it as a member of the widget. Main thread.
class StyleFollower {
  public:
    StyleFollower(QWidget& widget, BaseStyle& style);
    ~StyleFollower();
    StyleFollower(const StyleFollower&) = delete;
    StyleFollower& operator=(const StyleFollower&) = delete;

  private:
    friend class FollowerList;

    QWidget& widget_;
    FollowerList& list_;
    std::size_t place_ = 0; // in the list
};

} // namespace driftwood
