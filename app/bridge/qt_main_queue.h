#pragma once

#include "foundation/dispatch_queue.h"

#include <QObject>

#include <memory>

namespace tarvolt {

/// The main queue, on the toolkit's event loop. Made on the main thread; may outlive the toolkit: `stop` detaches it,
/// and tasks posted afterwards are dropped.
class QtMainQueue final : public DispatchQueue {
public:
    void async(Task task) override;
    void asyncAfter(std::chrono::milliseconds delay, Task task) override;

    /// Drops the waiting tasks and all later ones. Main thread, before the application object is destroyed.
    void stop();

private:
    std::unique_ptr<QObject> receiver_ = std::make_unique<QObject>(); ///< lives on the main thread; none after `stop`
};

} // namespace tarvolt
