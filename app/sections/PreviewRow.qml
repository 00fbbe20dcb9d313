import QtQuick
import Tarvolt

// A name on disk before and after.
Item {
    id: root

    required property string oldText
    required property string newText
    readonly property int spacing: 8
    readonly property real forNames: width - arrow.width - 2 * spacing

    implicitHeight: Math.max(oldName.implicitHeight, arrow.implicitHeight, newName.implicitHeight)

    // Measured separately, because the width of a wrapped text depends on the width it is given.
    TextMetrics {
        id: oldMetrics
        font: oldName.font
        text: root.oldText
    }

    TextMetrics {
        id: newMetrics
        font: newName.font
        text: root.newText
    }

    StruckName {
        id: oldName
        objectName: "previewOldName"
        anchors.verticalCenter: parent.verticalCenter
        // Its own width or, if both names do not fit, at most half of the room, or more if the new name leaves more.
        width: Math.min(oldMetrics.advanceWidth, Math.max(root.forNames / 2, root.forNames - newMetrics.advanceWidth))
        text: root.oldText
        font: Theme.verbatim(Theme.monoCaption, text)
    }

    Symbol {
        id: arrow
        objectName: "previewArrow"
        anchors.verticalCenter: parent.verticalCenter
        x: oldName.width + root.spacing
        symbol: "arrow.right"
        size: Theme.caption2Symbol
        colour: Theme.secondary
    }

    TextLabel {
        id: newName
        objectName: "previewNewName"
        anchors.verticalCenter: parent.verticalCenter
        x: arrow.x + arrow.width + root.spacing
        width: root.forNames - oldName.width
        text: root.newText
        font: Theme.verbatim(Theme.monoCaption, text)
        color: Theme.green
        wrapMode: Text.Wrap
    }
}
