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
    // A held key closes what was open when it was pressed, and not what is below that.
    Keys.onEscapePressed: event => {
        if (!event.isAutoRepeat)
            root.view.cancelRename();
    }
    // Return is the Rename button's wherever no control takes it.
    Keys.onReturnPressed: event => root.pressRename(event.isAutoRepeat)
    Keys.onEnterPressed: event => root.pressRename(event.isAutoRepeat)

    function pressRename(repeated: bool): void {
        if (!repeated)
            root.view.pressRename();
    }

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
                font: Theme.monoBody
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
                Keys.onReturnPressed: event => root.submit(event.isAutoRepeat)
                Keys.onEnterPressed: event => root.submit(event.isAutoRepeat)
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

    // Submitting the field asks for the rename whatever the button's state.
    function submit(repeated: bool): void {
        if (!repeated)
            root.view.submitNewName();
    }
}
