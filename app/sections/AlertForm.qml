pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tarvolt

// What stands in the failure alert.
FocusScope {
    id: root

    required property ViewBridge view
    readonly property alias title: titleLabel.text

    objectName: "alertForm"
    implicitHeight: column.implicitHeight
    focus: true
    Accessible.role: Accessible.AlertMessage
    Accessible.name: title
    Accessible.description: message.text
    Keys.onEscapePressed: root.view.dismissAlert()

    ColumnLayout {
        id: column
        width: parent.width
        spacing: 0

        TextLabel {
            id: titleLabel
            objectName: "alertTitle"
            Layout.fillWidth: true
            text: qsTr("Rename Failed")
            font: Theme.headline
            horizontalAlignment: Text.AlignHCenter
        }

        TextLabel {
            id: message
            objectName: "alertMessage"
            Layout.fillWidth: true
            Layout.topMargin: Theme.alertTextSpacing
            text: root.view.alertMessage
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            lineHeight: Theme.proseHeight
        }

        ProminentButton {
            objectName: "alertButton"
            Layout.fillWidth: true
            Layout.topMargin: Theme.alertButtonTop
            focus: true
            text: qsTr("OK")
            onClicked: root.view.dismissAlert()
        }
    }
}
