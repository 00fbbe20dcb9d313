import QtQuick
import Tarvolt

// A thin line, horizontal unless it is told otherwise.
BoxItem {
    implicitHeight: Theme.hairline
    color: Theme.line
}
