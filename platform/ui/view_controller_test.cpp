#include "platform/testing/window_testing.hpp"
#include "platform/ui/key_window.hpp"
#include "platform/ui/view_controller.hpp"

#include <QApplication>
#include <QMenu>

#include <gmock/gmock.h>

namespace platform {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::runFor;
using testing::showActive;

class Recorder final : public ViewController {
  public:
    using ViewController::ViewController;
    std::vector<std::string> calls;
    std::vector<std::string> taken() { return std::exchange(calls, {}); }

    void viewWillAppear() override { calls.emplace_back("will appear"); }
    void viewDidAppear() override { calls.emplace_back("did appear"); }
    void viewDidDisappear() override { calls.emplace_back("did disappear"); }
    void windowDidHideFromSight() override { calls.emplace_back("hidden"); }
    void windowDidReturnToSight() override { calls.emplace_back("seen"); }
};

TEST(ViewController, TellsAppearancesFromMinimising) {
    QWidget window;
    QWidget other;
    auto* const parent = new QWidget(&window);
    auto* const view = new QWidget(parent);
    auto* const recorder = new Recorder(view); // owned by the view
    const auto appears = ElementsAre("will appear", "did appear");
    runFor(0);
    EXPECT_THAT(recorder->taken(), IsEmpty());
    EXPECT_EQ(recorder->window(), nullptr);

    showActive(window);
    EXPECT_THAT(recorder->taken(), appears);
    EXPECT_EQ(recorder->window(), &window);

    window.showMinimized();
    runFor(20);
    EXPECT_THAT(recorder->taken(), ElementsAre("hidden"));
    window.showNormal();
    runFor(20);
    EXPECT_THAT(recorder->taken(), ElementsAre("seen"));

    parent->hide();
    EXPECT_THAT(recorder->taken(), ElementsAre("did disappear"));
    EXPECT_EQ(recorder->window(), nullptr);
    parent->show();
    runFor(0);
    EXPECT_THAT(recorder->taken(), appears);

    window.close();
    EXPECT_THAT(recorder->taken(), ElementsAre("did disappear"));
    window.showMinimized(); // the window is not followed while the view is away
    window.showNormal();
    runFor(20);
    recorder->taken();

    // Three changes before the event loop comes round end in one appearance.
    parent->hide();
    parent->show();
    parent->hide();
    parent->show();
    runFor(0);
    EXPECT_THAT(recorder->taken(), ElementsAre("did disappear", "will appear", "did disappear",
                                               "will appear", "did appear"));

    showActive(other);
    parent->setParent(&other);
    EXPECT_THAT(recorder->taken(), ElementsAre("did disappear"));
    parent->show();
    runFor(0);
    EXPECT_THAT(recorder->taken(), appears);
    EXPECT_EQ(recorder->window(), &other);
    window.showMinimized(); // no longer its window
    runFor(20);
    EXPECT_THAT(recorder->taken(), IsEmpty());
    delete view; // and with it its controller
}

TEST(KeyWindow, IsWhoeverHasTheKeyboard) {
    QWidget first;
    QWidget second;
    QWidget child(&first);
    std::vector<QObject*> became;
    std::vector<QObject*> resigned;
    const auto a = observeWindowBecomingKey([&](QObject* object) { became.push_back(object); });
    auto b = observeWindowResigningKey([&](QObject* object) { resigned.push_back(object); });
    showActive(first);
    showActive(second);
    EXPECT_THAT(became, ElementsAre(&first, &second));
    EXPECT_THAT(resigned, ElementsAre(&first));
    QMenu menu(&second);
    menu.addAction(QStringLiteral("Action"));
    menu.popup({0, 0});
    runFor(20);
    menu.close();
    runFor(20);
    EXPECT_EQ(became.size(), 2U);
    EXPECT_EQ(resigned.size(), 1U);
    b = {};
    showActive(first);
    EXPECT_EQ(became.size(), 3U);
    EXPECT_EQ(resigned.size(), 1U);
}

} // namespace
} // namespace platform
