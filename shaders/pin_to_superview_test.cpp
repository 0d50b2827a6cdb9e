#include "shaders/pin_to_superview.hpp"

#include <QWidget>

#include <gtest/gtest.h>

namespace kestrel {
namespace {

TEST(PinToSuperview, KeepsTheInsets) {
    QWidget superview;
    QWidget* const view = new QWidget(&superview);
    superview.resize(200, 100);
    superview.show();
    const core::EdgeInsets insets{1, 2, 3, 4}; // top, left, bottom, right
    pinToSuperview(*view, nullptr, insets);
    EXPECT_NE(view->geometry(), QRect(2, 1, 194, 96));
    pinToSuperview(*view, &superview, insets);
    EXPECT_EQ(view->geometry(), QRect(2, 1, 194, 96));
    superview.resize(300, 50);
    EXPECT_EQ(view->geometry(), QRect(2, 1, 294, 46));
    superview.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(view->geometry(), QRect(4, 1, 294, 46));
    superview.setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(view->geometry(), QRect(2, 1, 294, 46));

    pinToSuperview(*view, &superview, {-5, -5, -5, -5}); // takes the place of the former
    superview.resize(100, 100);
    EXPECT_EQ(view->geometry(), QRect(-5, -5, 110, 110));
    superview.resize(3, 3);
    pinToSuperview(*view, &superview, {10, 10, 10, 10});
    EXPECT_GE(view->width(), 0);
}

TEST(PinToSuperview, EndsWithAnotherParent) {
    QWidget first;
    QWidget second;
    first.resize(100, 100);
    second.resize(100, 100);
    first.show();
    second.show();
    auto* const view = new QWidget(&first);
    pinToSuperview(*view, &first);
    view->setParent(&first, Qt::WindowFlags()); // the same one
    first.resize(120, 120);
    EXPECT_EQ(view->size(), QSize(120, 120));

    view->setParent(&second);
    first.resize(50, 50);
    second.resize(60, 60);
    EXPECT_EQ(view->size(), QSize(120, 120));
    pinToSuperview(*view, &second);
    second.resize(70, 70);
    EXPECT_EQ(view->size(), QSize(70, 70));
}

} // namespace
} // namespace kestrel
