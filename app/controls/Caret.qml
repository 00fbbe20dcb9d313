pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// The blinking line where typing goes, half of it before that place and half behind; it stands still while the text is
// being changed.
BoxItem {
    id: root

    required property TextInput owner

    objectName: "caret"
    width: Theme.caretWidth
    color: Theme.orange
    transform: Translate {
        x: -Theme.caretWidth / 2
    }
    visible: owner !== null && owner.activeFocus && owner.selectionStart === owner.selectionEnd

    Connections {
        target: root.owner

        function onCursorPositionChanged(): void {
            root.opacity = 1;
            if (blink.running)
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
