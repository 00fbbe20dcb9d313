pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// What every button does: it is pressed by mouse, Space, Return, keypad Enter and assistive technology, once a press.
T.AbstractButton {
    id: root

    property string spokenName: text

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    font: Theme.body

    Accessible.role: Accessible.Button
    Accessible.name: spokenName
    // Qt 6.4 tells assistive technology nothing of a disabled state.
    Accessible.description: enabled ? "" : qsTr("Not available now")
    // Answered first: a folder panel would keep whoever pressed waiting until it closes. The linter of Qt 6.4 takes
    // callLater for no function and has no name for this warning.
    Accessible.onPressAction: Qt.callLater(root.pressOnce, false) // qmllint disable
    // The toolkit's button takes each repeat of a held Space for a press of its own.
    Keys.onSpacePressed: event => event.accepted = event.isAutoRepeat
    Keys.onReleased: event => event.accepted = event.key === Qt.Key_Space && event.isAutoRepeat
    Keys.onReturnPressed: event => root.pressOnce(event.isAutoRepeat)
    Keys.onEnterPressed: event => root.pressOnce(event.isAutoRepeat)

    function pressOnce(repeated: bool): void {
        if (root.enabled && !repeated)
            root.clicked();
    }
}
