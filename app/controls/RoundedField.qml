import QtQuick
import Tarvolt

// A single-line text field with a border of its own.
BareField {
    id: root

    implicitHeight: Math.round(Math.max(30, Theme.lineRatio * Theme.bodyPixels + 14))
    leftPadding: 9
    rightPadding: leftPadding
    verticalAlignment: TextInput.AlignVCenter
    font: Theme.verbatim(Theme.monoBody, text)
    hoverEnabled: true

    background: BoxItem {
        objectName: "frame"
        radius: 7
        color: Theme.base
        borderWidth: root.inUse ? Theme.focusWidth : Theme.hairline
        borderColor: root.inUse ? Theme.orange : root.hovered ? Theme.fieldBorderHover : Theme.fieldBorder
    }
}
