pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// A symbol beside a text: a square of fixed size, silent for assistive technology.
Item {
    id: root

    required property string symbol
    required property int size
    required property color colour

    implicitWidth: size
    implicitHeight: size

    SymbolItem {
        width: root.size
        height: root.size
        symbol: root.symbol
        colour: root.colour
    }
}
