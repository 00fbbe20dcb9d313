#pragma once

#include "app/bridge/qt_folder_panel.h"
#include "app/bridge/qt_main_queue.h"
#include "app/bridge/window_bridge.h"

#include <QApplication>
#include <QQmlEngine>

#include <memory>

namespace tarvolt {

/// The program: its services, the QML engine and its one window. Made once, on the main thread, before any other thread
/// is started. `argc` must outlive it.
class TarvoltApp {
public:
    TarvoltApp(int& argc, char** argv);

    /// Shows the window and returns the exit code once it is closed. If a scan still hangs then, it ends the process
    /// itself instead of returning.
    int run();

private:
    const std::shared_ptr<QtMainQueue> mainQueue_; ///< outlives the toolkit
    QApplication application_;
    const std::shared_ptr<QtFolderPanel> panel_;
    WindowBridge view_;
    QQmlEngine engine_;
};

} // namespace tarvolt
