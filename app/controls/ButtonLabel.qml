pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// What stands on a button: a symbol, a text, or both side by side. The button speaks for it.
Item {
    id: root

    required property string symbol
    required property string text
    required property font font
    required property color ink

    implicitWidth: row.implicitWidth
    implicitHeight: label.implicitHeight

    Row {
        id: row
        anchors.centerIn: parent
        spacing: Theme.largeButtonSpacing

        Symbol {
            objectName: "buttonSymbol"
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbol !== ""
            symbol: root.symbol
            size: Theme.bodySymbol
            colour: Qt.alpha(root.ink, 1)
            opacity: root.ink.a
        }

        TextLabel {
            id: label
            objectName: "buttonText"
            anchors.verticalCenter: parent.verticalCenter
            width: Math.ceil(implicitWidth) // With a fraction it would be centred a pixel too far to the right.
            visible: text !== ""
            text: root.text
            font: root.font
            color: root.ink
            silent: true
        }
    }
}
