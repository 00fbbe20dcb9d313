import QtQuick
import Tarvolt

// Shows that a scan is running: a ring, with a quarter that goes round it.
Item {
    id: root

    // As many pictures a second as a film has: smooth to the eye, at well under half the cost of every frame.
    readonly property int stepsPerTurn: 22

    objectName: "scanIndicator"
    implicitHeight: column.implicitHeight + 2 * column.y
    Accessible.role: Accessible.Notification
    Accessible.name: label.text

    Column {
        id: column
        anchors.horizontalCenter: parent.horizontalCenter
        y: 16
        spacing: 8

        Symbol {
            id: ring
            objectName: "spinner"
            anchors.horizontalCenter: parent.horizontalCenter
            symbol: "ring"
            size: 22
            colour: Theme.spinnerTrack

            Symbol {
                objectName: "spinnerQuarter"
                symbol: "ring.quarter"
                size: ring.size
                colour: Theme.orange
                angle: step * 360 / root.stepsPerTurn

                property int step

                // Being a whole number, it changes only so often, and so does the picture.
                NumberAnimation on step {
                    running: root.visible && !Theme.reducedMotion
                    loops: Animation.Infinite
                    from: 0
                    to: root.stepsPerTurn
                    duration: 900
                }
            }
        }

        TextLabel {
            id: label
            objectName: "scanLabel"
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.ceil(implicitWidth) // The label and the column would each round a fraction.
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Scanning...")
            color: Theme.secondary
            Accessible.ignored: true
        }
    }
}
