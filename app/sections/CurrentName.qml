import QtQuick
import Tarvolt

// The name that a project has now. It is a text of its own, because the first letter of a text decides the writing
// direction of the whole. It is not in a layout, which would move it to a whole pixel.
Item {
    id: root

    required property string name
    readonly property real ascent: Math.max(label.baselineOffset, current.baselineOffset)

    implicitHeight: childrenRect.height

    TextLabel {
        id: label
        objectName: "sheetCurrent"
        y: root.ascent - baselineOffset
        text: qsTr("Current: ")
        font: Theme.monoBody
        color: Theme.secondary
        Accessible.ignored: true
    }

    TextLabel {
        id: current
        objectName: "sheetCurrentName"
        x: label.advance.width
        y: root.ascent - baselineOffset
        width: root.width - x
        text: root.name
        font: Theme.verbatim(Theme.monoBody, text)
        color: label.color
        maximumLineCount: 1
        elide: Text.ElideMiddle
        Accessible.name: label.text + text
    }
}
