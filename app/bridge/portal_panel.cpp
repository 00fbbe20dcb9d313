#include "app/bridge/portal_panel.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QUrl>
#include <QUuid>
#include <QWindow>

#include <system_error>
#include <utility>

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

/// Whether there is nothing at `path`, or something else than a folder. A path that cannot be examined passes for a
/// folder: the scan will log why it cannot be read.
bool isNoFolder(const std::filesystem::path& path) {
    std::error_code error;
    const auto type = std::filesystem::status(path, error).type();
    return type != std::filesystem::file_type::directory && type != std::filesystem::file_type::none;
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

PortalPanel::~PortalPanel() {
    if (!request_.isEmpty()) {
        bus_.send(QDBusMessage::createMethodCall(portal_, request_, request, QStringLiteral("Close")));
    }
}

void PortalPanel::open(const FolderPanelSettings& settings, QWindow* window) {
    auto question = QDBusMessage::createMethodCall(
        portalService, portalPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << fileChooser << QStringLiteral("version");
    ask(question, [this, settings, window](const QDBusMessage& reply) {
        const auto version = reply.arguments().value(0).value<QDBusVariant>().variant();
        if (version.toUInt() < leastVersion) {
            end(true);
        } else {
            openFile(bus_.interface()->serviceOwner(portalService), settings, window);
        }
    });
}

void PortalPanel::ask(const QDBusMessage& question, const Answer& answer) {
    if (!bus_.isConnected()) {
        QMetaObject::invokeMethod(
            this, [this] { end(true); }, Qt::QueuedConnection);
        return;
    }
    const auto* call = new QDBusPendingCallWatcher(bus_.asyncCall(question, answerLimit), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, answer](const QDBusPendingCallWatcher* finished) {
        const QDBusMessage reply = finished->reply();
        if (reply.type() == QDBusMessage::ReplyMessage) {
            answer(reply);
        } else {
            end(true);
        }
    });
}

void PortalPanel::openFile(const QString& portal, const FolderPanelSettings& settings, QWindow* window) {
    portal_ = portal;
    const QString token = QStringLiteral("tarvolt") + QUuid::createUuid().toString(QUuid::Id128);
    // The portal derives this path from the token. The answer may arrive before the call returns, so listen first.
    request_ = QStringLiteral("%1/request/%2/%3")
                   .arg(portalPath, bus_.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_')), token);
    bus_.connect(portal_, request_, request, QStringLiteral("Response"), this, SLOT(takeResponse(QDBusMessage)));
    watcher_.setConnection(bus_);
    watcher_.addWatchedService(portal_);
    connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, [this] { end(true); });
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this,
            [this](const QWindow* active) { wasShown_ = wasShown_ || active == nullptr; });

    auto call = QDBusMessage::createMethodCall(portal_, portalPath, fileChooser, QStringLiteral("OpenFile"));
    call << portalName(window) << QString::fromStdString(settings.message)
         << QVariantMap{{QStringLiteral("handle_token"), token},
                        {QStringLiteral("accept_label"), QString::fromStdString(settings.prompt)},
                        {QStringLiteral("modal"), true},
                        {QStringLiteral("multiple"), settings.allowsMultipleSelection},
                        {QStringLiteral("directory"), settings.canChooseDirectories}};
    ask(call, [this](const QDBusMessage& reply) {
        if (reply.arguments().value(0).value<QDBusObjectPath>().path() != request_) {
            end(true);
        }
    });
}

/// The name by which the portal finds the window that its panel belongs to.
QString PortalPanel::portalName(QWindow* window) {
    if (window != nullptr && QGuiApplication::platformName() == QStringLiteral("xcb")) {
        return QStringLiteral("x11:") + QString::number(window->winId(), 16);
    }
    export_.emplace(window);
    return export_->handle().isEmpty() ? QString() : QStringLiteral("wayland:") + export_->handle();
}

void PortalPanel::takeResponse(const QDBusMessage& response) {
    request_.clear();
    if (response.signature() != QStringLiteral("ua{sv}")) {
        end(true);
        return;
    }
    const uint code = response.arguments().at(0).toUInt();
    if (code == choseSomething) {
        const auto results = qdbus_cast<QVariantMap>(response.arguments().at(1));
        folder_ = localPath(results.value(QStringLiteral("uris")).toStringList().value(0));
        end(!folder_ || isNoFolder(*folder_));
    } else {
        // A panel that was closed by its frame and one that never appeared have the same code.
        end(code != cancelled && !wasShown_);
    }
}

void PortalPanel::end(bool failed) {
    if (!std::exchange(hasEnded_, true)) {
        failed_ = failed;
        emit ended();
    }
}

} // namespace tarvolt
