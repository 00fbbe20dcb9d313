import QtQuick
import Tarvolt

// A thin line, horizontal by default.
BoxItem {
    implicitHeight: Theme.hairline
    color: Theme.line
}
