#pragma once

#include "core/main_queue.hpp"

#include <QSize>
#include <QWidget>

#include <functional>
#include <memory>

namespace fernhorn {

/// One open editor of a plug-in instance in a host's window, with what it needs around it: the
/// application object, the texts of the user's language, and the driver of the main queue. Made,
/// called and destroyed on the host's interface thread; ends before the parameters it shows.
///
/// In a host that has an application object of the same Qt the editor joins it. Elsewhere the first
/// editor in the process makes one and the last takes it along. All instances of the plug-in count
/// together.
class EditorOwner {
  public:
    using MakeEditor = std::function<std::unique_ptr<QWidget>()>;

    /// Makes the editor and shows it within `parentWindow` (0: in a window of its own), which stays
    /// the host's. The kit's typefaces are registered then. Null when there can be none: the host
    /// has an application object without windows, or on another thread, or the kit's resource
    /// bundle is missing. `queue` is the one that the editor's parameters travel over.
    static std::unique_ptr<EditorOwner> open(WId parentWindow, const MakeEditor& makeEditor,
                                             core::MainQueue& queue = core::MainQueue::shared());
    ~EditorOwner();
    EditorOwner(const EditorOwner&) = delete;
    EditorOwner& operator=(const EditorOwner&) = delete;

    /// Null when it has gone with a parent of the host's.
    [[nodiscard]] QWidget* editor() const;
    /// What the host is told: the editor's native window, and its size in the host's pixels.
    [[nodiscard]] WId windowId() const;
    [[nodiscard]] QSize sizeInPixels() const;

    /// To be called now and then, about 30 times a second, by hosts that drive their editors. Runs
    /// the events of Qt, and with them the main queue, where no loop of the host's does. Does
    /// nothing when it is called from within itself; an editor may be closed from within.
    void idle();

  private:
    class Application;
    class Embedding;
    EditorOwner(std::shared_ptr<Application> application, WId parentWindow,
                const MakeEditor& makeEditor, core::MainQueue& queue);

    const std::shared_ptr<Application> application_; // ends last
    std::unique_ptr<Embedding> embedding_;
};

} // namespace fernhorn
