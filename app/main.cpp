#include "app/bridge/qt_folder_panel.h"
#include "app/bridge/qt_main_queue.h"
#include "app/bridge/window_bridge.h"
#include "app/content_view.h"
#include "app/drawing/symbol_drawing.h"
#include "foundation/file_manager.h"
#include "foundation/localized.h"
#include "foundation/termination.h"

#include <QApplication>
#include <QDebug>
#include <QIcon>
#include <QLibraryInfo>
#include <QPixmap>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>
#include <QTranslator>

#include <cstdlib>
#include <memory>

Q_IMPORT_QML_PLUGIN(TarvoltPlugin)

namespace tarvolt {

namespace {

QIcon windowIcon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(applicationIcon(side));
    }
    return icon;
}

/// The toolkit's own texts follow a language only where the window's do.
void installTranslations(QApplication& application) {
    auto* window = new QTranslator(&application);
    auto* toolkit = new QTranslator(&application);
    if (window->load(QLocale(), QStringLiteral("tarvolt"), QStringLiteral("_"), QStringLiteral(":/i18n")) &&
        toolkit->load(QLocale(window->language()), QStringLiteral("qtbase"), QStringLiteral("_"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(toolkit);
    }
    QCoreApplication::installTranslator(window);
    setTranslator(
        [](const char* context, const char* key) { return QCoreApplication::translate(context, key).toStdString(); });
}

int run(int argc, char** argv) {
    const auto mainQueue = std::make_shared<QtMainQueue>();
    watchTerminationRequests([mainQueue] { mainQueue->async([] { QCoreApplication::quit(); }); });

    // A small, quiet window: it opens sooner and needs less when the processor draws it.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QtFolderPanel::keepNothing();
    QCoreApplication::setApplicationName(QStringLiteral("Tarvolt"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Tarvolt"));
    QGuiApplication::setDesktopFileName(QStringLiteral("tarvolt"));
    QApplication application(argc, argv);
    QApplication::setWindowIcon(windowIcon());
    installTranslations(application);

    const auto panel = std::make_shared<QtFolderPanel>();
    WindowBridge view(ContentView::create({.fileManager = makePosixFileManager(),
                                           .mainQueue = mainQueue,
                                           .backgroundQueue = makeBackgroundQueue(),
                                           .folderPanel = panel}));

    // The toolkit's ready-made engine for applications would install its own translations of whatever language.
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(":/qt/qml"));
    QQmlComponent content(&engine, QUrl(QStringLiteral("qrc:/qt/qml/Tarvolt/ContentView.qml")));
    const std::unique_ptr<QObject> window(
        content.createWithInitialProperties({{QStringLiteral("view"), QVariant::fromValue(&view)}}));
    if (!window) {
        qCritical().noquote() << content.errorString();
        return EXIT_FAILURE;
    }
    panel->setWindow(qobject_cast<QWindow*>(window.get()));

    const int code = QApplication::exec();
    mainQueue->stop();
    if (runningBackgroundTasks() != 0) {
        // A scan that hangs must not keep the program from ending, and may still use what an orderly end takes away.
        std::_Exit(code);
    }
    return code;
}

} // namespace

} // namespace tarvolt

int main(int argc, char** argv) {
    return tarvolt::run(argc, argv);
}
