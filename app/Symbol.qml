pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// A symbol beside a text: a square of fixed size, silent for assistive technology.
SymbolItem {
    required property int size

    implicitWidth: size
    implicitHeight: size
}
