#include "platform/controls/environment.hpp"

#include <QDialog>

#include <gtest/gtest.h>

namespace platform {
namespace {

struct Settings {
    int labelWidth = 0;
};
struct Other {};

/// A row of a pane that reads the settings of its environment.
struct Row final : QWidget {
    using QWidget::QWidget;
    int changes = 0;
    Environment<Settings> settings{*this, [this] { ++changes; }};

    [[nodiscard]] int width() const {
        return settings.object() != nullptr ? settings.object()->labelWidth : -1;
    }
};

TEST(Environment, IsHandedDownAndFollowed) {
    QWidget window;
    QWidget pane(&window);
    QWidget inner(&pane);
    Row row(&inner);
    const auto expect = [&](int width, int changes, const char* what) {
        EXPECT_EQ(row.width(), width) << what;
        EXPECT_EQ(row.changes, changes) << what;
    };
    expect(-1, 0, "nothing is there");
    const auto wide = std::make_shared<Settings>(Settings{120});
    setEnvironment(window, wide);
    expect(120, 1, "put far above");
    setEnvironment(window, wide);
    setEnvironment(window, std::make_shared<Other>());
    expect(120, 1, "nothing new");
    setEnvironment(pane, std::make_shared<Settings>(Settings{80}));
    expect(80, 2, "the nearest counts");
    setEnvironment(window, std::make_shared<Settings>(Settings{140}));
    expect(80, 2, "hidden by the nearer one");
    setEnvironment<Settings>(pane, nullptr);
    expect(140, 3, "taken away");
    setEnvironment(row, std::make_shared<Settings>(Settings{7}));
    expect(7, 4, "the widget's own");
    EXPECT_EQ(environment<Settings>(inner)->labelWidth, 140);
}

TEST(Environment, FollowsEveryChangeOfAParent) {
    QWidget left;
    QWidget right;
    setEnvironment(left, std::make_shared<Settings>(Settings{1}));
    setEnvironment(right, std::make_shared<Settings>(Settings{2}));
    auto* const pane = new QWidget(&left);
    auto* const row = new Row(pane);
    EXPECT_EQ(row->width(), 1);
    pane->setParent(&right); // one above the row
    EXPECT_EQ(row->width(), 2);
    EXPECT_EQ(row->changes, 1);
    setEnvironment(left, std::make_shared<Settings>(Settings{3}));
    EXPECT_EQ(row->changes, 1) << "where it was, nobody follows";
    row->setParent(nullptr);
    EXPECT_EQ(row->width(), -1);
    auto* const sheet = new QDialog(&left); // a window's parent hands down, too
    row->setParent(sheet);
    EXPECT_EQ(row->width(), 3);
    EXPECT_EQ(row->changes, 3);
}

TEST(Environment, AFollowerMayGoWhileItIsTold) {
    QWidget window;
    auto follower = std::make_unique<Environment<Settings>>(window);
    int calls = 0;
    follower = std::make_unique<Environment<Settings>>(window, [&] {
        ++calls;
        follower.reset();
    });
    const auto second = std::make_unique<Environment<Settings>>(window, [&calls] { calls += 10; });
    setEnvironment(window, std::make_shared<Settings>());
    setEnvironment(window, std::make_shared<Settings>());
    EXPECT_EQ(calls, 21);
    std::weak_ptr<Settings> object = environment<Settings>(window);
    EXPECT_FALSE(object.expired());
}

} // namespace
} // namespace platform
