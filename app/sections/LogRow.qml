import QtQuick
import Tarvolt

// One line of the log: a dot, the time and the message, which takes as many lines as it needs.
Item {
    id: root

    required property string time
    required property string message
    required property bool isError
    required property string sentence

    objectName: "logRow"
    implicitHeight: Math.ceil(texts.implicitHeight) + 2 * texts.y
    Accessible.role: Accessible.ListItem
    Accessible.name: sentence

    FocusRing {
        objectName: "logFocus"
        // Clear of the list's edge, which may lie between pixels and would then cut the ring.
        anchors.topMargin: Theme.hairline
        anchors.bottomMargin: Theme.hairline
        anchors.leftMargin: 4
        anchors.rightMargin: 10 // clear of the thumb
        thickness: Theme.hairline
        gap: -thickness
        innerRadius: Theme.smallButtonRadius
        visible: root.activeFocus
    }

    BoxItem {
        id: dot
        objectName: "logDot"
        x: Theme.edge
        y: texts.y + 5
        width: 5
        height: width
        radius: width / 2
        color: root.isError ? Theme.red : Theme.greenSixTenths
        opacity: root.isError ? 1 : Theme.tintedOpacity
    }

    Column {
        id: texts
        objectName: "logTexts"
        x: dot.x + dot.width + 6
        y: 4
        width: parent.width - x - Theme.edge
        spacing: 1

        TextLabel {
            objectName: "logTime"
            text: root.time
            font: Theme.monoCaption2
            color: Theme.secondarySixTenths
            opacity: Theme.tintedOpacity
            Accessible.ignored: true
        }

        TextLabel {
            objectName: "logMessage"
            width: parent.width
            text: root.message
            font: Theme.verbatim(Theme.caption, text)
            color: root.isError ? Theme.red : Theme.primary
            wrapMode: Text.Wrap
            lineHeight: Theme.proseHeight
            Accessible.ignored: true
        }
    }
}
