pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tarvolt

// What stands in the failure alert. A message that is too long for the window scrolls.
FocusScope {
    id: root

    required property ViewBridge view
    readonly property alias title: titleLabel.text

    objectName: "alertForm"
    implicitHeight: column.implicitHeight
    focus: true
    onVisibleChanged: area.contentY = 0
    Keys.onEscapePressed: root.view.dismissAlert()
    Keys.onPressed: event => event.accepted = scrollKeys.scroll(event.key)

    ColumnLayout {
        id: column
        anchors.fill: parent
        spacing: 0

        TextLabel {
            id: titleLabel
            objectName: "alertTitle"
            Layout.fillWidth: true
            text: qsTr("Rename Failed")
            font: Theme.headline
            horizontalAlignment: Text.AlignHCenter
        }

        Flickable {
            id: area
            objectName: "alertArea"
            implicitHeight: Math.ceil(message.implicitHeight)
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.topMargin: Theme.alertTextSpacing
            clip: contentHeight > height
            contentHeight: message.implicitHeight
            boundsBehavior: Flickable.StopAtBounds

            T.ScrollBar.vertical: ScrollThumb {
                parent: root
                x: area.width + Math.round((Theme.alertPadding - width) / 2)
                y: area.y
                height: area.height
            }

            TextLabel {
                id: message
                objectName: "alertMessage"
                width: area.width
                text: root.view.alertMessage
                font: Theme.verbatim(Theme.body, text)
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                lineHeight: Theme.proseHeight
            }
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

    ScrollKeys {
        id: scrollKeys
        area: area
        step: Theme.scrollStep
    }
}
