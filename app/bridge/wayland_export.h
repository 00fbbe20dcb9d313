#pragma once

#include <QString>

class QWindow;
struct wl_event_queue;
struct zxdg_exported_v2;
struct zxdg_exporter_v2;

namespace tarvolt {

/// Lets other programs on Wayland put a window of theirs over one of this program, for as long as it lives. Main
/// thread.
class WaylandExport final {
public:
    /// On another platform, and where the compositor cannot do that, there is no handle.
    explicit WaylandExport(QWindow* window);
    WaylandExport(const WaylandExport&) = delete;
    WaylandExport& operator=(const WaylandExport&) = delete;
    ~WaylandExport();

    /// What the other program has to know the window by; empty where there is none.
    const QString& handle() const { return handle_; }

private:
    wl_event_queue* queue_ = nullptr;
    zxdg_exporter_v2* exporter_ = nullptr;
    zxdg_exported_v2* exported_ = nullptr;
    QString handle_;
};

} // namespace tarvolt
