#include "platform/testing/plain_button_style.hpp"
#include "platform/testing/recording_workspace.hpp"
#include "platform/testing/window_testing.hpp"
#include "updates/dialogs/release_notes_view.hpp"
#include "updates/dialogs/update_messages.hpp"
#include "updates/dialogs/update_windows.hpp"
#include "updates/session/safe_html.hpp"
#include "updates/session/update_session.hpp"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <memory>
#include <set>

namespace updates {
namespace {

using ::testing::ElementsAre;

DialogStyle plainStyle() {
    const auto style = std::make_shared<platform::testing::PlainButtonStyle>();
    return {style, std::make_shared<platform::testing::PlainButtonStyle>(), style, style};
}

class UpdateDialogs : public ::testing::Test {
  protected:
    UpdateDialog& show(const UpdateScene& scene) {
        const auto note = [this](const char* what) {
            return [this, what] { decisions.emplace_back(what); };
        };
        dialog.reset(makeUpdateDialog(scene, {.style = plainStyle(),
                                              .product = "Larkvox",
                                              .website = QUrl("https://www.fennick.example/"),
                                              .workspace = &workspace,
                                              .checksByItself = true,
                                              .checkAgain = note("again"),
                                              .skip = note("skip"),
                                              .install = note("install"),
                                              .relaunch = note("relaunch"),
                                              .dismiss = note("dismiss"),
                                              .setChecksByItself = [this](bool checks) {
                                                  decisions.emplace_back(checks ? "yes" : "no");
                                              }}));
        platform::testing::showActive(*dialog);
        return *dialog;
    }

    [[nodiscard]] std::vector<std::string> buttons() const {
        std::vector<std::string> texts;
        for (const platform::Button* const button : dialog->findChildren<platform::Button*>()) {
            if (button->isVisible() && !button->isCheckable()) {
                texts.push_back(button->text().toStdString());
            }
        }
        return texts;
    }

    void press(const char* text) {
        for (platform::Button* const button : dialog->findChildren<platform::Button*>()) {
            if (button->isVisible() && button->text() == text) {
                button->click();
                return;
            }
        }
        FAIL() << "no button " << text;
    }

