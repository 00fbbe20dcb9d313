pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// A single-line text field without a frame.
T.TextField {
    id: root

    color: Theme.primary
    selectionColor: Theme.selection
    selectedTextColor: Theme.primary
    selectByMouse: true
    // As all texts here, in every script.
    horizontalAlignment: TextInput.AlignLeft
    renderType: Text.NativeRendering
    Accessible.editable: true
    cursorDelegate: Caret {
        owner: root
    }

    TextLabel {
        objectName: "placeholder"
        anchors.verticalCenter: parent.verticalCenter
        x: root.leftPadding + Theme.caretWidth / 2 // beside the caret
        width: root.width - x - root.rightPadding
        elide: Text.ElideRight
        visible: root.length === 0 && root.preeditText === ""
        text: root.placeholderText
        font: root.font
        color: Theme.secondary
        silent: true
    }
}
