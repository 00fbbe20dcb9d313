import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tarvolt

// The contents of the rename sheet.
FocusScope {
    id: root

    required property SheetBridge sheet
    readonly property alias title: titleLabel.text

    objectName: "renameForm"
    focus: true
    Keys.onEscapePressed: root.sheet.cancelRename()
    // Return presses the Rename button unless the focused control takes it.
    Keys.onReturnPressed: root.sheet.pressRename()
    Keys.onEnterPressed: root.sheet.pressRename()
    Keys.onPressed: event => event.accepted = thumb.scroll(event.key)

    function focusField(): void {
        newName.field.forceActiveFocus(Qt.OtherFocusReason);
    }

    function selectName(): void {
        newName.field.focus = true;
        newName.field.selectAll();
    }

    ColumnLayout {
        id: parts
        anchors.fill: parent
        spacing: 20

        // If a large font leaves no room for even a little of the preview, all of this scrolls as one.
        Flickable {
            id: area
            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: contentHeight > height
            contentHeight: content.height
            boundsBehavior: Flickable.StopAtBounds

            T.ScrollBar.vertical: ScrollThumb {
                id: thumb
                parent: root
                area: area
                gap: Math.round((Theme.sheetPadding - width) / 2)
            }

            ColumnLayout {
                id: content

                readonly property real least: implicitHeight - (preview.visible ? preview.dispensable : 0)

                width: area.width
                height: least <= area.height ? area.height : implicitHeight
                spacing: parts.spacing

                ColumnLayout {
                    objectName: "sheetTitleBlock"
                    spacing: 4

                    TextLabel {
                        id: titleLabel
                        objectName: "sheetTitle"
                        text: qsTr("Rename Project")
                        font: Theme.title2
                    }

                    CurrentName {
                        Layout.fillWidth: true
                        name: root.sheet.currentName
                    }
                }

                NewName {
                    id: newName
                    sheet: root.sheet
                    field.onCursorPositionChanged: area.contentY = 0
                    field.onActiveFocusChanged: area.contentY = 0
                }

                RenamePreview {
                    id: preview
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    Layout.maximumHeight: implicitHeight
                    sheet: root.sheet
                    visible: root.sheet.offersRename
                }

                Item {
                    objectName: "sheetGap"
                    Layout.fillHeight: true
                }
            }
        }

        RowLayout {
            objectName: "sheetButtons"
            Layout.alignment: Qt.AlignRight
            spacing: 8

            BorderedButton {
                objectName: "cancelButton"
                text: qsTr("Cancel")
                onClicked: root.sheet.cancelRename()
            }

            ProminentButton {
                objectName: "renameButton"
                text: qsTr("Rename")
                enabled: root.sheet.offersRename
                onClicked: root.sheet.pressRename()
            }
        }
    }

    // Shown at an edge where something is out of sight.
    HairLine {
        x: -Theme.sheetPadding
        width: parent.width + 2 * Theme.sheetPadding
        visible: !area.atYBeginning
    }

    HairLine {
        x: -Theme.sheetPadding
        y: area.height
        width: parent.width + 2 * Theme.sheetPadding
        visible: !area.atYEnd
    }
}
