// screenshot FILE PROGRAM [ARGUMENT…]: starts a program, waits until the screen has stopped being
// empty and has had time to settle, writes a picture of the whole screen, and ends the program.

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QThread>

#include <cstdio>

namespace {

constexpr int longestWait = 20'000; // ms, until something shows
constexpr int settling = 3'000;     // ms, for animations to get going

QImage grabScreen() {
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

bool isEmpty(const QImage& image) {
    const QRgb first = image.pixel(0, 0);
    for (int y = 0; y < image.height(); y += 4) {
        for (int x = 0; x < image.width(); x += 4) {
            if (image.pixel(x, y) != first) {
                return false;
            }
        }
    }
    return true;
}

int fail(const char* what) {
    std::fprintf(stderr, "screenshot: %s\n", what);
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        return fail("usage: screenshot FILE PROGRAM [ARGUMENT...]");
    }
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.setProgram(QString::fromLocal8Bit(argv[2]));
    QStringList arguments;
    for (int i = 3; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    program.setArguments(arguments);
    program.start();

    // Its own pixels are the device's, whatever scale the program is asked to use.
    qunsetenv("QT_SCALE_FACTOR");
    const QGuiApplication application(argc, argv);
    if (!program.waitForStarted()) {
        return fail("the program does not start");
    }
    QElapsedTimer waited;
    waited.start();
    while (isEmpty(grabScreen())) {
        if (waited.elapsed() > longestWait) {
            return fail("nothing appeared on the screen");
        }
        if (program.waitForFinished(100)) {
            return fail("the program ended before it showed anything");
        }
    }
    if (program.waitForFinished(settling)) {
        return fail("the program ended too soon");
    }
    const bool isWritten = grabScreen().save(QString::fromLocal8Bit(argv[1]));
    program.terminate();
    program.waitForFinished(5'000);
    return isWritten ? 0 : fail("the picture cannot be written");
}
