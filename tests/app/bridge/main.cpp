#include <gmock/gmock.h>

#include <QApplication>
#include <QFont>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>

Q_IMPORT_QML_PLUGIN(TarvoltPlugin)

// Always offscreen and drawn by the processor: a test measures the same everywhere.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Tarvolt"));
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
