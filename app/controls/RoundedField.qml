import QtQuick
import Tarvolt

// A single-line text field with a border of its own.
BareField {
    id: root

    implicitHeight: Theme.fieldHeight
    leftPadding: Theme.fieldPadding
    rightPadding: Theme.fieldPadding
    verticalAlignment: TextInput.AlignVCenter
    font: Theme.verbatim(Theme.monoBody, text)
    hoverEnabled: true

    background: BoxItem {
        objectName: "frame"
        radius: Theme.fieldRadius
        color: Theme.base
        borderWidth: root.inUse ? Theme.focusWidth : Theme.thinBorder
        borderColor: root.inUse ? Theme.orange : root.hovered ? Theme.fieldBorderHover : Theme.fieldBorder
    }
}
