#include "fernhorn/dials/dial.hpp"
#include "fernhorn/plugin/editor_owner.hpp"
#include "fernhorn/testing/test_parameter.hpp"

#include <QApplication>

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace fernhorn {
namespace {

class EditorOwnerTest : public testing::Test {
  protected:
    core::MainQueue queue;
    std::shared_ptr<AudioParameter> gain = TestParameter{}.on(queue);

    std::unique_ptr<EditorOwner> open(WId parent = 0) {
        return EditorOwner::open(
            parent,
            [&] {
                const LabelDisplayOptions look{.valueColor = {1, 1, 1, 1},
                                               .labelFontSize = 11,
                                               .valueFontSize = 13,
                                               .editingFontSize = 13,
                                               .showSuffix = true,
                                               .showName = false,
                                               .labelWidth = 50};
                return std::make_unique<ChaosDial>(gain, ModernDialColor::grey, look);
            },
            queue);
    }
    /// An audio thread automates; true when the interface has followed.
    bool follows(EditorOwner& owner, float value) {
        std::thread([&] { gain->setValue(value, fromUnit, change); }).join();
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (gain->value() != value && std::chrono::steady_clock::now() < end) {
            owner.idle();
        }
        return gain->value() == value;
    }
};

TEST_F(EditorOwnerTest, MakesTheApplicationForTheFirstEditorAndEndsItWithTheLast) {
    for (int reopened = 0; reopened < 20; ++reopened) {
        auto first = open();
        ASSERT_NE(first, nullptr);
        ASSERT_NE(QApplication::instance(), nullptr);
        auto second = open();
        first->idle();
        EXPECT_FALSE(first->editor()->grab().toImage().isNull());
        EXPECT_NE(first->windowId(), 0U);
        EXPECT_FALSE(first->sizeInPixels().isEmpty());
        EXPECT_TRUE(follows(*first, static_cast<float>(reopened + 1) / 50)) << reopened;
        (reopened % 2 == 0 ? first : second).reset();
        auto& left = reopened % 2 == 0 ? *second : *first;
        EXPECT_TRUE(follows(left, 1)) << "the other editor stays alive, " << reopened;
        // An editor may be closed from within the events that it runs.
        bool isClosed = false;
        queue.post([&] {
            (reopened % 2 == 0 ? second : first).reset();
            isClosed = true;
        });
        while (!isClosed) {
            left.idle();
        }
        EXPECT_EQ(QApplication::instance(), nullptr);
        gain->setValue(0.5F, fromUnit, change); // nobody drains
    }
}

TEST_F(EditorOwnerTest, JoinsTheApplicationOfTheHost) {
    {
        int count = 1;
        char name[] = "host";
        char* arguments[] = {name, nullptr};
        QApplication host(count, arguments);
        QWidget window;
        window.show();
        auto owner = open(window.winId());
        ASSERT_NE(owner, nullptr);
        EXPECT_EQ(owner->editor()->parentWidget(), &window) << "where keys arrive";
        owner->idle();
        std::unique_ptr<EditorOwner> onAnotherThread;
        std::thread([&] { onAnotherThread = open(); }).join();
        EXPECT_EQ(onAnotherThread, nullptr);
        owner.reset();
        EXPECT_EQ(QApplication::instance(), &host);

        auto* const doomed = new QWidget;
        owner = open(doomed->winId());
        delete doomed; // the host destroys its window first
        EXPECT_EQ(owner->editor(), nullptr);
        owner->idle();
    }
    int count = 1;
    char name[] = "host";
    char* arguments[] = {name, nullptr};
    const QCoreApplication withoutWindows(count, arguments);
    EXPECT_EQ(open(), nullptr);
}

} // namespace
} // namespace fernhorn
