#pragma once

#include <QWidget>

namespace kestrel {
class ContentViewShader;
}

namespace platform {
class ShadowedLabel;
}

namespace larkvox {

/// The product's name over the moving waveform: 300 points high, lower where there is no room.
class HeaderView final : public QWidget {
    Q_OBJECT

  public:
    explicit HeaderView(const QString& productName, QWidget* parent = nullptr);

    [[nodiscard]] kestrel::ContentViewShader& visual() const { return *visual_; }
    [[nodiscard]] QSize sizeHint() const override { return {400, 300}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {400, 96}; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    kestrel::ContentViewShader* visual_; // behind the name
    platform::ShadowedLabel* name_;
};

} // namespace larkvox
