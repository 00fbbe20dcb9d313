import QtQuick
import Tarvolt

// A symbol and a short text under a project's name.
Row {
    id: root

    required property string symbol
    required property string text
    property color colour: Theme.secondary

    objectName: "detailLabel"
    spacing: 4
    rightPadding: 12 - Theme.rowLineSpacing // Labels side by side are 12 apart.

    Symbol {
        objectName: "detailSymbol"
        anchors.verticalCenter: parent.verticalCenter
        symbol: root.symbol
        size: Theme.captionSymbol
        colour: root.colour
    }

    TextLabel {
        objectName: "detailText"
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        font: Theme.caption
        color: root.colour
        Accessible.ignored: true
    }
}
