// What a colour effect costs on the processor over a view of 800 x 600 pixels: the shading alone,
// and what it adds to painting the whole view.

#include "bench/figure.hpp"
#include "platform/gpu/shade_image.hpp"
#include "platform/gpu/shader_effect.hpp"
#include "shaders/kestrel_shaders_helper.hpp"

#include <QApplication>
#include <QGridLayout>
#include <QPushButton>

#include <ctime>

namespace {

using platform::Shader;

constexpr QSize size(800, 600);

double processorMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The median of one call. It is work for one thread without any waiting, so processor time is its
/// time on a machine with nothing else to do.
template<class Call>
double timeOf(Call call) {
    std::vector<double> samples;
    for (int i = 0; i < 100; ++i) {
        const double start = processorMilliseconds();
        call();
        samples.push_back(processorMilliseconds() - start);
    }
    return bench::median(samples);
}

/// Every grey and many colours.
QImage makePicture() {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, qRgb(x * 255 / size.width(), y * 255 / size.height(), x ^ y));
        }
    }
    return image;
}

std::unique_ptr<QWidget> makeView() {
    auto view = std::make_unique<QWidget>();
    auto* const grid = new QGridLayout(view.get());
    for (int i = 0; i < 40; ++i) {
        grid->addWidget(new QPushButton(QStringLiteral("Button %1").arg(i)), i / 5, i % 5);
    }
    view->setFixedSize(size);
    view->setAutoFillBackground(true);
    view->show();
    return view;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    using Helper = kestrel::KestrelShadersHelper;
    const Shader matrix = Helper::colorMatrixShader({0.9F, 0.25F, 0, 0}, {0.1F, 0.6F, 0, 0},
                                                    {0, 0.1F, 0.35F, 0}, {0, 0, 0, 1});

    QImage picture = makePicture();
    bench::figure("effect_shading_ms", timeOf([&] { platform::shadeImage(picture, matrix); }),
                  "ms");
    bench::figure("effect_outside_ms",
                  timeOf([&] { platform::shadeImage(picture, Helper::outsideP3Shader()); }), "ms");

    const auto view = makeView();
    QImage target(size, QImage::Format_ARGB32_Premultiplied);
    const double plain = timeOf([&] { view->render(&target); });
    view->setGraphicsEffect(new platform::ShaderEffect(matrix));
    const double shaded = timeOf([&] { view->render(&target); });
    bench::figure("effect_ms", shaded - plain, "ms");
    return 0;
}
