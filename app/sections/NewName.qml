import QtQuick
import QtQuick.Layouts
import Tarvolt

// The field for the new name, with a border of its own, under its caption.
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
        Accessible.ignored: true
    }

    BareField {
        id: field
        objectName: "newNameField"
        Layout.fillWidth: true
        implicitHeight: Math.round(Math.max(30, Theme.lineRatio * Theme.bodyPixels + 14))
        leftPadding: 9
        rightPadding: leftPadding
        verticalAlignment: TextInput.AlignVCenter
        focus: true
        hoverEnabled: true
        font: Theme.verbatim(Theme.monoBody, text)
        placeholderText: qsTr("Enter new project name")
        stored: root.sheet.newName
        onEdited: newText => root.sheet.newName = newText
        Accessible.name: qsTr("New name")
        // Submitting the field asks for the rename even while the button is disabled.
        Keys.onReturnPressed: root.sheet.submitNewName()
        Keys.onEnterPressed: root.sheet.submitNewName()

        background: BoxItem {
            objectName: "frame"
            radius: 7
            color: Theme.base
            borderWidth: field.inUse ? Theme.focusWidth : Theme.hairline
            borderColor: field.inUse ? Theme.orange : field.hovered ? Theme.fieldBorderHover : Theme.fieldBorder
        }
    }
}
