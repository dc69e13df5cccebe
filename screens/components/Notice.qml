import QtQuick 1.1
import "style.js" as Style

// Tells how something went, and stays until it has been read.
Rectangle {
    id: notice

    property string text
    property string detail
    property bool isGood: true

    function tell(newText, newDetail) {
        isGood = true;
        text = newText;
        detail = newDetail;
    }

    function complain(newText, newDetail) {
        isGood = false;
        text = newText;
        detail = newDetail;
    }

    function close() {
        text = "";
    }

    visible: text !== ""
    height: Math.max(Style.touch, column.height) + 20
    color: "white"
    border.color: isGood ? Style.blue : Style.warning
    border.width: 2

    MouseArea {
        anchors.fill: parent
    }

    Column {
        id: column
        anchors { left: parent.left; leftMargin: 16; right: ok.left; rightMargin: 16 }
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Label {
            objectName: "noticeText"
            width: parent.width
            text: notice.text
            color: notice.isGood ? Style.blue : Style.warning
            font.bold: true
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            maximumLineCount: 8
        }

        Label {
            objectName: "noticeDetail"
            width: parent.width
            visible: text !== ""
            text: notice.detail
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            maximumLineCount: 4
        }
    }

    Button {
        id: ok
        objectName: "noticeOk"
        anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
        text: qsTr("OK")
        onClicked: notice.close()
    }
}
