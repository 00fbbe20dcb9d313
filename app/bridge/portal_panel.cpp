#include "app/bridge/portal_panel.h"

#include "app/bridge/wayland_export.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QUrl>
#include <QUuid>
#include <QWindow>

#include <system_error>

namespace tarvolt {

namespace {

constexpr uint leastVersion = 3;  // the first that can ask for a folder
constexpr int answerLimit = 5000; // milliseconds; starting a portal takes one or two seconds

// The codes that a response begins with; any other means that the panel ended in some other way.
constexpr uint choseSomething = 0;
constexpr uint cancelled = 1;

const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto fileChooser = QStringLiteral("org.freedesktop.portal.FileChooser");
const auto request = QStringLiteral("org.freedesktop.portal.Request");

/// Whether there may be a folder at `path`. If that cannot be determined, the scan will log why it cannot be read.
bool mayBeFolder(const std::filesystem::path& path) {
    std::error_code error;
    const auto type = std::filesystem::status(path, error).type();
    return type == std::filesystem::file_type::directory || type == std::filesystem::file_type::none;
}

/// The name by which the portal finds the window that its panel belongs to; empty where there is none.
QString portalName(QWindow* window, const QString& exported) {
    if (window != nullptr && QGuiApplication::platformName() == QStringLiteral("xcb")) {
        return QStringLiteral("x11:") + QString::number(window->winId(), 16);
    }
    return exported.isEmpty() ? QString() : QStringLiteral("wayland:") + exported;
}

} // namespace

std::optional<std::filesystem::path> localPath(const QString& uri) {
    // Some portals do not escape blanks.
    const QUrl url(uri, QUrl::TolerantMode);
    QByteArray path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    while (path.size() > 1 && path.endsWith('/')) {
        path.chop(1);
    }
    const bool isHere = url.host().isEmpty() || url.host() == QStringLiteral("localhost");
    if (!url.isValid() || !url.isLocalFile() || !isHere || !path.startsWith('/') || path.contains('\0')) {
        return std::nullopt;
    }
    return std::filesystem::path(path.toStdString());
}

bool PortalPanel::run(const FolderPanelSettings& settings, QWindow* window) {
    auto question = QDBusMessage::createMethodCall(
        portalService, portalPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << fileChooser << QStringLiteral("version");
    const QDBusMessage reply = replyTo(question);
    if (reply.type() == QDBusMessage::InvalidMessage) {
        return true;
    }
    const auto version = reply.arguments().value(0).value<QDBusVariant>().variant();
    return version.toUInt() >= leastVersion &&
           openFile(bus_.interface()->serviceOwner(portalService), settings, window);
}

/// Invalid if the loop was told to quit before there was a reply.
QDBusMessage PortalPanel::replyTo(const QDBusMessage& question) {
    if (!bus_.isConnected()) {
        return QDBusMessage::createError(QDBusError::Disconnected, QString());
    }
    const QDBusPendingCallWatcher call(bus_.asyncCall(question, answerLimit));
    connect(&call, &QDBusPendingCallWatcher::finished, &loop_, &QEventLoop::quit);
    loop_.exec();
    return call.reply();
}

bool PortalPanel::openFile(const QString& portal, const FolderPanelSettings& settings, QWindow* window) {
    const QString token = QStringLiteral("tarvolt") + QUuid::createUuid().toString(QUuid::Id128);
    // The portal derives this path from the token. The answer may arrive before the call returns, so listen first.
    const QString path =
        QStringLiteral("%1/request/%2/%3")
            .arg(portalPath, bus_.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_')), token);
    bus_.connect(portal, path, request, QStringLiteral("Response"), this, SLOT(takeResponse(QDBusMessage)));
    const QDBusServiceWatcher watcher(portal, bus_, QDBusServiceWatcher::WatchForUnregistration);
    connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { takeResponse(QDBusMessage::createError(QDBusError::ServiceUnknown, QString())); });
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this,
            [this](const QWindow* active) { wasShown_ = wasShown_ || active == nullptr; });

    const WaylandExport exported(window);
    auto call = QDBusMessage::createMethodCall(portal, portalPath, fileChooser, QStringLiteral("OpenFile"));
    call << portalName(window, exported.handle()) << QString::fromStdString(settings.message)
         << QVariantMap{{QStringLiteral("handle_token"), token},
                        {QStringLiteral("accept_label"), QString::fromStdString(settings.prompt)},
                        {QStringLiteral("modal"), true},
                        {QStringLiteral("multiple"), settings.allowsMultipleSelection},
                        {QStringLiteral("directory"), settings.canChooseDirectories}};
    const QDBusMessage reply = replyTo(call);
    const bool isOpen = reply.arguments().value(0).value<QDBusObjectPath>().path() == path;
    if (isOpen && !response_) {
        loop_.exec();
    }
    if (response_) {
        return takeFolder();
    }
    bus_.send(QDBusMessage::createMethodCall(portal, path, request, QStringLiteral("Close")));
    return isOpen || reply.type() == QDBusMessage::InvalidMessage;
}

void PortalPanel::takeResponse(const QDBusMessage& response) {
    response_ = response_.value_or(response);
    loop_.quit();
}

bool PortalPanel::takeFolder() {
    if (response_->signature() != QStringLiteral("ua{sv}")) {
        return false;
    }
    const uint code = response_->arguments().at(0).toUInt();
    if (code != choseSomething) {
        // A panel that was closed by its frame and one that never appeared have the same code.
        return code == cancelled || wasShown_;
    }
    const auto results = qdbus_cast<QVariantMap>(response_->arguments().at(1));
    folder_ = localPath(results.value(QStringLiteral("uris")).toStringList().value(0));
    return folder_ && mayBeFolder(*folder_);
}

} // namespace tarvolt
