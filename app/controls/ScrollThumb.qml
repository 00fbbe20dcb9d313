pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// The thumb of a scrolling area, there only while something is out of sight.
T.ScrollBar {
    id: root

    objectName: "scrollThumb"
    orientation: Qt.Vertical
    implicitWidth: 6
    minimumSize: height > 0 ? Math.min(1, 24 / height) : 0
    visible: size > 0 && size < 1
    hoverEnabled: true
    Accessible.ignored: true

    contentItem: BoxItem {
        implicitWidth: root.implicitWidth
        radius: width / 2
        color: root.pressed ? Theme.thumbPressed : root.hovered ? Theme.thumbHover : Theme.thumb
    }
}
