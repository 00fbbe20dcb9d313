pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// What every button does: it is pressed by mouse, Space, Return, keypad Enter and assistive technology, once a press.
T.AbstractButton {
    id: root

    property string spokenName: text
    property string spokenDetails: "" // what it says after that

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    font: Theme.body

    Accessible.role: Accessible.Button
    Accessible.name: spokenName
    // Qt 6.4 tells assistive technology nothing of a disabled state.
    Accessible.description: enabled ? spokenDetails : qsTr("Not available now")
    // The toolkit's button would act when Space is released, which a held key on X11 seems to be again and again.
    Keys.onSpacePressed: root.press()
    Keys.onReturnPressed: root.press()
    Keys.onEnterPressed: root.press()

    // The press of assistive technology, called by this name. Answered first: a folder panel would keep whoever pressed
    // waiting until it closes. The linter of Qt 6.4 takes callLater for no function and has no name for this warning.
    function accessiblePressAction(): void {
        Qt.callLater(root.press); // qmllint disable
    }

    function press(): void {
        if (root.enabled)
            root.clicked();
    }
}
