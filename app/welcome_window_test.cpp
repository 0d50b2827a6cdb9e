#include "app/content_view.hpp"
#include "app/larkvox_app.hpp"
#include "platform/assets/bundle.hpp"
#include "platform/controls/button.hpp"
#include "platform/controls/menu.hpp"
#include "platform/testing/recording_workspace.hpp"
#include "platform/ui/window_scene.hpp"
#include "shaders/quad_renderer.hpp"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMetaEnum>
#include <QStyle>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

#include <gmock/gmock.h>

namespace larkvox {
namespace {

using platform::Bundle;
using platform::Button;

const Bundle& realBundle() {
    static const Bundle bundle{QDir(APPLICATION_RESOURCES)};
    return bundle;
}

void write(const QString& path, const QByteArray& text) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(text);
}

/// Starts the program's texts again in the first of these languages that it has.
void speak(const QStringList& languages) {
    qDeleteAll(qApp->findChildren<QTranslator*>());
    prepareApplication(*qApp, realBundle(), languages);
}

class WelcomeWindow : public testing::Test {
  protected:
    WelcomeWindow() { speak({"en"}); }
    ~WelcomeWindow() override { speak({"en"}); }

    platform::WindowScene& window() {
        if (window_ == nullptr) {
            window_ = app_.makeWindow(realBundle());
            window_->show();
            EXPECT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
        }
        return *window_;
    }

    LarkvoxApp app_;

  private:
    std::unique_ptr<platform::WindowScene> window_;
};

QRect placeOf(const QWidget& widget) {
    return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

QStringList textsOf(const QWidget& root) {
    QStringList texts;
    for (const QLabel* const label : root.findChildren<QLabel*>()) {
        texts.append(label->text());
    }
    for (const Button* const button : root.findChildren<Button*>()) {
        texts.append(button->text());
    }
    return texts;
}

TEST(Application, StartsTheUpdaterAndSharesItsHelper) {
    LarkvoxApp app;
    const auto& updater = app.sparkleHelper().updaterController;
    ASSERT_NE(updater, nullptr);
    EXPECT_TRUE(updater->isStarted());
    EXPECT_EQ(app.appDelegate().sparkleHelper, &app.sparkleHelper());
    EXPECT_EQ(app.sparkleHelper().feedURLString(*updater),
              "https://updates.fennick.example/larkvox/appcast.xml");
}

TEST(Application, TurnsDarkWhenItHasStartedAndForNobodyElse) {
    const QPalette before = QApplication::palette();
    const QString style = QApplication::style()->name();
    AppDelegate delegate;
    QWidget other;
    delegate.applicationDidFinishLaunching(&other);
    delegate.applicationDidFinishLaunching(nullptr);
    EXPECT_EQ(QApplication::palette(), before);
    EXPECT_EQ(QApplication::style()->name(), style);
    delegate.applicationDidFinishLaunching(qApp);
    EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 40);
    EXPECT_GT(QApplication::palette().color(QPalette::WindowText).lightness(), 180);
}

TEST_F(WelcomeWindow, HasOneSizeItsTitleAndItsMenu) {
    const auto& shown = window();
    EXPECT_EQ(shown.windowTitle(), "Larkvox");
    EXPECT_EQ(shown.objectName(), "main");
    EXPECT_EQ(shown.minimumSize(), QSize(400, 572));
    EXPECT_EQ(shown.maximumSize(), QSize(400, 572));
    EXPECT_TRUE(shown.windowFlags().testFlag(Qt::FramelessWindowHint));
    QStringList entries;
    for (const QAction* const action : shown.menu()->actions()) {
        entries.append(action->isSeparator() ? "-" : action->text());
    }
    EXPECT_EQ(entries, QStringList({"About", "-", "Check for Updates\u2026"}));

    // Without an updater the command does nothing.
    app_.sparkleHelper().updaterController.reset();
    const auto windows = QApplication::topLevelWidgets().size();
    shown.menu()->actions().last()->trigger();
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
}

TEST_F(WelcomeWindow, IsLaidOutAsDesigned) {
    const auto& shown = window();
    const auto buttons = shown.findChildren<Button*>();
    ASSERT_EQ(buttons.size(), 2);
    const QRect help = placeOf(*buttons[0]);
    const QRect website = placeOf(*buttons[1]);
    EXPECT_EQ(buttons[0]->text(), "Help");
    EXPECT_EQ(buttons[1]->text(), "Fennick Website");
    // Each reaches two points out of its place, so the 16 between the places leave 12.
    EXPECT_EQ(help.size(), QSize(180, 24));
    EXPECT_EQ(website.size(), help.size());
    EXPECT_EQ(website.left() - (help.left() + help.width()), 12);
    EXPECT_EQ(help.left(), 400 - (website.left() + website.width()));
    EXPECT_EQ(572 - (help.top() + help.height()), 14);
    EXPECT_EQ(website.top(), help.top());

    // From top to bottom, everything on the window's axis.
    const auto labels = shown.findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 6);
    EXPECT_EQ(
        textsOf(shown).mid(0, 6),
        QStringList({"Larkvox", "Larkvox is now available as an Audio Unit.",
                     "Keep this app in your applications folder.", "To use Larkvox, insert it as",
                     "a plugin on an instrument track.", ContentView::versionLine(realBundle())}));
    EXPECT_NEAR(placeOf(*labels[0]).center().y(), 150, 1);
    const int gaps[] = {1, 16, 1, 16}; // between the lines of the message block
    for (int i = 1; i < 6; ++i) {
        const QRect line = placeOf(*labels[i]);
        EXPECT_NEAR(line.center().x(), 200, 1) << i;
        if (i < 5) {
            EXPECT_EQ(placeOf(*labels[i + 1]).top() - (line.top() + line.height()), gaps[i - 1]);
        }
    }
    EXPECT_GE(placeOf(*labels[1]).top(), 300 + 16);
    EXPECT_EQ(labels[1]->font().pixelSize(), 15);
    EXPECT_EQ(labels[1]->font().weight(), QFont::Bold);
    EXPECT_EQ(labels[5]->font().pixelSize(), 12);
    EXPECT_EQ(labels[5]->font().weight(), QFont::Medium);
}

