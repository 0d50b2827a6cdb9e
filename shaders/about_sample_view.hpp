#pragma once

#include "platform/gpu/gpu_view.hpp"
#include "shaders/about_renderer.hpp"

#include <memory>

namespace kestrel {

/// The about visual as a view of its own, in linear Display P3. It shows itself and starts anew
/// whenever it gets a parent, and does not pause while its window is not key. Without a device or its images it is
/// empty. Main thread.
class AboutSampleView final : public platform::GpuView {
    Q_OBJECT

  public:
    /// Without a parent and without a renderer: both come when it is put into one.
    explicit AboutSampleView(const core::Clock& clock = core::Clock::system());
    ~AboutSampleView() override;

    /// Null as long as there is no parent, and when it could not be made.
    [[nodiscard]] AboutRenderer* renderer() const { return renderer_.get(); }

  protected:
    bool event(QEvent* event) override;

  private:
    void viewDidMoveToSuperview();

    const core::Clock& clock_;
    std::unique_ptr<AboutRenderer> renderer_;
};

} // namespace kestrel
