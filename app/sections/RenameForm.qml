pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tarvolt

// What stands in the rename sheet.
FocusScope {
    id: root

    required property ViewBridge view
    readonly property alias title: titleLabel.text

    objectName: "renameForm"
    focus: true
    Keys.onEscapePressed: root.view.cancelRename()
    // Return is the Rename button's wherever no control takes it.
    Keys.onReturnPressed: root.view.pressRename()
    Keys.onEnterPressed: root.view.pressRename()

    function focusField(): void {
        field.forceActiveFocus(Qt.OtherFocusReason);
    }

    function selectName(): void {
        field.focus = true;
        field.selectAll();
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: Theme.sheetSpacing

        ColumnLayout {
            objectName: "sheetTitleBlock"
            spacing: Theme.sheetTitleSpacing

            TextLabel {
                id: titleLabel
                objectName: "sheetTitle"
                text: qsTr("Rename Project")
                font: Theme.title2
            }

            TextLabel {
                objectName: "sheetCurrentName"
                Layout.fillWidth: true
                text: root.view.currentNameText
                font: Theme.verbatim(Theme.monoBody, text)
                color: Theme.secondary
                maximumLineCount: 1
                elide: Text.ElideMiddle
            }
        }

        ColumnLayout {
            objectName: "sheetNameBlock"
            spacing: Theme.sheetFieldSpacing

            TextLabel {
                id: fieldLabel
                objectName: "sheetFieldLabel"
                text: qsTr("NEW NAME")
                font: Theme.captionCapitals
                color: Theme.secondary
                silent: true
            }

            RoundedField {
                id: field
                objectName: "newNameField"
                Layout.fillWidth: true
                focus: true
                placeholderText: qsTr("Enter new project name")
                text: root.view.newName
                // Assistive technology sets a text without editing it.
                onTextChanged: {
                    if (text !== root.view.newName)
                        root.view.newName = text;
                }
                Accessible.name: qsTr("New name")
                // Submitting the field asks for the rename whatever the button's state.
                Keys.onReturnPressed: root.view.submitNewName()
                Keys.onEnterPressed: root.view.submitNewName()
            }
        }

        RenamePreview {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.maximumHeight: implicitHeight
            view: root.view
            visible: root.view.offersRename
        }

        Item {
            objectName: "sheetGap"
            Layout.fillHeight: true
        }

        RowLayout {
            objectName: "sheetButtons"
            Layout.alignment: Qt.AlignRight
            spacing: Theme.sheetButtonSpacing

            BorderedButton {
                objectName: "cancelButton"
                text: qsTr("Cancel")
                onClicked: root.view.cancelRename()
            }

            ProminentButton {
                objectName: "renameButton"
                text: qsTr("Rename")
                enabled: root.view.offersRename
                onClicked: root.view.pressRename()
            }
        }
    }
}
