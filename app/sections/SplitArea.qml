import QtQuick
import Tarvolt

// The projects and the log side by side, with a divider that can be moved.
FocusScope {
    id: root

    required property WindowBridge view
    property real wantedLogWidth: 240
    readonly property real logWidth: allowed(wantedLogWidth)

    objectName: "splitArea"

    // The limits of the log take precedence over the list's least width.
    function allowed(wanted: real): real {
        return Math.max(220, Math.min(280, wanted, width - divider.width - 400));
    }

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
        value: root.logWidth
        minimumValue: root.allowed(0)
        maximumValue: root.allowed(Infinity)
        onMoved: distance => root.wantedLogWidth = root.allowed(root.logWidth - distance)
    }

    LogView {
        x: divider.x + divider.width
        width: root.logWidth
        height: parent.height
        log: root.view.log
    }
}
