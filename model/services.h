#pragma once

#include "foundation/dispatch_queue.h"
#include "foundation/file_manager.h"
#include "foundation/locale.h"
#include "model/folder_panel.h"

#include <chrono>
#include <functional>
#include <memory>

namespace tarvolt {

/// What the scanner depends on. The scanner holds it; everything else asks the scanner.
struct Services {
    std::shared_ptr<FileManager> fileManager;
    std::shared_ptr<DispatchQueue> mainQueue;       ///< serial, on the main thread
    std::shared_ptr<DispatchQueue> backgroundQueue; ///< concurrent
    std::shared_ptr<FolderPanel> folderPanel;
    std::function<std::chrono::system_clock::time_point()> now = std::chrono::system_clock::now;
    UserLocale locale = currentLocale();
};

} // namespace tarvolt
