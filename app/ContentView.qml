import QtQuick
import QtQuick.Window
import Tarvolt

// Not bound, because Qt 6.4 refuses to make a bound component that no other one contains.
// The window: header, line, and below them one of three areas; over them the rename sheet and the failure alert.
Window {
    id: root

    required property ViewBridge view

    width: Theme.firstWidth
    height: Theme.firstHeight
    minimumWidth: Theme.leastWidth
    minimumHeight: Theme.leastHeight
    title: Qt.application.displayName
    color: Theme.window
    visible: true

    HeaderView {
        id: header
        objectName: "headerView"
        width: parent.width
        view: root.view
    }

    HairLine {
        id: headerLine
        objectName: "headerLine"
        y: header.height
        width: parent.width
    }

    FocusScope {
        id: content
        objectName: "contentArea"
        y: headerLine.y + headerLine.height
        width: parent.width
        height: parent.height - y

        Loader {
            id: area
            anchors.fill: parent
            focus: true
            sourceComponent: {
                switch (root.view.area) {
                case ViewBridge.FolderPicker:
                    return folderPicker;
                case ViewBridge.EmptyState:
                    return emptyState;
                default:
                    return splitArea;
                }
            }
            onLoaded: appear.restart()

            NumberAnimation on opacity {
                id: appear
                running: false
                from: 0
                to: 1
                duration: Theme.viewFade
            }
        }
    }

    Component {
        id: folderPicker
        FolderPickerView {
            view: root.view
        }
    }

    Component {
        id: emptyState
        EmptyStateView {
            view: root.view
        }
    }

    Component {
        id: splitArea
        SplitArea {
            view: root.view
        }
    }

    RenameSheet {
        id: sheet
        view: root.view
    }

    FailureAlert {
        view: root.view
        onDismissed: sheet.focusField()
    }
}
