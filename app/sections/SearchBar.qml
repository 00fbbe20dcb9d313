import QtQuick
import Tarvolt

// The search field over the list.
Item {
    id: root

    required property ProjectListModel projects
    readonly property alias focused: field.activeFocus

    function takeFocus(): void {
        field.forceActiveFocus(Qt.OtherFocusReason);
    }

    objectName: "searchBar"
    implicitHeight: Math.max(symbol.implicitHeight, field.implicitHeight) + 2 * symbol.x

    BoxItem {
        id: fill
        objectName: "searchFill"
        anchors.fill: parent
        radius: 8
        color: Theme.quaternary
        opacity: Theme.halfOpacity
    }

    Symbol {
        id: symbol
        objectName: "searchSymbol"
        x: 8
        anchors.verticalCenter: parent.verticalCenter
        symbol: "magnifyingglass"
        size: Theme.bodySymbol
        colour: Theme.secondary
    }

    BareField {
        id: field
        objectName: "searchField"
        anchors.verticalCenter: parent.verticalCenter
        x: symbol.x + symbol.width + 8
        width: parent.width - x - symbol.x
        implicitHeight: contentHeight
        font: Theme.verbatim(Theme.body, text)
        placeholderText: qsTr("Search projects...")
        stored: root.projects.searchText
        onEdited: newText => root.projects.searchText = newText
        Accessible.name: placeholderText
        Accessible.searchEdit: true
    }

    TapHandler {
        onTapped: root.takeFocus()
    }

    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }

    FocusRing {
        objectName: "searchFocus"
        gap: -thickness
        innerRadius: fill.radius
        visible: field.inUse
    }
}
