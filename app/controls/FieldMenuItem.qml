pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// A line of a field's menu.
T.MenuItem {
    id: root

    objectName: "fieldMenuItem"
    implicitHeight: Theme.buttonHeight
    leftPadding: Theme.buttonPadding
    rightPadding: Theme.buttonPadding
    font: Theme.body
    Accessible.name: text
    // Qt 6.4 tells assistive technology nothing of a disabled state.
    Accessible.description: enabled ? "" : qsTr("Not available now")
    Accessible.onPressAction: root.choose()
    Keys.onReturnPressed: root.choose()
    Keys.onEnterPressed: root.choose()

    function choose(): void {
        if (root.enabled)
            root.clicked();
    }

    contentItem: TextLabel {
        text: root.text
        font: root.font
        color: root.enabled ? Theme.primary : Theme.disabledInk
        verticalAlignment: Text.AlignVCenter
        silent: true
    }

    background: BoxItem {
        radius: Theme.smallButtonRadius
        color: root.highlighted && root.enabled ? Theme.selection : "transparent"
    }
}