TEST(VersionLine, WritesWhatIsMissingAsNothing) {
    const struct {
        QByteArray information;
        QString line;
    } cases[] = {{R"({"CFBundleShortVersionString": "1.2", "CFBundleVersion": "34"})", "1.2 (34)"},
                 {R"({"CFBundleVersion": "34"})", " (34)"},
                 {R"({"CFBundleShortVersionString": "%1"})", "%1 ()"},
                 {"{}", " ()"},
                 {"no JSON", " ()"}};
    for (const auto& [information, line] : cases) {
        const QTemporaryDir folder;
        write(folder.filePath("Info.json"), information);
        EXPECT_EQ(ContentView::versionLine(Bundle{QDir(folder.path())}), line);
    }
}

TEST_F(WelcomeWindow, OpensItsPages) {
    const QTemporaryDir folder;
    write(folder.filePath("Help/en.html"), "en");
    write(folder.filePath("Help/de.html"), "de");
    const Bundle bundle{QDir(folder.path())};
    const struct {
        QStringList languages;
        QString page;
    } cases[] = {{{"en-GB"}, "en"}, {{"de-CH", "fr"}, "de"}, {{"fr"}, "en"}}; // no French page here
    for (const bool succeeds : {true, false}) {
        for (const auto& [languages, page] : cases) {
            speak(languages);
            platform::testing::RecordingWorkspace workspace;
            workspace.succeeds = succeeds;
            ContentView view(180, bundle, workspace);
            const auto windows = QApplication::topLevelWidgets().size();
            for (Button* const button : view.findChildren<Button*>()) {
                button->click();
            }
            EXPECT_EQ(workspace.opened,
                      QList<QUrl>({QUrl::fromLocalFile(folder.filePath("Help/" + page + ".html")),
                                   QUrl("https://www.fennick.example/")}));
            EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
        }
    }
    for (const QString page : {"en.html", "de.html", "fr.html", "help.css"}) {
        EXPECT_TRUE(QFile::exists(realBundle().path("Help/" + page))) << page.toStdString();
    }
}

