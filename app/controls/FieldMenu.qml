pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// What can be done with the text of a field.
T.Menu {
    id: root

    required property T.TextField field

    objectName: "fieldMenu"
    implicitWidth: Math.round(11 * Theme.bodyPixels)
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: 4
    margins: padding

    contentItem: ListView {
        implicitHeight: contentHeight
        interactive: false
        model: root.contentModel
        currentIndex: root.currentIndex
    }

    background: Item {
        PanelShadow {}

        BoxItem {
            objectName: "menuFace"
            anchors.fill: parent
            radius: Theme.cardRadius
            color: Theme.sheet
            borderWidth: Theme.hairline
            borderColor: Theme.sheetBorder
        }
    }

    FieldMenuItem {
        text: qsTr("Cut")
        enabled: root.field.selectedText !== ""
        onTriggered: root.field.cut()
    }

    FieldMenuItem {
        text: qsTr("Copy")
        enabled: root.field.selectedText !== ""
        onTriggered: root.field.copy()
    }

    FieldMenuItem {
        text: qsTr("Paste")
        enabled: root.field.canPaste
        onTriggered: root.field.paste()
    }

    FieldMenuItem {
        text: qsTr("Select All")
        enabled: root.field.selectedText !== root.field.text
        onTriggered: root.field.selectAll()
    }
}
