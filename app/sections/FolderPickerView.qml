import QtQuick
import QtQuick.Layouts
import Tarvolt

// The area under the header before a folder has been chosen.
ColumnLayout {
    id: root

    signal folderWanted

    spacing: 16

    Item {
        objectName: "pickerTopGap"
        Layout.fillHeight: true
    }

    Symbol {
        objectName: "pickerSymbol"
        Layout.alignment: Qt.AlignHCenter
        symbol: "folder.badge.plus"
        size: Theme.symbolBox(48)
        colour: Theme.orangeSixTenths
        opacity: Theme.tintedOpacity
    }

    TextLabel {
        objectName: "pickerTitle"
        Layout.alignment: Qt.AlignHCenter
        text: qsTr("Select Your MPC Projects Folder")
        font: Theme.title3Semibold
    }

    TextLabel {
        id: explanation
        objectName: "pickerText"
        Layout.alignment: Qt.AlignHCenter
        text: qsTr("Choose the folder that contains your .xpj files\nand their _[ProjectData] folders")
        color: Theme.secondary
        horizontalAlignment: Text.AlignHCenter
        lineHeight: Theme.twoLineHeight
    }

    ProminentButton {
        objectName: "selectFolderButton"
        Layout.alignment: Qt.AlignHCenter
        large: true
        symbol: "folder"
        text: qsTr("Select Folder")
        spokenDetails: explanation.text
        onClicked: root.folderWanted()
    }

    Item {
        objectName: "pickerBottomGap"
        Layout.fillHeight: true
    }

    RowLayout {
        objectName: "privacyNote"
        Layout.alignment: Qt.AlignHCenter
        Layout.bottomMargin: 20
        spacing: 4

        Symbol {
            objectName: "privacySymbol"
            symbol: "lock.shield.fill"
            size: Theme.caption2Symbol
            colour: Theme.secondary
        }

        TextLabel {
            objectName: "privacyText"
            text: qsTr("Everything runs locally. No files are uploaded anywhere.")
            font: Theme.caption
            color: Theme.secondary
        }
    }
}
