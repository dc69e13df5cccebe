import QtQuick 1.1
import "components"
import "components/style.js" as Style

// Stands where the browser would be when the instrument's account can't be used.
Rectangle {
    id: refused

    property string reason

    signal retried

    color: Style.surface

    Column {
        anchors.centerIn: parent
        width: 600
        spacing: 16

        Label {
            objectName: "refusedTitle"
            width: parent.width
            text: qsTr("This machine is not an instrument")
            color: Style.blue
            font.bold: true
            font.pixelSize: 24
        }

        Label {
            objectName: "refusedReason"
            width: parent.width
            text: refused.reason
            wrapMode: Text.WordWrap
            maximumLineCount: 6
        }

        Label {
            width: parent.width
            text: qsTr("Files are made, changed and copied as the account \"ostan\", and this process can't become it. Start the viewer on a private instrument instead, with the command")
            wrapMode: Text.WordWrap
            maximumLineCount: 6
        }

        Label {
            width: parent.width
            text: "./run"
            font.bold: true
        }

        Button {
            objectName: "button:Try again"
            width: 260
            text: qsTr("Try again")
            kind: "main"
            onClicked: refused.retried()
        }
    }
}
