import QtQuick
import Tarvolt

// A plain text, never taken for markup and left-aligned in every script. One that is part of something that speaks for
// it is ignored by assistive technology.
Text {
    font: Theme.body
    color: Theme.primary
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignLeft
    renderType: Text.NativeRendering
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
