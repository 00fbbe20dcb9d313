pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// A scan is running.
Item {
    id: root

    objectName: "scanIndicator"
    implicitHeight: column.implicitHeight + 2 * column.y
    Accessible.role: Accessible.Notification
    Accessible.name: label.text

    Column {
        id: column
        anchors.horizontalCenter: parent.horizontalCenter
        y: 16
        spacing: 8

        Spinner {
            anchors.horizontalCenter: parent.horizontalCenter
        }

        TextLabel {
            id: label
            objectName: "scanLabel"
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.ceil(implicitWidth) // A fraction would be rounded once by the label and once by the column.
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Scanning...")
            color: Theme.secondary
            silent: true
        }
    }
}
