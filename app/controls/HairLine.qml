pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// A thin line, horizontal unless it is told otherwise.
BoxItem {
    id: root

    implicitHeight: Theme.hairline
    color: Theme.line
}
