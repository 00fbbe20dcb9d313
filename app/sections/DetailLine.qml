pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// What describes a project, in a line; where a large font leaves no room beside the one before, the next goes below it.
Flow {
    id: root

    required property string fileCountText
    required property string sizeText
    required property string warningText // empty for none

    spacing: Theme.rowLineSpacing

    DetailLabel {
        symbol: "doc"
        text: root.fileCountText
    }

    DetailLabel {
        symbol: "internaldrive"
        text: root.sizeText
    }

    DetailLabel {
        visible: text !== ""
        symbol: "exclamationmark.triangle"
        text: root.warningText
        colour: Theme.yellow
    }
}