TEST_F(WelcomeWindow, SpeaksTheUsersLanguageWithoutClippingAWord) {
    QMap<QString, QStringList> spoken;
    for (const QString language : {"en", "de", "fr"}) {
        speak({language});
        LarkvoxApp app;
        const auto shown = app.makeWindow(realBundle());
        shown->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(shown.get()));
        for (const QLabel* const label : shown->findChildren<QLabel*>()) {
            const double width = QFontMetricsF(label->font()).horizontalAdvance(label->text());
            EXPECT_LE(width, label->width()) << label->text().toStdString();
            EXPECT_LE(width, 400 - 2 * 16) << label->text().toStdString();
            EXPECT_TRUE(shown->rect().contains(placeOf(*label))) << label->text().toStdString();
        }
        for (const Button* const button : shown->findChildren<Button*>()) {
            const QFontMetricsF metrics(button->buttonStyle().font());
            EXPECT_LE(metrics.horizontalAdvance(button->text()), 180 - 2 * 8)
                << button->text().toStdString();
        }
        EXPECT_EQ(shown->windowTitle(), "Larkvox");
        for (const QAction* const action : shown->menu()->actions()) {
            spoken[language].append(action->text());
        }
        spoken[language] += textsOf(*shown);
        EXPECT_EQ(spoken[language].filter("Larkvox").size(), 3);
        EXPECT_TRUE(spoken[language].contains(ContentView::versionLine(realBundle())));
        spoken[language].append(kestrel::RendererError(kestrel::RendererError::Case::noValidDevice)
                                    .localizedDescription());
    }
    EXPECT_EQ(spoken["en"].last(), "No valid metal device");
    EXPECT_EQ(spoken["de"].last(), "Kein gültiges Metal-Gerät");
    for (const QString language : {"de", "fr"}) {
        ASSERT_EQ(spoken[language].size(), spoken["en"].size());
        for (int i = 0; i < spoken["en"].size(); ++i) {
            const QString& text = spoken["en"][i];
            const bool isFixed = text.isEmpty() || text == "Larkvox" ||
                                 text == ContentView::versionLine(realBundle());
            EXPECT_EQ(spoken[language][i] == text, isFixed) << text.toStdString();
        }
    }
    // English is a language like the others: what stands behind it does not matter.
    for (const QStringList& languages :
         {QStringList{"en-US", "de"}, QStringList{"C", "de"}, QStringList{"eo"}, QStringList()}) {
        speak(languages);
        EXPECT_EQ(LarkvoxApp::tr("About"), "About");
    }
    speak({"eo", "fr-CA", "de"});
    EXPECT_EQ(LarkvoxApp::tr("About"), "À propos");
}

TEST_F(WelcomeWindow, IsReadableWithoutLooking) {
    // Role and name of everything that has a name or can be used, in the order of reading.
    std::vector<std::string> read;
    const auto readAll = [&](const auto& self, QAccessibleInterface& element) -> void {
        const QString name = element.text(QAccessible::Name);
        if (!element.state().invisible && (!name.isEmpty() || element.state().focusable)) {
            const char* const role =
                QMetaEnum::fromType<QAccessible::Role>().valueToKey(element.role());
            read.push_back(std::string(role) + " " + name.toStdString());
        }
        for (int i = 0; i < element.childCount(); ++i) {
            self(self, *element.child(i));
        }
    };
    readAll(readAll, *QAccessible::queryAccessibleInterface(&window()));
    EXPECT_THAT(read, testing::UnorderedElementsAre(
                          "Window Larkvox", "StaticText Larkvox",
                          "StaticText Larkvox is now available as an Audio Unit.",
                          "StaticText Keep this app in your applications folder.",
                          "StaticText To use Larkvox, insert it as",
                          "StaticText a plugin on an instrument track.",
                          "StaticText " + ContentView::versionLine(realBundle()).toStdString(),
                          "Graphic Fennick", "Button Help", "Button Fennick Website", "Button Menu",
                          "Button Minimize", "Button Close"));
}

} // namespace
} // namespace larkvox
