pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// The blinking line where typing goes, half of it before that place and half behind; it stands still while the text is
// being changed.
BoxItem {
    id: root

    required property TextInput owner
    // The period of the blinking, 0 for none. The linter of Qt 6.4 does not know the hints.
    readonly property int flash: Qt.styleHints.cursorFlashTime // qmllint disable

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
        running: root.visible && root.flash > 0
        repeat: true
        interval: root.flash / 2
        onTriggered: root.opacity = 1 - root.opacity
        onRunningChanged: root.opacity = 1
    }
}
