pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// A single-line text field with a border of its own.
T.TextField {
    id: root

    implicitHeight: Theme.fieldHeight
    leftPadding: Theme.fieldPadding
    rightPadding: Theme.fieldPadding
    verticalAlignment: TextInput.AlignVCenter
    font: Theme.monoBody
    color: Theme.primary
    selectionColor: Theme.selection
    selectedTextColor: Theme.primary
    selectByMouse: true
    hoverEnabled: true
    renderType: Text.NativeRendering
    Accessible.editable: true
    cursorDelegate: Caret {
        owner: root
    }

    background: BoxItem {
        objectName: "frame"
        radius: Theme.fieldRadius
        color: Theme.base
        borderWidth: root.activeFocus ? Theme.focusWidth : Theme.thinBorder
        borderColor: root.activeFocus ? Theme.orange : root.hovered ? Theme.fieldBorderHover : Theme.fieldBorder
    }

    TextLabel {
        objectName: "placeholder"
        anchors.verticalCenter: parent.verticalCenter
        x: root.leftPadding
        width: root.width - root.leftPadding - root.rightPadding
        elide: Text.ElideRight
        visible: root.length === 0 && root.preeditText === ""
        text: root.placeholderText
        font: root.font
        color: Theme.secondary
        silent: true
    }
}
