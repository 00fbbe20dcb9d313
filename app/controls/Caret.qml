pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// The blinking line where typing goes; it stands still while the text is being changed.
Rectangle {
    id: root

    required property TextInput field

    width: Theme.caretWidth
    color: Theme.orange
    visible: field.activeFocus && field.selectionStart === field.selectionEnd

    Connections {
        target: root.field

        function onCursorPositionChanged(): void {
            root.opacity = 1;
            blink.restart();
        }
    }

    Timer {
        id: blink
        running: root.visible && Theme.caretFlash > 0
        repeat: true
        interval: Theme.caretFlash / 2
        onTriggered: root.opacity = 1 - root.opacity
        onRunningChanged: root.opacity = 1
    }
}
