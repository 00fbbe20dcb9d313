import QtQuick
import Tarvolt

// Surrounds the item that has the keyboard focus.
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
