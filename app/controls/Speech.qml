pragma Singleton

import QtQml

// What assistive technology says about more than one kind of control.
QtObject {
    // Qt 6.4 does not tell assistive technology that a control is disabled.
    function description(enabled: bool, details: string): string {
        return enabled ? details : qsTr("Not available now");
    }
}