    platform::testing::RecordingWorkspace workspace;
    std::vector<std::string> decisions;
    std::unique_ptr<UpdateDialog> dialog;
};

const scene::Offer offer{.version = "1.1.0", .installedVersion = "1.0.0", .notes = "<p>New</p>"};

TEST_F(UpdateDialogs, HaveTheirButtonsAndReturnInstallsNothing) {
    scene::Offer critical = offer;
    critical.isCritical = true;
    const struct {
        UpdateScene scene;
        std::vector<std::string> buttons;
        std::vector<std::string> decisions; // what the buttons lead to
    } cases[] = {
        {scene::Permission{}, {"Don’t Check", "Check Automatically"}, {"no", "yes"}},
        {offer,
         {"Skip This Version", "Remind Me Later", "Install Update"},
         {"skip", "dismiss", "install"}},
        {critical, {"Remind Me Later", "Install Update"}, {"dismiss", "install"}},
        {scene::Checking{}, {"Cancel"}, {"dismiss"}},
        {scene::Downloading{"1.1.0", {1, 2, 0}}, {"Cancel"}, {"dismiss"}},
        {scene::Unpacking{"1.1.0", 0.5}, {"Cancel"}, {"dismiss"}},
        {scene::Ready{"1.1.0"},
         {"Remind Me Later", "Install and Relaunch"},
         {"dismiss", "relaunch"}},
        {scene::Installing{"1.1.0"}, {}, {}},
        {scene::UpToDate{"1.0.0", false}, {"Close"}, {"dismiss"}},
        {scene::Failed{{UpdateProblem::offline, "host"}},
         {"Close", "Try Again"},
         {"dismiss", "again"}},
        {scene::ManagedElsewhere{"1.1.0", Management::dpkg, "larkvox"}, {"Close"}, {"dismiss"}},
    };
    for (const auto& [scene, texts, outcome] : cases) {
        UpdateDialog& shown = show(scene);
        EXPECT_EQ(buttons(), texts);
        decisions.clear();
        for (const std::string& text : texts) {
            press(text.c_str());
        }
        EXPECT_EQ(decisions, outcome);
        decisions.clear();
        QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget()
                                                               : &shown,
                        Qt::Key_Return);
        platform::testing::runFor(150); // the button that has the focus goes down and up
        EXPECT_THAT(decisions, ::testing::Not(::testing::Contains(
                                   ::testing::AnyOf("install", "relaunch", "yes", "skip"))));
        decisions.clear();
        QTest::keyClick(&shown, Qt::Key_Escape);
        shown.close();
        EXPECT_THAT(decisions, ElementsAre("dismiss", "dismiss"));
    }
}

TEST_F(UpdateDialogs, AreWorkedWithTheKeyboardAlone) {
    show(offer);
    std::set<std::string> reached;
    for (int i = 0; i < 8; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        const auto* const element =
            QAccessible::queryAccessibleInterface(QApplication::focusWidget());
        reached.insert(element->text(QAccessible::Name).toStdString());
    }
    EXPECT_THAT(reached, ElementsAre("Install Update", "Release notes", "Remind Me Later",
                                     "Skip This Version"));
    while (QApplication::focusWidget()->property("text") != "Install Update") {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    platform::testing::runUntil([&] { return !decisions.empty(); });
    EXPECT_THAT(decisions, ElementsAre("install"));
}

TEST_F(UpdateDialogs, AreReadableWithoutLooking) {
    UpdateDialog& shown = show(scene::Downloading{"1.1.0", {17'300'000, 41'200'000, 2'400'000}});
    const auto* const window = QAccessible::queryAccessibleInterface(&shown);
    EXPECT_EQ(window->role(), QAccessible::Dialog);
    EXPECT_EQ(window->text(QAccessible::Name), "Downloading Larkvox 1.1.0…");
    auto* const bar = shown.findChild<QProgressBar*>();
    auto* const element = QAccessible::queryAccessibleInterface(bar);
    EXPECT_EQ(element->role(), QAccessible::ProgressBar);
    EXPECT_EQ(element->text(QAccessible::Name), "Progress");
    EXPECT_EQ(element->text(QAccessible::Description), "17.3 MB of 41.2 MB, 2.4 MB/s");
    ASSERT_NE(element->valueInterface(), nullptr);
    EXPECT_EQ(element->valueInterface()->currentValue().toInt(), 420);
    // The same dialog goes on to the end.
    EXPECT_TRUE(shown.show(scene::Unpacking{"1.1.0", 0.25}));
    EXPECT_EQ(element->valueInterface()->currentValue().toInt(), 250);
    EXPECT_TRUE(shown.show(scene::Ready{"1.1.0"}));
    EXPECT_EQ(window->text(QAccessible::Description),
              "To install it, Larkvox quits and starts again.");
    EXPECT_FALSE(shown.show(offer));
    show(offer);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(dialog.get())->text(QAccessible::Description),
              "Larkvox 1.1.0 is available; you have 1.0.0.");
}

TEST_F(UpdateDialogs, ShowNotesAndLoadNothing) {
    show(offer);
    auto* const notes = dialog->findChild<ReleaseNotesView*>();
    EXPECT_EQ(notes->toPlainText(), "New");
    EXPECT_FALSE(
        notes->loadResource(QTextDocument::ImageResource, QUrl("file:///etc/hostname")).isValid());
    scene::Offer loading = offer;
    loading.isLoadingNotes = true;
    dialog->show(loading);
    EXPECT_EQ(notes->toPlainText(), "Loading the release notes…");
    show(scene::Failed{{UpdateProblem::signatureMissing, {}}});
    press("Open Website");
    EXPECT_EQ(workspace.opened.back(), QUrl("https://www.fennick.example/"));
}

TEST_F(UpdateDialogs, OpenLinksElsewhere) {
    scene::Offer linked = offer;
    linked.notes = "<p><a href=\"https://a.example/b\">A link that is easy to hit</a></p>";
    linked.notesPage = QUrl("https://a.example/all?\"><b>");
    auto* const notes = show(linked).findChild<ReleaseNotesView*>();
    const QString before = notes->toPlainText();
    EXPECT_TRUE(before.endsWith("All release notes are on this page."));
    QTest::mouseClick(notes->viewport(), Qt::LeftButton, {}, {40, 22});
    EXPECT_EQ(workspace.opened, QList<QUrl>{QUrl("https://a.example/b")});
    EXPECT_EQ(notes->toPlainText(), before);
    EXPECT_EQ(notes->anchorAt({40, 22}), "https://a.example/b"); // it shows where a click goes
    EXPECT_TRUE(notes->toHtml().contains("https://a.example/all?%22%3E%3Cb%3E"));
}

TEST_F(UpdateDialogs, ShowTextAsItIsAndNeverExceedTheScreen) {
    const QString lines = QString("a line\n").repeated(2000);
    const QString word(5000, 'x');
    const QString rich = "<h1>Your licence has expired</h1><br><br><br><br>";
    for (const QString& text : {lines, word, rich}) {
        scene::Offer loud = offer;
        loud.version = text;
        for (const UpdateScene& scene : std::initializer_list<UpdateScene>{
                 loud, scene::Failed{{UpdateProblem::offline, text}},
                 scene::Downloading{text, {1, 2, 0}}, scene::UpToDate{text, true}}) {
            show(scene);
            const QSize screen = dialog->screen()->availableSize();
            EXPECT_LE(dialog->width(), screen.width());
            EXPECT_LE(dialog->height(), screen.height());
            for (const QLabel* const label : dialog->findChildren<QLabel*>()) {
                EXPECT_TRUE(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
            }
        }
    }
}

TEST_F(UpdateDialogs, OfferTheRemedyFirstAndTellWhatFailed) {
    show(scene::Failed{{UpdateProblem::offline, "host"}, scene::Failed::While::looking});
    EXPECT_EQ(QApplication::focusWidget()->property("text"), "Try Again");
    EXPECT_EQ(dialog->accessibleName(), "Larkvox couldn’t look for updates");
    show(scene::Failed{{UpdateProblem::offline, "host"}});
    EXPECT_EQ(dialog->accessibleName(), "Larkvox couldn’t get the update");
    show(scene::Failed{{UpdateProblem::signatureMissing, {}}});
    EXPECT_EQ(QApplication::focusWidget()->property("text"), "Open Website");
}

TEST_F(UpdateDialogs, LetThePersonChooseOnceADay) {
    show(scene::UpToDate{"1.0.0", true});
    auto* const box = dialog->findChild<QAbstractButton*>();
    ASSERT_TRUE(box != nullptr && box->isCheckable());
    EXPECT_TRUE(box->isChecked());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(box)->role(), QAccessible::CheckBox);
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_THAT(decisions, ElementsAre("no"));
}

TEST(UpdateMessages, AreDistinctAndComplete) {
    std::set<QString> texts;
    const int last = static_cast<int>(UpdateProblem::relaunchFailed);
    for (int i = 0; i <= last; ++i) {
        const UpdateMessage message =
            messageOf(scene::Failed{{static_cast<UpdateProblem>(i), "DETAIL"}}, "Larkvox").value();
        EXPECT_FALSE(message.title.isEmpty()) << i;
        EXPECT_GT(message.text.size(), 40) << i;
        EXPECT_FALSE(message.text.contains('%')) << message.text.toStdString();
        EXPECT_FALSE(message.text.contains("unknown", Qt::CaseInsensitive));
        texts.insert(message.text);
    }
    EXPECT_EQ(texts.size(), static_cast<std::size_t>(last) + 1);
}

/// The windows over a session that cannot reach anything.
class UpdateWindowsTest : public ::testing::Test {
  protected:
    UpdateWindowsTest() {
        QObject::connect(&session, &UpdateSession::sceneChanged, [this] { ++changes; });
    }
    platform::testing::RecordingWorkspace workspace;
    UpdateSession session{UpdaterConfiguration()};
    UpdateWindows windows{session, plainStyle(), workspace};
    int changes = 0;
};

TEST_F(UpdateWindowsTest, TakeTheFocusOnCommandOnly) {
    emit session.sceneChanged(offer); // by itself
    ASSERT_NE(windows.dialog(), nullptr);
    EXPECT_TRUE(windows.dialog()->testAttribute(Qt::WA_ShowWithoutActivating));
    emit session.attentionWanted();
    EXPECT_FALSE(windows.dialog()->testAttribute(Qt::WA_ShowWithoutActivating));
    emit session.sceneChanged(scene::Nothing{});
    EXPECT_EQ(windows.dialog(), nullptr);
    emit session.sceneChanged(scene::Permission{});
    EXPECT_TRUE(windows.dialog()->testAttribute(Qt::WA_ShowWithoutActivating));

    session.checkForUpdates(); // the feed has no address: there is an answer all the same
    ASSERT_NE(windows.dialog(), nullptr);
    EXPECT_FALSE(windows.dialog()->testAttribute(Qt::WA_ShowWithoutActivating));
    const QPoint centre = windows.dialog()->geometry().center();
    ASSERT_TRUE(platform::testing::runUntil(
        [&] { return std::holds_alternative<scene::Failed>(session.scene()); }));
    EXPECT_LT((windows.dialog()->geometry().center() - centre).manhattanLength(), 4);
    windows.dialog()->close();
    EXPECT_TRUE(std::holds_alternative<scene::Nothing>(session.scene()));
    EXPECT_EQ(windows.dialog(), nullptr);
}

TEST_F(UpdateWindowsTest, KeepNoProgramAliveThatHasNoWindowLeft) {
    for (const bool isClosedByItsFrame : {true, false}) {
        session.checkForUpdates();
        ASSERT_TRUE(platform::testing::runUntil(
            [&] { return std::holds_alternative<scene::Failed>(session.scene()); }));
        QTimer::singleShot(0, windows.dialog(), [&] {
            isClosedByItsFrame ? static_cast<void>(windows.dialog()->close()) : session.dismiss();
        });
        QTimer watchdog;
        QObject::connect(&watchdog, &QTimer::timeout, qApp, [] { QCoreApplication::exit(1); });
        watchdog.start(5000);
        const auto last = QObject::connect(qApp, &QGuiApplication::lastWindowClosed, qApp,
                                           [] { QCoreApplication::exit(0); });
        EXPECT_EQ(QApplication::exec(), 0);
        QObject::disconnect(last);
    }
}

} // namespace
} // namespace updates
