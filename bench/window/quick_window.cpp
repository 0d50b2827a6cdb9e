// The program's own window made in Qt Quick, to compare with: the same size, the same texts and the
// same waveform, without menu, updates and screen reader.

#include <QDir>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQuickView>

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    QQuickView view;
    view.setFlags(Qt::Window | Qt::FramelessWindowHint);
    const QString bundles = QCoreApplication::applicationDirPath();
    view.rootContext()->setContextProperty(QStringLiteral("bundles"),
                                           QUrl::fromLocalFile(bundles + u'/'));
    view.rootContext()->setContextProperty(QStringLiteral("waveform"),
                                           QUrl::fromLocalFile(QStringLiteral(QUICK_WAVEFORM)));
    view.setSource(QUrl::fromLocalFile(QStringLiteral(QUICK_WINDOW)));
    view.show();
    return QGuiApplication::exec();
}
