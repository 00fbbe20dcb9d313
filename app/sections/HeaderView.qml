pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tarvolt

// The band at the top: what the program is, which folder is open, and what can be done with it.
Item {
    id: root

    required property WindowBridge view

    // With room for the path, so that the line below does not move when it appears.
    readonly property real titlesHeight: title.implicitHeight + titles.spacing + Math.ceil(pathMetrics.height)

    implicitHeight: Math.max(titlesHeight, Theme.buttonHeight) + 2 * Theme.edge

    FontMetrics {
        id: pathMetrics
        font: Theme.caption
    }

    RowLayout {
        objectName: "headerRow"
        anchors.fill: parent
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        anchors.topMargin: Theme.edge
        anchors.bottomMargin: Theme.edge
        spacing: 12

        Symbol {
            objectName: "headerSymbol"
            symbol: "music.note.house.fill"
            size: Theme.title2Symbol
            colour: Theme.orange
        }

        ColumnLayout {
            id: titles
            objectName: "headerTitles"
            Layout.fillWidth: true
            Layout.minimumWidth: 0
            Layout.maximumWidth: implicitWidth
            spacing: 1

            TextLabel {
                id: title
                objectName: "headerTitle"
                text: Qt.application.name
                font: Theme.headline
            }

            TextLabel {
                objectName: "headerPath"
                Layout.fillWidth: true
                visible: root.view.folderPath !== ""
                text: root.view.folderPath
                font: Theme.verbatim(Theme.caption, text)
                color: Theme.secondary
                maximumLineCount: 1
                elide: Text.ElideMiddle
            }
        }

        Item {
            objectName: "headerGap"
            Layout.fillWidth: true
        }

        OnDemand {
            needed: visible
            visible: root.view.folderPath !== ""

            RowLayout {
                anchors.fill: parent
                objectName: "headerActions"
                spacing: 8

                Item {
                    objectName: "badge"
                    implicitWidth: Math.ceil(badgeText.implicitWidth) + 2 * badgeText.x
                    implicitHeight: badgeText.implicitHeight + 2 * badgeText.y

                    BoxItem {
                        objectName: "badgeFill"
                        anchors.fill: parent
                        radius: 6
                        color: Theme.badge
                        opacity: Theme.badgeOpacity
                    }

                    TextLabel {
                        id: badgeText
                        objectName: "badgeText"
                        x: 8
                        y: 4
                        text: root.view.projectCountText
                        font: Theme.caption
                        color: Theme.secondary
                    }
                }

                BorderedButton {
                    objectName: "rescanButton"
                    symbol: "arrow.clockwise"
                    spokenName: qsTr("Rescan")
                    enabled: !root.view.scanning
                    onClicked: root.view.rescan()
                }

                BorderedButton {
                    objectName: "changeFolderButton"
                    text: qsTr("Change Folder")
                    onClicked: root.view.selectFolder()
                }
            }
        }
    }
}
