#include <gmock/gmock.h>

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>

Q_IMPORT_QML_PLUGIN(TarvoltPlugin)

// Always offscreen and drawn by the processor, so that measures are the same everywhere.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QApplication application(argc, argv);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0xEF, 0xEF, 0xEF));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::black);
    QApplication::setPalette(palette);
    QApplication::setFont(QFont(QGuiApplication::font().family(), 10));
    QCoreApplication::setApplicationName(QStringLiteral("Tarvolt"));
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
