import QtQuick
import Tarvolt

// A plain text, never taken for markup and left-aligned in every script. Read out unless it is part of something that
// speaks for it.
Text {
    property bool silent: false

    font: Theme.body
    color: Theme.primary
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignLeft
    renderType: Text.NativeRendering
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: silent
}
