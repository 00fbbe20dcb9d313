pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tarvolt

// The band at the top: what the program is, which folder is open, and what can be done with it.
Item {
    id: root

    required property WindowBridge view

    readonly property real titlesHeight: Math.ceil(titleMetrics.height) + Theme.headerTitleSpacing
        + Math.ceil(pathMetrics.height)

    implicitHeight: Math.max(titlesHeight, Theme.buttonHeight) + 2 * Theme.edge

    FontMetrics {
        id: titleMetrics
        font: Theme.headline
    }

    FontMetrics {
        id: pathMetrics
        font: Theme.caption
    }

    RowLayout {
        objectName: "headerRow"
        anchors.fill: parent
        anchors.leftMargin: Theme.headerSidePadding
        anchors.rightMargin: Theme.headerSidePadding
        anchors.topMargin: Theme.edge
        anchors.bottomMargin: Theme.edge
        spacing: Theme.headerSpacing

        Symbol {
            objectName: "headerSymbol"
            symbol: "music.note.house.fill"
            size: Theme.title2Symbol
            colour: Theme.orange
        }

        ColumnLayout {
            objectName: "headerTitles"
            Layout.fillWidth: true
            Layout.minimumWidth: 0
            Layout.maximumWidth: implicitWidth
            spacing: Theme.headerTitleSpacing

            TextLabel {
                objectName: "headerTitle"
                text: qsTr("Tarvolt")
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

        RowLayout {
            objectName: "headerActions"
            visible: root.view.folderPath !== ""
            spacing: Theme.headerActionSpacing

            Item {
                objectName: "badge"
                implicitWidth: Math.ceil(badgeText.implicitWidth) + 2 * Theme.badgeSidePadding
                implicitHeight: badgeText.implicitHeight + 2 * Theme.badgePadding

                BoxItem {
                    objectName: "badgeFill"
                    anchors.fill: parent
                    radius: Theme.badgeRadius
                    color: Theme.badge
                    opacity: Theme.badgeOpacity
                }

                TextLabel {
                    id: badgeText
                    objectName: "badgeText"
                    x: Theme.badgeSidePadding
                    y: Theme.badgePadding
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
