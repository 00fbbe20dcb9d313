pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// The window: header, line, and below them one of three areas; over them the rename sheet and the failure alert.
// An application window gives the focus back to where it was in here when one of these closes.
T.ApplicationWindow {
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

    // Assistive technology reads a notification out when it appears. Each is a new one, so that what has been overtaken
    // before it was read is gone.
    Repeater {
        id: news
        delegate: Item {
            required property string modelData

            objectName: "news"
            width: 1
            height: 1
            Accessible.role: Accessible.Notification
            Accessible.name: modelData
        }
    }

    Connections {
        target: root.view

        function onNewsTold(text: string): void {
            news.model = 0;
            news.model = [text];
        }
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
