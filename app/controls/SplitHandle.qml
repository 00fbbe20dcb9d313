pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// A thin divider that can be dragged, or moved by the arrow keys. It is easier to hit than to see.
Item {
    id: root

    signal moved(distance: real)

    readonly property bool strong: drag.active || activeFocus

    objectName: "splitHandle"
    implicitWidth: Theme.hairline
    activeFocusOnTab: true
    Accessible.role: Accessible.Splitter
    Accessible.name: qsTr("Width of the log")
    Accessible.focusable: true
    Keys.onLeftPressed: root.moved(-Theme.splitStep)
    Keys.onRightPressed: root.moved(Theme.splitStep)

    BoxItem {
        objectName: "splitLine"
        anchors.horizontalCenter: parent.horizontalCenter
        width: root.strong || hover.hovered ? Theme.splitStrongWidth : root.width
        height: parent.height
        color: root.strong ? Theme.orange : hover.hovered ? Theme.handleHover : Theme.line
    }

    Item {
        objectName: "splitHitArea"
        anchors.horizontalCenter: parent.horizontalCenter
        width: Theme.splitHitWidth
        height: parent.height

        HoverHandler {
            id: hover
            cursorShape: Qt.SplitHCursor
        }

        DragHandler {
            id: drag
            target: null
            xAxis.enabled: true
            yAxis.enabled: false
            cursorShape: Qt.SplitHCursor
            dragThreshold: 0

            property real startX: 0

            onActiveChanged: startX = root.x
            onTranslationChanged: root.moved(startX + translation.x - root.x)
        }
    }
}
