import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tarvolt

// A message that has to be dismissed, with its one button or Escape, before the window can be used again. It scrolls if
// it is too long for the window.
ModalPanel {
    id: root

    required property string message
    required property string button

    signal dismissed

    width: 320
    height: Math.min(implicitHeight, parent.height - 2 * Theme.edge)
    padding: 20
    scrim: Theme.alertScrim
    timeIn: Theme.still(140)
    timeOut: Theme.still(100)
    scaleFrom: 0.96
    onAboutToShow: area.contentY = 0

    // Its ids rule out deferred creation, which would gain nothing here.
    contentItem: FocusScope { // qmllint disable deferred-property-id
        id: form
        objectName: "alertForm"
        implicitHeight: column.implicitHeight
        focus: true
        Keys.onEscapePressed: root.dismissed()
        Keys.onPressed: event => event.accepted = thumb.scroll(event.key)

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
                Layout.topMargin: 6
                clip: contentHeight > height
                contentHeight: messageLabel.implicitHeight
                boundsBehavior: Flickable.StopAtBounds

                T.ScrollBar.vertical: ScrollThumb {
                    id: thumb
                    parent: form
                    area: area
                    gap: Math.round((root.padding - width) / 2)
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
                Layout.topMargin: 18
                focus: true
                text: root.button
                onClicked: root.dismissed()
            }
        }
    }
}
