pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// A single-line text field without a frame. The right mouse button, the menu key and Shift+F10 open its menu.
T.TextField {
    id: root

    required property string stored // the text in the program's state
    readonly property int caretWidth: 2
    property string spokenText: ""
    // While the menu is open, it has the focus.
    readonly property bool inUse: activeFocus || menu.visible

    signal edited(newText: string)

    text: stored
    // Assistive technology sets a text without editing it.
    onTextChanged: {
        if (text !== stored)
            edited(text);
    }
    color: Theme.primary
    selectionColor: Theme.selection
    selectedTextColor: Theme.primary
    // Like all texts in the window, in every script.
    horizontalAlignment: TextInput.AlignLeft
    renderType: Text.NativeRendering
    Accessible.editable: true
    // Qt 6.4 exposes the text in runs of length zero, which a screen reader does not speak.
    Accessible.description: spokenText
    onActiveFocusChanged: spokenText = activeFocus ? text : ""

    // The caret, centred on the insertion point. It blinks, but not while the text is being changed.
    cursorDelegate: BoxItem {
        id: caret

        // The period of the blinking, 0 for none. The linter of Qt 6.4 does not know the hints.
        readonly property int flash: Qt.styleHints.cursorFlashTime // qmllint disable

        objectName: "caret"
        width: root.caretWidth
        color: Theme.orange
        transform: Translate {
            x: -root.caretWidth / 2
        }
        visible: root.activeFocus && root.selectionStart === root.selectionEnd

        Connections {
            target: root

            function onCursorPositionChanged(): void {
                caret.opacity = 1;
                if (blink.running)
                    blink.restart();
            }
        }

        Timer {
            id: blink
            running: caret.visible && caret.flash > 0
            repeat: true
            interval: caret.flash / 2
            onTriggered: caret.opacity = 1 - caret.opacity
            onRunningChanged: caret.opacity = 1
        }
    }

    onPressed: event => {
        if (event.button === Qt.RightButton)
            root.showMenu(event.x, event.y);
    }
    Keys.onMenuPressed: root.showMenuAtCaret()
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
        if (event.accepted)
            root.showMenuAtCaret();
    }

    function showMenu(x: real, y: real): void {
        root.forceActiveFocus(Qt.MouseFocusReason);
        menu.popupByMouse(x, y);
    }

    function showMenuAtCaret(): void {
        // Clear of the frame, which is some distance from the search field.
        menu.popupByKey(root.cursorRectangle.x, root.height + 12);
    }

    FieldMenu {
        id: menu
        field: root
    }

    TextLabel {
        objectName: "placeholder"
        anchors.verticalCenter: parent.verticalCenter
        x: root.leftPadding + root.caretWidth // a pixel beside the caret
        width: root.width - x - root.rightPadding
        elide: Text.ElideRight
        visible: root.length === 0 && root.preeditText === ""
        text: root.placeholderText
        font: root.font
        color: Theme.secondary
        Accessible.ignored: true
    }
}
