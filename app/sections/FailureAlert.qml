pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tarvolt

// Says why a rename failed.
ModalPanel {
    id: root

    required property ViewBridge view

    signal dismissed

    objectName: "failureAlert"
    width: Theme.alertWidth
    padding: Theme.alertPadding
    visible: view.alertOpen
    scrim: Theme.alertScrim
    scrimFade: visible ? Theme.alertIn : Theme.alertOut
    onAboutToShow: okButton.focus = true
    onOpened: view.announceAlert(content)
    onAboutToHide: root.dismissed()

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.alertIn
        }
        NumberAnimation {
            property: "scale"
            from: Theme.alertScale
            to: 1
            duration: Theme.alertIn
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.alertOut
        }
    }

    contentItem: FocusScope {
        id: content
        objectName: "alertContent"
        implicitHeight: column.implicitHeight
        focus: true
        Accessible.role: Accessible.AlertMessage
        Accessible.name: title.text
        Accessible.description: message.text
        Keys.onEscapePressed: root.view.dismissAlert()

        ColumnLayout {
            id: column
            width: parent.width
            spacing: 0

            TextLabel {
                id: title
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
                id: okButton
                objectName: "alertButton"
                Layout.fillWidth: true
                Layout.topMargin: Theme.alertButtonTop
                focus: true
                text: qsTr("OK")
                onClicked: root.view.dismissAlert()
            }
        }
    }
}
