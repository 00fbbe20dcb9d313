pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// What describes a project, in a line; where a large font leaves no room beside the one before, the next goes below it.
Item {
    id: root

    required property string fileCountText
    required property string sizeText
    required property string warningText // empty for none

    implicitWidth: Math.ceil(fileCount.width + Theme.detailSpacing + size.width
        + (warning.visible ? Theme.detailSpacing + warning.width : 0))
    implicitHeight: (warning.visible ? warning.y : size.y) + fileCount.height

    DetailLabel {
        id: fileCount
        symbol: "doc"
        text: root.fileCountText
    }

    DetailLabel {
        id: size

        readonly property real beside: fileCount.width + Theme.detailSpacing
        readonly property bool fits: beside + width <= root.width

        x: fits ? beside : 0
        y: fits ? 0 : fileCount.height + Theme.rowLineSpacing
        symbol: "internaldrive"
        text: root.sizeText
    }

    DetailLabel {
        id: warning

        readonly property real beside: size.x + size.width + Theme.detailSpacing
        readonly property bool fits: beside + width <= root.width

        x: fits ? beside : 0
        y: fits ? size.y : size.y + size.height + Theme.rowLineSpacing
        visible: text !== ""
        symbol: "exclamationmark.triangle"
        text: root.warningText
        colour: Theme.yellow
    }
}
