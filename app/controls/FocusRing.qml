import QtQuick
import Tarvolt

// Goes around what has the keyboard focus.
BoxItem {
    required property real innerRadius
    property real gap: 2
    property real thickness: Theme.focusWidth

    objectName: "focusRing"
    anchors.fill: parent
    anchors.margins: -gap - thickness
    radius: innerRadius + gap + thickness
    borderWidth: thickness
    borderColor: Theme.orange
}
