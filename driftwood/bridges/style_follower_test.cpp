#include "driftwood/bridges/style_follower.hpp"
#include "driftwood/style/button_cell_style.hpp"
#include "platform/testing/window_testing.hpp"

#include <QEvent>
#include <QListView>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace driftwood {
namespace {

/// Counts the paints of a widget.
class PaintCounter final : public QObject {
  public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    [[nodiscard]] int take() {
        platform::testing::runFor(20);
        return std::exchange(paints_, 0);
    }
    bool eventFilter(QObject* /*object*/, QEvent* event) override {
        paints_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

  private:
    int paints_ = 0;
};

TEST(StyleFollower, AppliesAndRepaintsAlsoTheViewportOfAScrollArea) {
    ButtonCellStyle style;
    QListView list;
    const StyleFollower follower(list, style, [](QWidget& widget, BaseStyle& changed) {
        widget.setObjectName(QStringLiteral("%1").arg(
            static_cast<ButtonCellStyle&>(changed).titleEdgeInsets().left));
    });
    PaintCounter viewport(*list.viewport());
    platform::testing::showActive(list);
    (void)viewport.take();
    EXPECT_EQ(list.objectName(), QString()) << "not for the style as it is";
    style.setOpaque(true);
    EXPECT_EQ(viewport.take(), 1);
    EXPECT_EQ(list.objectName(), QStringLiteral("0"));
    style.setTitleEdgeInsets({0, 5, 0, 0});
    EXPECT_EQ(list.objectName(), QStringLiteral("5"));
}

TEST(StyleFollower, FollowsASecondStyleAtTheSameAddress) {
    std::optional<ButtonCellStyle> style(std::in_place);
    QWidget first;
    QWidget second;
    std::optional<StyleFollower> former(std::in_place, first, *style);
    const auto* const address = &*style;
    style.emplace(); // the first one's style has gone
    ASSERT_EQ(&*style, address);
    const StyleFollower follower(second, *style);
    PaintCounter counter(second);
    platform::testing::showActive(second);
    (void)counter.take();
    style->setOpaque(true);
    EXPECT_EQ(counter.take(), 1);
    former.reset(); // leaves its own list, not the new one
    style->setOpaque(false);
    EXPECT_EQ(counter.take(), 1);
}

/// Widgets of one style whose followers come and go while a change is applied.
struct Restyled final : QWidget {
    Restyled(BaseStyle& style, std::vector<std::unique_ptr<Restyled>>& all, int at)
        : widgets(all), place(at), follower(*this, style, [](QWidget& widget, BaseStyle& changed) {
              static_cast<Restyled&>(widget).apply(changed);
          }) {}

    void apply(BaseStyle& style) {
        ++applied;
        if (place == 1) {
            widgets[0].reset(); // called before it
            widgets[2].reset(); // not called yet
            widgets.push_back(std::make_unique<Restyled>(style, widgets, 9));
            widgets[1].reset(); // itself
        }
    }

    std::vector<std::unique_ptr<Restyled>>& widgets;
    int place;
    int applied = 0;
    StyleFollower follower;
};

TEST(StyleFollower, FollowersMayComeAndGoWhileTheyAreTold) {
    ButtonCellStyle style;
    std::vector<std::unique_ptr<Restyled>> widgets;
    widgets.reserve(8);
    for (int i = 0; i < 4; ++i) {
        widgets.push_back(std::make_unique<Restyled>(style, widgets, i));
    }
    widgets[1]->place = 5; // quiet until here
    style.setBackgroundStyle(BackgroundStyle::normal);
    EXPECT_EQ(widgets[2]->applied, 1);
    widgets[1]->place = 1;
    style.setBackgroundStyle(BackgroundStyle::raised);
    EXPECT_EQ(widgets[0], nullptr);
    EXPECT_EQ(widgets[1], nullptr);
    EXPECT_EQ(widgets[2], nullptr);
    const int before = widgets[3]->applied;
    EXPECT_EQ(before, 2) << "told of both changes";
    style.setBackgroundStyle(BackgroundStyle::lowered);
    EXPECT_EQ(widgets[3]->applied, before + 1);
    EXPECT_GE(widgets[4]->applied, 1);
}

} // namespace
} // namespace driftwood
