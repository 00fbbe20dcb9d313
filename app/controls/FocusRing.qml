pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// Goes around what has the keyboard focus.
BoxItem {
    id: root

    required property real innerRadius
    property int gap: Theme.focusGap

    objectName: "focusRing"
    anchors.fill: parent
    anchors.margins: -gap - Theme.focusWidth
    radius: innerRadius + gap + Theme.focusWidth
    borderWidth: Theme.focusWidth
    borderColor: Theme.orange
}
