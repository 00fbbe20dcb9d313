import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tarvolt

// The names on disk before and after, in a box that scrolls if they are too long for it.
ColumnLayout {
    id: root

    required property SheetBridge sheet
    // How much of its height the preview can give up: it can scroll as long as it shows a name of two lines.
    readonly property real leastHeight: 2 * (lines.y + Math.ceil(Theme.lineRatio * Theme.captionPixels))
    readonly property real dispensable: Math.max(0, box.implicitHeight - leastHeight)

    objectName: "previewBlock"
    spacing: 8
    onVisibleChanged: {
        if (visible) {
            area.contentY = 0;
            appear.restart();
        }
    }

    NumberAnimation on opacity {
        id: appear
        running: false
        from: 0
        to: 1
        duration: Theme.viewFade
    }

    TextLabel {
        id: titleLabel
        objectName: "previewTitle"
        text: qsTr("PREVIEW")
        font: Theme.captionCapitals
        color: Theme.secondary
    }

    Item {
        id: box
        objectName: "previewBox"
        implicitHeight: lines.implicitHeight + 2 * lines.y
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.maximumHeight: implicitHeight

        BoxItem {
            id: fill
            objectName: "previewFill"
            anchors.fill: parent
            radius: 8
            color: Theme.quaternary
            opacity: Theme.halfOpacity
        }

        Flickable {
            id: area

            readonly property bool fits: 1.5 * lines.y + lines.implicitHeight <= height

            objectName: "previewArea"
            anchors.fill: parent
            clip: contentHeight > height
            // If only some of the lower padding is out of sight, there is nothing to scroll for.
            contentHeight: fits ? height : box.implicitHeight
            boundsBehavior: Flickable.StopAtBounds
            // Keep it in the tab chain while focused.
            activeFocusOnTab: contentHeight > height || activeFocus
            Keys.onPressed: event => event.accepted = thumb.scroll(event.key)
            Accessible.role: Accessible.Grouping
            Accessible.name: titleLabel.text
            Accessible.focusable: true
            Accessible.ignored: !activeFocusOnTab

            T.ScrollBar.vertical: ScrollThumb {
                id: thumb
                area: area
                inset: Theme.thumbEdge
            }

            Column {
                id: lines
                objectName: "previewLines"
                x: 12
                y: 12
                width: area.width - 2 * x
                spacing: 6

                PreviewRow {
                    objectName: "previewFileRow"
                    width: parent.width
                    oldText: root.sheet.oldFileName
                    newText: root.sheet.newFileName
                }

                PreviewRow {
                    objectName: "previewFolderRow"
                    width: parent.width
                    visible: oldText !== ""
                    oldText: root.sheet.oldFolderName
                    newText: root.sheet.newFolderName
                }

                TextLabel {
                    objectName: "previewNote"
                    text: qsTr("+ Updates file paths inside .xpj")
                    font: Theme.caption
                    color: Theme.secondary
                }
            }
        }

        FocusRing {
            innerRadius: fill.radius
            visible: area.activeFocus
        }
    }
}
