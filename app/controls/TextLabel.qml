pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// A text as it stands, never taken for markup. Read out unless it is part of something that speaks for it.
Text {
    id: root

    property bool silent: false

    font: Theme.body
    color: Theme.primary
    textFormat: Text.PlainText
    renderType: Text.NativeRendering
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: silent
}
