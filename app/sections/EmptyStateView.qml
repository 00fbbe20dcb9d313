import QtQuick
import QtQuick.Layouts
import Tarvolt

// The area under the header when a scan has found no project.
ColumnLayout {
    id: root

    signal folderWanted

    objectName: "emptyStateView"
    spacing: 12

    function takeFocus(): void {
        button.forceActiveFocus(Qt.TabFocusReason);
    }

    Item {
        objectName: "emptyTopGap"
        Layout.fillHeight: true
    }

    Symbol {
        objectName: "emptySymbol"
        Layout.alignment: Qt.AlignHCenter
        symbol: "magnifyingglass"
        size: Theme.symbolBox(36)
        colour: Theme.secondaryHalf
        opacity: Theme.halfOpacity
    }

    TextLabel {
        objectName: "emptyTitle"
        Layout.alignment: Qt.AlignHCenter
        text: qsTr("No MPC Projects Found")
        font: Theme.title3
        color: Theme.secondary
    }

    TextLabel {
        objectName: "emptyText"
        Layout.alignment: Qt.AlignHCenter
        Accessible.role: Accessible.Notification
        text: qsTr("Make sure you selected the folder that\ndirectly contains your .xpj files.")
        color: Theme.secondaryEightTenths
        opacity: Theme.noteOpacity
        horizontalAlignment: Text.AlignHCenter
        lineHeight: Theme.twoLineHeight
    }

    BorderedButton {
        id: button
        objectName: "chooseDifferentFolderButton"
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: 8
        text: qsTr("Choose Different Folder")
        onClicked: root.folderWanted()
    }

    Item {
        objectName: "emptyBottomGap"
        Layout.fillHeight: true
    }
}
