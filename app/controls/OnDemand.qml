import QtQuick

// Creates its content when it is first needed and keeps it, so that the window opens sooner. Not a Loader, which
// refuses bound components in Qt 6.4.
FocusScope {
    id: root

    required property bool needed
    default property Component content
    property QtObject made: null
    readonly property bool ready: needed && made !== null // false while the content is being made

    implicitWidth: (made as Item)?.implicitWidth ?? 0
    implicitHeight: (made as Item)?.implicitHeight ?? 0
    onNeededChanged: made = made ?? content.createObject(root)
}
