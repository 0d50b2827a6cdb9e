// The smallest Qt window that shows one frame drawn by the GPU: a texture cleared to green.

#include "platform/gpu/qrhi_private.hpp"

#include <QApplication>
#include <QBackingStore>
#include <QWidget>

#include <memory>

namespace {

class BareViewPrivate : public QWidgetPrivate {
  public:
    QPlatformBackingStoreRhiConfig rhiConfig() const override {
        return {QPlatformBackingStoreRhiConfig::OpenGL};
    }
    QRhiTexture* texture() const override { return picture.get(); }
    std::unique_ptr<QRhiTexture> picture;
};

class BareView : public QWidget {
  public:
    explicit BareView(QWidget* parent) : QWidget(*new BareViewPrivate, parent, {}) {
        own().setRenderToTexture();
    }

  protected:
    void showEvent(QShowEvent* /*event*/) override { draw(); }

  private:
    BareViewPrivate& own() { return *static_cast<BareViewPrivate*>(QWidgetPrivate::get(this)); }

    void draw() {
        QRhi* const rhi = window()->backingStore()->handle()->rhi();
        QRhiCommandBuffer* commands = nullptr;
        if (rhi == nullptr || rhi->beginOffscreenFrame(&commands) != QRhi::FrameOpSuccess) {
            qFatal("no GPU");
        }
        own().picture.reset(rhi->newTexture(QRhiTexture::RGBA8, size() * devicePixelRatio(), 1,
                                            QRhiTexture::RenderTarget));
        own().picture->create();
        const std::unique_ptr<QRhiTextureRenderTarget> target(
            rhi->newTextureRenderTarget({QRhiColorAttachment(own().picture.get())}));
        const std::unique_ptr<QRhiRenderPassDescriptor> pass(
            target->newCompatibleRenderPassDescriptor());
        target->setRenderPassDescriptor(pass.get());
        target->create();
        commands->beginPass(target.get(), Qt::green, {1.0F, 0});
        commands->endPass();
        rhi->endOffscreenFrame();
    }
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window(nullptr, Qt::FramelessWindowHint);
    window.setFixedSize(400, 572);
    BareView view(&window);
    view.setGeometry(0, 0, 400, 300);
    window.show();
    return QApplication::exec();
}
