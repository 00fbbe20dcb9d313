#pragma once

#include <QString>

class QWindow;
struct wl_event_queue;
struct zxdg_exported_v2;
struct zxdg_exporter_v2;

namespace tarvolt {

/// Lets another Wayland client stack its window over one of ours, for as long as this object lives. Main thread.
class WaylandExport final {
public:
    /// Exports nothing on other platforms and where the compositor does not support it.
    explicit WaylandExport(QWindow* window);
    WaylandExport(const WaylandExport&) = delete;
    WaylandExport& operator=(const WaylandExport&) = delete;
    ~WaylandExport();

    /// Identifies the window to the other client; empty if nothing is exported.
    const QString& handle() const { return handle_; }

private:
    wl_event_queue* queue_ = nullptr;
    zxdg_exporter_v2* exporter_ = nullptr;
    zxdg_exported_v2* exported_ = nullptr;
    QString handle_;
};

} // namespace tarvolt
