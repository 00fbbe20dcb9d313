pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// A scan is running.
Item {
    id: root

    objectName: "scanIndicator"
    implicitHeight: column.implicitHeight + 2 * Theme.scanPadding
    Accessible.role: Accessible.ProgressBar
    Accessible.name: label.text

    Column {
        id: column
        anchors.horizontalCenter: parent.horizontalCenter
        y: Theme.scanPadding
        spacing: Theme.scanSpacing

        Spinner {
            anchors.horizontalCenter: parent.horizontalCenter
        }

        TextLabel {
            id: label
            objectName: "scanLabel"
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Scanning...")
            color: Theme.secondary
            silent: true
        }
    }
}
