pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// The projects and the log side by side, with a divider that can be moved.
FocusScope {
    id: root

    required property ViewBridge view
    property real wantedLogWidth: Theme.firstLogWidth
    readonly property real logWidth: view.allowedLogWidth(wantedLogWidth, width - divider.width)

    objectName: "splitArea"

    ProjectListView {
        width: divider.x
        height: parent.height
        focus: true
        view: root.view
    }

    SplitHandle {
        id: divider
        x: parent.width - root.logWidth - width
        height: parent.height
        z: 1
        onMoved: distance => {
            const wanted = root.logWidth - distance;
            root.wantedLogWidth = root.view.allowedLogWidth(wanted, root.width - divider.width);
        }
    }

    LogView {
        x: divider.x + divider.width
        width: root.logWidth
        height: parent.height
        view: root.view
    }
}
