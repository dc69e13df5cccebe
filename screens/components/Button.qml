import QtQuick 1.1
import "style.js" as Style

// A push button. "main" is the one action that a screen leads to, "danger" one that destroys.
Rectangle {
    id: button

    property string text
    property string kind: "plain"
    property color tint: kind === "danger" ? Style.warning : Style.blue
    property bool isFilled: kind === "main" || area.pressed

    signal clicked

    width: 112
    height: Style.touch
    radius: 4
    color: !enabled ? Style.softLine : !isFilled ? "white" : kind === "main" && area.pressed ? Style.darkBlue : tint
    border.color: enabled ? tint : Style.line
    border.width: 1

    Label {
        anchors { fill: parent; leftMargin: 3; rightMargin: 3 }
        horizontalAlignment: Text.AlignHCenter
        text: button.text
        color: !button.enabled ? Style.faintText : button.isFilled ? "white" : button.tint
        wrapMode: Text.WordWrap
        maximumLineCount: 2
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: button.clicked()
    }
}
