#include "app/bridge/wayland_export.h"

#include <QGuiApplication>
#include <QWindow>
#include <QtGui/qpa/qplatformnativeinterface.h>

#include <xdg-foreign-unstable-v2-client-protocol.h>

#include <cstdint>
#include <string_view>

namespace tarvolt {

namespace {

void takeGlobal(void* exporter, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t) {
    if (std::string_view(interface) == zxdg_exporter_v2_interface.name) {
        *static_cast<zxdg_exporter_v2**>(exporter) =
            static_cast<zxdg_exporter_v2*>(wl_registry_bind(registry, name, &zxdg_exporter_v2_interface, 1));
    }
}

void loseGlobal(void*, wl_registry*, std::uint32_t) {}

void takeHandle(void* handle, zxdg_exported_v2*, const char* text) {
    *static_cast<QString*>(handle) = QString::fromUtf8(text);
}

constexpr wl_registry_listener registryListener{takeGlobal, loseGlobal};
constexpr zxdg_exported_v2_listener exportedListener{takeHandle};

} // namespace

WaylandExport::WaylandExport(QWindow* window) {
    auto* native = QGuiApplication::platformNativeInterface();
    if (!QGuiApplication::platformName().startsWith(QStringLiteral("wayland")) || native == nullptr ||
        window == nullptr) {
        return;
    }
    auto* display = static_cast<wl_display*>(native->nativeResourceForIntegration("wl_display"));
    auto* surface = static_cast<wl_surface*>(native->nativeResourceForWindow("surface", window));
    if (display == nullptr || surface == nullptr) {
        return;
    }
    // A separate queue, because the toolkit reads the display's default one.
    queue_ = wl_display_create_queue(display);
    auto* wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), queue_);
    wl_registry* registry = wl_display_get_registry(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    wl_registry_add_listener(registry, &registryListener, &exporter_);
    wl_display_roundtrip_queue(display, queue_);
    if (exporter_ != nullptr) {
        exported_ = zxdg_exporter_v2_export_toplevel(exporter_, surface);
        zxdg_exported_v2_add_listener(exported_, &exportedListener, &handle_);
        wl_display_roundtrip_queue(display, queue_);
    }
    wl_registry_destroy(registry);
}

WaylandExport::~WaylandExport() {
    if (exporter_ != nullptr) {
        zxdg_exported_v2_destroy(exported_);
        zxdg_exporter_v2_destroy(exporter_);
    }
    if (queue_ != nullptr) {
        wl_event_queue_destroy(queue_);
    }
}

} // namespace tarvolt
