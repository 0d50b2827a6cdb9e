#include "driftwood/declarative/styled_pop_up_button_wrapper.hpp"

#include <gtest/gtest.h>

namespace driftwood {
namespace {

using Wrapper = StyledPopUpButtonWrapper<int>;

TEST(PopUpWrappers, ShowAndWriteTheBoundValue) {
    const auto bound = std::make_shared<core::Observable<int>>(3);
    Wrapper::Items items{
        {1, QStringLiteral("One")},
        {.isDivider = true},
        {{}, QStringLiteral("Nothing")},
        {.title = QStringLiteral("More"),
         .subMenu = Wrapper::Items{{3, QStringLiteral("Three")}, {1, QStringLiteral("One again")}}},
        {5, {}},
        {.object = 6, .title = QStringLiteral("Six"), .isEnabled = false}};
    Wrapper wrapper(items, core::Binding<int>(bound), QStringLiteral("Count"), 120);
    const auto title = [&] { return wrapper.button().title(); };
    EXPECT_EQ(title(), QStringLiteral("Three")) << "in a submenu";
    EXPECT_EQ(wrapper.button().styledCell().label(), QStringLiteral("Count"));
    EXPECT_EQ(wrapper.button().intrinsicContentSize().width, 116);
    EXPECT_FALSE(wrapper.button().menu().itemAt(5)->isEnabled());

    platform::Menu& menu = wrapper.button().menu();
    menu.itemAt(0)->trigger();
    EXPECT_EQ(bound->value(), 1);
    EXPECT_EQ(title(), QStringLiteral("One"));
    menu.itemAt(1)->trigger();
    menu.itemAt(2)->trigger();
    EXPECT_EQ(bound->value(), 1) << "no object, no change";
    EXPECT_EQ(title(), QStringLiteral("One"));
    bound->set(5);
    EXPECT_EQ(title(), QString()) << "an item without a title";
    bound->set(3);
    bound->set(77);
    EXPECT_EQ(title(), QStringLiteral("Three")) << "what no item has changes nothing";
    wrapper.setItems({{8, QStringLiteral("Eight")}, {9, QStringLiteral("Nine")}});
    EXPECT_EQ(title(), QStringLiteral("Three"));
    bound->set(9);
    EXPECT_EQ(title(), QStringLiteral("Nine"));
}

TEST(PopUpWrappers, MayGoWithTheChoice) {
    const auto bound = std::make_shared<core::Observable<int>>(0);
    auto wrapper =
        std::make_unique<Wrapper>(Wrapper::Items{{1, QStringLiteral("One")}}, core::Binding(bound));
    const auto going = bound->observe([&](int) { wrapper.reset(); });
    wrapper->button().menu().itemAt(0)->trigger();
    EXPECT_EQ(bound->value(), 1);
    EXPECT_EQ(wrapper, nullptr);
}

} // namespace
} // namespace driftwood
