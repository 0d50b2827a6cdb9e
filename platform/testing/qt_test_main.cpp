#include <QApplication>

#include <gmock/gmock.h>

/// The main program of tests that need an application object.
int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
