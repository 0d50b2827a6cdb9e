#pragma once

#include "core/clock.hpp"
#include "core/subscription.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "platform/ui/view_controller.hpp"
#include "shaders/quad_renderer.hpp"

#include <QPointer>

#include <memory>

namespace kestrel {

/// Hosts a renderer in a container view: makes the drawing view and the renderer when the container
/// appears, stops the animation while its window is not key, out of sight or minimised, and
/// releases both when it disappears, so that the next appearance starts anew at time 0. In a window
/// that is not key yet it shows its first picture and stands still. A renderer that cannot be made
/// leaves the view empty, without a message. Main thread.
class ShaderViewController : public platform::ViewController {
    Q_OBJECT

  public:
    /// The drawing view; null before the container has appeared and after it has disappeared.
    [[nodiscard]] platform::GpuView* metalKitView() const { return metalKitView_; }

    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewDidDisappear() override;
    void windowDidHideFromSight() override;
    void windowDidReturnToSight() override;

    /// A window has become or resigned key. Anything that is not the window which shows the view is
    /// ignored.
    void handleDidBecomeKey(QObject* object);
    void handleDidResignKey(QObject* object);

  protected:
    ShaderViewController(QWidget* view, const core::Clock& clock);
    ~ShaderViewController() override;

    [[nodiscard]] const core::Clock& clock() const { return clock_; }
    [[nodiscard]] QuadRenderer* quadRenderer() const { return renderer_.get(); }
    /// Makes the renderer for a drawing view. What it throws leaves the view empty.
    virtual std::unique_ptr<QuadRenderer> makeRenderer(platform::GpuView& view) = 0;

  private:
    /// Why the animation stands still. It goes on when no reason is left.
    enum PauseReason : unsigned { notKey = 1, outOfSight = 2 };

    [[nodiscard]] bool isOwnWindow(const QObject* object) const;
    void pause(PauseReason reason);
    void resume(PauseReason reason);
    void release();

    const core::Clock& clock_;
    QPointer<platform::GpuView> metalKitView_;
    std::unique_ptr<QuadRenderer> renderer_;
    unsigned pauseReasons_ = 0;
    core::Subscription becomingKey_;
    core::Subscription resigningKey_;
};

/// A host that knows which renderer it makes. Main thread.
template<class Renderer>
class RendererHost : public ShaderViewController {
  public:
    /// Null before the view has appeared, after it has disappeared, and when it could not be made.
    [[nodiscard]] Renderer* renderer() const { return static_cast<Renderer*>(quadRenderer()); }

  protected:
    using ShaderViewController::ShaderViewController;
};

} // namespace kestrel
