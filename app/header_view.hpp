#pragma once

#include <QWidget>

namespace kestrel {
class ContentViewShader;
}

namespace platform {
class ShadowedLabel;
}

namespace larkvox {

/// The product's name over the moving waveform.
class HeaderView final : public QWidget {
    Q_OBJECT

  public:
    explicit HeaderView(const QString& productName, QWidget* parent = nullptr);

    [[nodiscard]] kestrel::ContentViewShader& visual() const { return *visual_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    kestrel::ContentViewShader* visual_; // behind the name
    platform::ShadowedLabel* name_;
};

} // namespace larkvox
