pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// What can be done with the text of a field.
T.Menu {
    id: root

    required property T.TextField field
    // A menu opened by a key keeps its highlighted item even if the mouse happens to rest over another.
    property bool hovers: true

    implicitWidth: Math.round(11 * Theme.bodyPixels)
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: 4
    margins: padding

    // Its name for assistive technology.
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

    delegate: T.MenuItem {
        id: item

        objectName: "fieldMenuItem"
        implicitHeight: Theme.buttonHeight
        leftPadding: Theme.buttonPadding
        rightPadding: Theme.buttonPadding
        font: Theme.body
        hoverEnabled: root.hovers
        Accessible.name: text
        Accessible.description: Speech.description(enabled, "")
        Accessible.onPressAction: item.choose()
        Keys.onReturnPressed: item.choose()
        Keys.onEnterPressed: item.choose()

        function choose(): void {
            if (item.enabled) {
                item.action.trigger(item);
                item.clicked(); // closes the menu
            }
        }

        contentItem: TextLabel {
            text: item.text
            font: item.font
            color: item.enabled ? Theme.primary : Theme.disabledInk
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }

        background: BoxItem {
            radius: Theme.smallButtonRadius
            color: item.highlighted && item.enabled ? Theme.selection : "transparent"
        }
    }

    T.Action {
        text: qsTr("Cut")
        enabled: root.field.selectedText !== ""
        onTriggered: root.field.cut()
    }

    T.Action {
        text: qsTr("Copy")
        enabled: root.field.selectedText !== ""
        onTriggered: root.field.copy()
    }

    T.Action {
        text: qsTr("Paste")
        enabled: root.field.canPaste
        onTriggered: root.field.paste()
    }

    T.Action {
        text: qsTr("Select All")
        enabled: root.field.selectedText !== root.field.text
        onTriggered: root.field.selectAll()
    }
}
