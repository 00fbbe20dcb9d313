#pragma once

#include "foundation/dispatch_queue.h"

#include <QObject>

#include <memory>

namespace tarvolt {

/// The main queue over the toolkit's event loop. Made on the main thread; may outlive the toolkit: `stop` detaches it,
/// and what is given to it afterwards is dropped.
class QtMainQueue final : public DispatchQueue {
public:
    void async(Task task) override;
    void asyncAfter(std::chrono::milliseconds delay, Task task) override;

    /// Drops what is waiting and everything that comes later. Main thread, before the application object goes.
    void stop();

private:
    std::unique_ptr<QObject> receiver_ = std::make_unique<QObject>(); ///< lives on the main thread; none after `stop`
};

} // namespace tarvolt
