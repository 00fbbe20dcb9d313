import QtQuick
import Tarvolt

// A thin divider that can be dragged, or moved by the arrow keys. The area that takes the mouse is wider than the line.
Item {
    id: root

    signal moved(distance: real)

    // Assistive technology reads these of a slider, the only kind of item for which Qt Quick reports a value.
    required property real value // the width of the log
    required property real minimumValue
    required property real maximumValue
    readonly property real stepSize: 10
    readonly property bool strong: mouse.pressed || activeFocus

    objectName: "splitHandle"
    width: Theme.hairline
    // The size that assistive technology is told where the real one is less than 1.
    implicitWidth: 1
    implicitHeight: height
    activeFocusOnTab: true
    Accessible.role: Accessible.Slider
    Accessible.name: qsTr("Width of the log")
    Accessible.focusable: true
    Keys.onLeftPressed: root.moved(-root.stepSize)
    Keys.onRightPressed: root.moved(root.stepSize)

    BoxItem {
        objectName: "splitLine"
        anchors.horizontalCenter: parent.horizontalCenter
        width: root.strong || mouse.containsMouse ? 3 : root.width
        height: parent.height
        color: root.strong ? Theme.orange : mouse.containsMouse ? Theme.handleHover : Theme.line
    }

    MouseArea {
        id: mouse

        property real grip: 0

        objectName: "splitHitArea"
        anchors.horizontalCenter: parent.horizontalCenter
        width: 9
        height: parent.height
        hoverEnabled: true
        cursorShape: Qt.SplitHCursor
        onPressed: grip = mouseX
        onPositionChanged: {
            if (pressed)
                root.moved(mouseX - grip);
        }
    }
}
