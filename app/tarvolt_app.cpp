#include "app/tarvolt_app.h"

#include "app/content_view.h"
#include "app/drawing/platform_style.h"
#include "app/drawing/snapped_items.h"
#include "foundation/file_manager.h"
#include "foundation/localized.h"
#include "foundation/termination.h"

#include <QDebug>
#include <QIcon>
#include <QLibraryInfo>
#include <QQmlComponent>
#include <QQuickWindow>
#include <QTranslator>

#include <cstdlib>

namespace tarvolt {

namespace {

QIcon windowIcon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(applicationIcon(side));
    }
    return icon;
}

/// The toolkit's own texts are translated only if the window's are.
void installTranslations(QObject* owner) {
    auto* window = new QTranslator(owner);
    auto* toolkit = new QTranslator(owner);
    if (window->load(QLocale(), QStringLiteral("tarvolt"), QStringLiteral("_"), QStringLiteral(":/i18n")) &&
        toolkit->load(QLocale(window->language()), QStringLiteral("qtbase"), QStringLiteral("_"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(toolkit);
    }
    QCoreApplication::installTranslator(window);
    setTranslator(
        [](const char* context, const char* key) { return QCoreApplication::translate(context, key).toStdString(); });
}

/// Does what must be done before the toolkit starts, and returns the main queue.
std::shared_ptr<QtMainQueue> prepare() {
    auto mainQueue = std::make_shared<QtMainQueue>();
    watchTerminationRequests([mainQueue] { mainQueue->async([] { QCoreApplication::quit(); }); });
    // A small window that seldom changes opens sooner and needs less memory with software rendering.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QtFolderPanel::keepNothing();
    QCoreApplication::setApplicationName(QStringLiteral("Tarvolt"));
    QGuiApplication::setApplicationDisplayName(QCoreApplication::applicationName());
    QGuiApplication::setDesktopFileName(QStringLiteral("tarvolt"));
    return mainQueue;
}

} // namespace

TarvoltApp::TarvoltApp(int& argc, char** argv)
    : mainQueue_(prepare()), application_(argc, argv),
      panel_(std::make_shared<QtFolderPanel>(&PlatformStyle::verbatim)),
      view_(ContentView::create({.fileManager = makePosixFileManager(),
                                 .mainQueue = mainQueue_,
                                 .backgroundQueue = makeBackgroundQueue(),
                                 .folderPanel = panel_})) {
    QApplication::setWindowIcon(windowIcon());
    installTranslations(&application_);
}

int TarvoltApp::run() {
    // The toolkit's engine for applications would install translations of its own, whatever the language.
    engine_.addImportPath(QStringLiteral(":/qt/qml"));
    QQmlComponent content(&engine_, QUrl(QStringLiteral("qrc:/qt/qml/Tarvolt/ContentView.qml")));
    const std::unique_ptr<QObject> window(
        content.createWithInitialProperties({{QStringLiteral("view"), QVariant::fromValue(&view_)}}));
    if (!window) {
        qCritical().noquote() << content.errorString();
        return EXIT_FAILURE;
    }
    panel_->setWindow(qobject_cast<QWindow*>(window.get()));

    const int code = QApplication::exec();
    mainQueue_->stop();
    if (runningBackgroundTasks() != 0) {
        // A scan that hangs must not keep the program from ending, and may still use what a normal exit destroys.
        std::_Exit(code);
    }
    return code;
}

} // namespace tarvolt
