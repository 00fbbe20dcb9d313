pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// A thin horizontal line.
Rectangle {
    id: root

    implicitHeight: Theme.hairline(Screen.devicePixelRatio)
    color: Theme.line
}
