#include "fernhorn/plugin/editor_owner.hpp"

#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "platform/ui/locale_services.hpp"
#include "platform/ui/main_queue_driver.hpp"

#include <QApplication>
#include <QPointer>
#include <QThread>
#include <QWindow>

#include <utility>

namespace fernhorn {

/// The application object, ours or the host's.
class EditorOwner::Application {
  public:
    /// The one of the editors that are open, or a new one. Null when there can be none.
    static std::shared_ptr<Application> retain() {
        static std::weak_ptr<Application> current;
        const auto* const there = QCoreApplication::instance();
        if (there != nullptr && (qobject_cast<const QApplication*>(there) == nullptr ||
                                 there->thread() != QThread::currentThread())) {
            return nullptr;
        }
        auto application = current.lock();
        if (application == nullptr) {
            application = std::make_shared<Application>(there == nullptr);
            current = application;
        }
        return application;
    }

    explicit Application(bool isOwn) {
        if (isOwn) {
            // The host stays who it is: no native menu bar, and no application event handling.
            QCoreApplication::setAttribute(Qt::AA_PluginApplication);
            // Qt keeps both for as long as the process runs.
            static char name[] = "plugin";
            static char* arguments[] = {name, nullptr};
            static int count = 1;
            own_ = std::make_unique<QApplication>(count, arguments);
            own_->setQuitOnLastWindowClosed(false);
        }
        platform::installLocaleServices();
        // An application takes its fonts along when it goes.
        if (hasResourceBundle()) {
            resourceBundle().assets().registerFonts();
        }
    }

    /// Runs Qt's events where the host does not.
    void processEvents() {
        if (own_ != nullptr && !std::exchange(isProcessing_, true)) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
            isProcessing_ = false;
        }
    }

    [[nodiscard]] bool isProcessing() const { return isProcessing_; }

  private:
    std::unique_ptr<QApplication> own_;
    bool isProcessing_ = false;
};

/// The editor within the host's window.
class EditorOwner::Embedding {
  public:
    Embedding(WId parentWindow, const MakeEditor& makeEditor, core::MainQueue& queue)
        : driver_(queue), editor(makeEditor().release()) {
        if (parentWindow != 0) {
            if (QWidget* const parent = QWidget::find(parentWindow)) {
                // As a window within a window of the same Qt, keys would never arrive.
                editor->setParent(parent);
                editor->move(0, 0);
            } else {
                editor->setWindowFlag(Qt::FramelessWindowHint);
                foreign_.reset(QWindow::fromWinId(parentWindow));
                editor->winId(); // makes the window
                editor->windowHandle()->setParent(foreign_.get());
                editor->windowHandle()->setPosition(0, 0);
            }
        }
        editor->show();
    }

    ~Embedding() {
        if (editor == nullptr) {
            return; // gone with the host's widget
        }
        editor->hide();
        if (foreign_ != nullptr && editor->windowHandle() != nullptr) {
            editor->windowHandle()->setParent(nullptr);
        }
        delete editor;
    }
    Embedding(const Embedding&) = delete;
    Embedding& operator=(const Embedding&) = delete;

  private:
    std::unique_ptr<QWindow> foreign_; // ends after the editor
    platform::MainQueueDriver driver_;

  public:
    QPointer<QWidget> editor;
};

std::unique_ptr<EditorOwner> EditorOwner::open(WId parentWindow, const MakeEditor& makeEditor,
                                               core::MainQueue& queue) {
    auto application = Application::retain();
    if (application == nullptr || !hasResourceBundle()) {
        return nullptr;
    }
    return std::unique_ptr<EditorOwner>(
        new EditorOwner(std::move(application), parentWindow, makeEditor, queue));
}

EditorOwner::EditorOwner(std::shared_ptr<Application> application, WId parentWindow,
                         const MakeEditor& makeEditor, core::MainQueue& queue)
    : application_(std::move(application)),
      embedding_(std::make_unique<Embedding>(parentWindow, makeEditor, queue)) {}

EditorOwner::~EditorOwner() = default;

QWidget* EditorOwner::editor() const {
    return embedding_->editor;
}

WId EditorOwner::windowId() const {
    return editor() != nullptr ? editor()->winId() : 0;
}

QSize EditorOwner::sizeInPixels() const {
    return editor() != nullptr ? editor()->size() * editor()->devicePixelRatioF() : QSize();
}

void EditorOwner::idle() {
    if (application_->isProcessing()) {
        return;
    }
    // An editor may be closed while events run: nothing of this owner is touched after them.
    const auto application = application_;
    application->processEvents();
}

} // namespace fernhorn
