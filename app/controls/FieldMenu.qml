pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// What can be done with the text of a field.
T.Menu {
    id: root

    required property T.TextField field
    // Opened by a key, it keeps its highlighted item also where the mouse happens to rest over another.
    property bool hovers: true

    objectName: "fieldMenu"
    implicitWidth: Math.round(11 * Theme.bodyPixels)
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: 4
    margins: padding

    // What assistive technology calls it.
    Component.onCompleted: contentItem.parent.Accessible.name = qsTr("Edit")

    function popupByMouse(x: real, y: real): void {
        root.hovers = true;
        root.popup(x, y);
    }

    // Highlights the first item that can be chosen.
    function popupByKey(x: real, y: real): void {
        root.hovers = false;
        root.popup(x, y);
        root.currentIndex = -1;
        for (let index = 0; index < root.count && root.currentIndex < 0; ++index)
            root.currentIndex = root.itemAt(index).enabled ? index : -1;
    }

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
        hoverEnabled: root.hovers
        text: qsTr("Cut")
        enabled: root.field.selectedText !== ""
        onTriggered: root.field.cut()
    }

    FieldMenuItem {
        hoverEnabled: root.hovers
        text: qsTr("Copy")
        enabled: root.field.selectedText !== ""
        onTriggered: root.field.copy()
    }

    FieldMenuItem {
        hoverEnabled: root.hovers
        text: qsTr("Paste")
        enabled: root.field.canPaste
        onTriggered: root.field.paste()
    }

    FieldMenuItem {
        hoverEnabled: root.hovers
        text: qsTr("Select All")
        enabled: root.field.selectedText !== root.field.text
        onTriggered: root.field.selectAll()
    }
}
