pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tarvolt

// What stands in an alert. A message that is too long for the window scrolls.
FocusScope {
    id: root

    required property string title
    required property string message
    required property string button

    signal dismissed

    objectName: "alertForm"
    implicitHeight: column.implicitHeight
    focus: true
    onVisibleChanged: area.contentY = 0
    Keys.onEscapePressed: root.dismissed()
    Keys.onPressed: event => event.accepted = scrollKeys.scroll(event.key)

    ColumnLayout {
        id: column
        anchors.fill: parent
        spacing: 0

        TextLabel {
            objectName: "alertTitle"
            Layout.fillWidth: true
            text: root.title
            font: Theme.headline
            horizontalAlignment: Text.AlignHCenter
        }

        Flickable {
            id: area
            objectName: "alertArea"
            implicitHeight: Math.ceil(messageLabel.implicitHeight)
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.topMargin: Theme.alertTextSpacing
            clip: contentHeight > height
            contentHeight: messageLabel.implicitHeight
            boundsBehavior: Flickable.StopAtBounds

            T.ScrollBar.vertical: ScrollThumb {
                parent: root
                x: area.width + Math.round((Theme.alertPadding - width) / 2)
                y: area.y
                height: area.height
            }

            TextLabel {
                id: messageLabel
                objectName: "alertMessage"
                width: area.width
                text: root.message
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
            text: root.button
            onClicked: root.dismissed()
        }
    }

    ScrollKeys {
        id: scrollKeys
        area: area
        step: Theme.scrollStep
    }
}
