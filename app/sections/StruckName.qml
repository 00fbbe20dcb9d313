pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// A name on disk that the rename replaces. The line through it is fainter than its letters, because in their colour it
// would hide the bar of an "e" or an "a".
TextLabel {
    id: root

    color: Theme.redSevenTenths
    opacity: Theme.oldNameOpacity
    wrapMode: Text.Wrap
    onLineLaidOut: line => {
        const strike = strikes.itemAt(line.number);
        if (strike) {
            strike.width = line.implicitWidth;
            strike.y = Math.round(line.y + metrics.ascent - metrics.strikeOutPosition);
        }
    }

    FontMetrics {
        id: metrics
        font: root.font
    }

    Repeater {
        id: strikes
        model: root.lineCount
        onItemAdded: root.forceLayout()

        HairLine {
            objectName: "strike"
            color: root.color
            opacity: Theme.halfOpacity
        }
    }
}
