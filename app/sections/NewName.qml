pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tarvolt

// The field for the new name, under its caption.
ColumnLayout {
    id: root

    required property SheetBridge sheet
    readonly property alias field: field

    objectName: "sheetNameBlock"
    spacing: 6

    TextLabel {
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
        text: root.sheet.newName
        // Assistive technology sets a text without editing it.
        onTextChanged: {
            if (text !== root.sheet.newName)
                root.sheet.newName = text;
        }
        Accessible.name: qsTr("New name")
        // Submitting the field asks for the rename whatever the button's state.
        Keys.onReturnPressed: root.sheet.submitNewName()
        Keys.onEnterPressed: root.sheet.submitNewName()
    }
}
