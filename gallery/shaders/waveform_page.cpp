#include "gallery/parts.hpp"
#include "gallery/shaders/shader_pages.hpp"
#include "gallery/shaders/visual_stage.hpp"

#include "shaders/metal_shader.hpp"

#include <QBoxLayout>

namespace gallery {

Page waveformPage() {
    return {.identifier = QStringLiteral("waveform"),
            .group = QStringLiteral("KestrelShaders"),
            .title = QStringLiteral("Waveform"),
            .summary = QStringLiteral(
                "The animated waveform behind the product's name; another one each time "
                "it appears."),
            .build =
                [](QWidget& view) {
                    auto* const card = new Card(QStringLiteral("ContentViewShader"));
                    auto* const stage = new VisualStage(400);
                    stage->show(new kestrel::ContentViewShader);
                    card->column().addWidget(stage);
                    static_cast<QBoxLayout&>(*view.layout()).addWidget(card);
                },
            .settlingTime = visualSettlingTime,
            .hasVisual = true};
}

} // namespace gallery
