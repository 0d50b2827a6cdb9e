#pragma once

#include "platform/assets/bundle.hpp"
#include "platform/gpu/gpu_view.hpp"
#include "platform/gpu/quad_pipeline.hpp"
#include "platform/gpu/shader_library.hpp"

#include <array>
#include <span>
#include <vector>

namespace platform::testing {

using Light = std::array<float, 4>; ///< linear, premultiplied

/// The functions that these tests draw with.
inline ShaderLibrary testLibrary() {
    return ShaderLibrary(Bundle(QDir(QStringLiteral(GPU_TEST_BUNDLE))));
}

/// Fills a view with two rows of eight cells, the first row at the top.
class CellPainter final : public GpuViewDelegate {
  public:
    explicit CellPainter(GpuView& view, const QString& fragmentFunction = QStringLiteral("cells"))
        : pipeline_(view, {.label = "Cells",
                           .vertexFunction = testLibrary().function(QStringLiteral("quad")),
                           .fragmentFunction = testLibrary().function(fragmentFunction),
                           .uniformSize = sizeof cells,
                           .textures = {}}) {}

    std::array<Light, 16> cells{};
    std::vector<QSize> sizes; ///< all that were announced

    void drawableSizeWillChange(GpuView& /*view*/, QSize pixels) override {
        sizes.push_back(pixels);
    }
    void draw(GpuView& view) override {
        if (GpuRenderPass* const pass = view.beginRenderPass("Cell Command Buffer")) {
            const QSize size = sizes.back();
            pipeline_.draw(*pass, {0, 0, double(size.width()), double(size.height()), 0, 1},
                           std::as_bytes(std::span(cells)));
        }
    }

  private:
    QuadPipeline pipeline_;
};

/// The middle of a cell in an image or a widget of that size.
inline QPoint cellCentre(std::size_t cell, QSize size) {
    const auto column = static_cast<int>(cell % 8);
    return {size.width() * (2 * column + 1) / 16, size.height() * (cell < 8 ? 1 : 3) / 4};
}

} // namespace platform::testing
