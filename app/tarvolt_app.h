#pragma once

#include "app/bridge/qt_folder_panel.h"
#include "app/bridge/qt_main_queue.h"
#include "app/bridge/window_bridge.h"

#include <QApplication>
#include <QQmlEngine>

#include <memory>

namespace tarvolt {

/// The program: its services, the QML engine and its one window. Made once, on the main thread, before any other thread
/// is started. `argc` outlives it.
class TarvoltApp {
public:
    TarvoltApp(int& argc, char** argv);

    /// Shows the window and returns once it is closed, with the exit code of the process. Ends the process itself where
    /// a scan still hangs.
    int run();

private:
    const std::shared_ptr<QtMainQueue> mainQueue_; ///< outlives the toolkit
    QApplication application_;
    const std::shared_ptr<QtFolderPanel> panel_;
    WindowBridge view_;
    QQmlEngine engine_;
};

} // namespace tarvolt
