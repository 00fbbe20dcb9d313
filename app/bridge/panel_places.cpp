#include "app/bridge/panel_places.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

#include <algorithm>
#include <array>

namespace tarvolt {

namespace {

/// Where a drive or card is mounted, if this line of /proc/self/mounts is about one. Network drives are left out: the
/// panel looks at each place when it opens, and their servers may not answer.
QString mountedDrive(const QByteArray& line) {
    const QList<QByteArray> words = line.split(' ');
    QByteArray place = words.value(1);
    const std::array folders{"/media/", "/run/media/", "/mnt"};
    if (!words.front().startsWith("/dev/") ||
        std::ranges::none_of(folders, [&](const char* folder) { return place.startsWith(folder); })) {
        return {};
    }
    place.replace("\\040", " ").replace("\\011", "\t").replace("\\012", "\n").replace("\\134", "\\");
    return QFile::decodeName(place);
}

} // namespace

QList<QUrl> panelPlaces() {
    QList<QUrl> found{QUrl::fromLocalFile(QDir::homePath())};
    QFile mounts(QStringLiteral("/proc/self/mounts"));
    if (mounts.open(QFile::ReadOnly)) {
        for (const QByteArray& line : mounts.readAll().split('\n')) {
            const QString place = mountedDrive(line);
            const QUrl url = QUrl::fromLocalFile(place);
            if (!place.isEmpty() && !found.contains(url)) {
                found.append(url);
            }
        }
    }
    return found;
}

} // namespace tarvolt
