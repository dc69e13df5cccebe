import QtQuick 1.1
import "components/style.js" as Style

// What the viewer shows. The browser comes only when the account can be used: its objects look for
// their folders as the account from the moment they are made.
Rectangle {
    id: main

    // "account" is the viewer's. A user-interface process without one like it leaves "reason" empty, here
    // and in Browser.qml, and must be able to become the account.
    property string reason: account.refusal()

    // For the viewer: a file or the module could not be loaded, and the engine has said why.
    property bool isBroken: browser.status === Loader.Error

    width: 800
    height: 480
    color: "white"

    // As the locale reads: the viewer tells the application.
    LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Loader {
        id: browser
        anchors.fill: parent
        source: main.reason === "" ? "Browser.qml" : ""
    }

    Refused {
        anchors.fill: parent
        visible: main.reason !== ""
        reason: main.reason
        onRetried: main.reason = account.refusal()
    }
}
