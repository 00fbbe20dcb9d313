pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Tarvolt

// The window: header, line, and below them one of three areas; over them the rename sheet and the failure alert.
Window {
    id: root

    required property ViewBridge view

    width: Theme.firstWidth
    height: Theme.firstHeight
    minimumWidth: Theme.leastWidth
    minimumHeight: Theme.leastHeight
    title: Qt.application.name
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

    ContentArea {
        y: headerLine.y + headerLine.height
        width: parent.width
        height: parent.height - y
        view: root.view
    }

    RenameSheet {
        id: sheet
        view: root.view
    }

    FailureAlert {
        view: root.view
        onAboutToHide: sheet.focusField()
    }
}
